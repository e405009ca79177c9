#pragma once

#include <QDialog>
#include <cstdint>
#include <memory>
#include <string>

#include "support/node_key.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

class Database;
class NodePicker;

namespace Ui {
class CopyDialog;
}

/// The copying of something that the catalogue has: what, and under which name. It stays open where
/// the copy is refused.
class CopyDialog : public QDialog {
    Q_OBJECT

  public:
    ~CopyDialog() override;

  protected:
    struct Texts {
        const char* form;
        QString title;
        /// Where the copy goes.
        QString target;
        /// The caption of the tree, with an access key.
        QString source;
        /// What is said where nothing of the kind is selected.
        std::string_view nothingSelected;
        Procedure procedure;
    };

    CopyDialog(Database& db, const Texts& texts, QWidget* parent);

    Database& Catalogue() { return db_; }
    virtual bool CanBeCopied(const NodeIDs& node) const = 0;
    /// Proposes a name for the copy that can be given.
    virtual std::string Proposal(const NodeIDs& node) = 0;
    /// False where it was refused, which the user has been told.
    virtual bool Copy(const NodeIDs& node, const std::string& name) = 0;

  private:
    void ShowProposal();
    void Accept();

    Database& db_;
    std::string_view nothingSelected_;
    Procedure procedure_;
    std::unique_ptr<Ui::CopyDialog> ui_;
    NodePicker* picker_;
};

}  // namespace snippetarium
