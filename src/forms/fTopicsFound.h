#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace snippetarium {

class Database;
class TopicList;
class TopicModel;

namespace Ui {
class fTopicsFound;
}

/// The topics to which one word of the index leads, to choose from.
class fTopicsFound final : public QDialog {
    Q_OBJECT

  public:
    /// Both outlive this. The first topic is selected.
    fTopicsFound(Database& db, TopicList& topics, QWidget* parent);
    ~fTopicsFound() override;

    /// The chosen topic's key, "f56", once the dialog is accepted.
    std::string ChosenKey() const;

  private:
    void Display();

    TopicList& topics_;
    std::unique_ptr<Ui::fTopicsFound> ui_;
    TopicModel* model_ = nullptr;
};

}  // namespace snippetarium
