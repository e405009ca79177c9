#pragma once

#include <QObject>

#include "navigator/commands.h"
#include "navigator/node_requests.h"

class QWidget;

namespace snippetarium {

class Database;
class fContents;
class fIndex;

/// The editors of what all records share (languages, noise words, words of the index), and the
/// copying of classes and procedures. After each, tree, page, index and bookmarks show what is
/// new and keep their places.
class ListEditors final : public QObject {
    Q_OBJECT

  public:
    struct Panes {
        fContents& contents;
        fIndex& index;
    };

    /// All outlive this.
    ListEditors(Database& db, QWidget& window, const Panes& panes);

    /// The commands of these editors; others are left alone.
    void Perform(MenuCommand command);

  signals:
    /// The lists beside the tree are to be loaded now: what is selected next may be new.
    void ListsChanged();

  private:
    void EditLanguages();
    void EditNoiseWords();
    void EditIndexWord();
    void AddExisting(const std::optional<CopyTarget>& target);
    void AddClass(const CopyTarget& target);
    void AddCode(const CopyTarget& target);
    void ShowChanges();

    Database& db_;
    QWidget& window_;
    Panes panes_;
};

}  // namespace snippetarium
