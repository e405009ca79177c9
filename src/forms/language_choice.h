#pragma once

#include <QObject>
#include <cstdint>
#include <string_view>

#include "forms/record_boxes.h"

class QComboBox;
class QPushButton;

namespace snippetarium {

class Database;

/// The language of a class or a procedure in its editor: a box, and a button that opens the list of
/// languages. Until the user has chosen one himself, it may be guessed.
class LanguageChoice final : public QObject {
    Q_OBJECT

  public:
    /// Owned by the box. `db` outlives it.
    LanguageChoice(Database& db, QComboBox* box, QPushButton* button);

    void Show(std::int32_t languageID);
    std::int32_t ID() const { return chosen_.Of(box_); }
    /// By a text that was put into the editor at once.
    void Guess(std::string_view text);

  signals:
    void Changed(std::int32_t languageID);

  private:
    void Select(std::int32_t languageID);
    void OpenList();

    Database& db_;
    QComboBox* box_;
    ChosenID chosen_;
    bool isUsersChoice_ = false;
};

}  // namespace snippetarium
