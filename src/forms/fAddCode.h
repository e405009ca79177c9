#pragma once

#include "forms/copy_dialog.h"

namespace snippetarium {

/// Copies a procedure that the catalogue has into a class.
class fAddCode final : public CopyDialog {
    Q_OBJECT

  public:
    fAddCode(Database& db, std::int32_t classID, QWidget* parent);

    /// The copy, once the dialog is accepted.
    std::int32_t CodeID() const { return copyID_; }

  private:
    bool CanBeCopied(const NodeIDs& node) const override { return node.codeID != 0; }
    std::string Proposal(const NodeIDs& node) override;
    bool Copy(const NodeIDs& node, const std::string& name) override;

    std::int32_t classID_;
    std::int32_t copyID_ = 0;
};

}  // namespace snippetarium
