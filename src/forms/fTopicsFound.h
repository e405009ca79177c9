#pragma once

#include <QDialog>
#include <memory>
#include <string>

#include "search/topic_list.h"

namespace snippetarium {

class Database;

namespace Ui {
class fTopicsFound;
}

/// The topics of one entry of the index, of which the user chooses one.
class fTopicsFound final : public QDialog {
    Q_OBJECT

  public:
    /// The list outlives it.
    fTopicsFound(Database& db, TopicList& topics, QWidget* parent);
    ~fTopicsFound() override;

    /// The key of the chosen topic; empty where none was chosen.
    const std::string& ChosenKey() const { return chosenKey_; }

  private:
    void Choose();

    TopicList& topics_;
    std::unique_ptr<Ui::fTopicsFound> ui_;
    std::string chosenKey_;
};

}  // namespace snippetarium
