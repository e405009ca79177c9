#pragma once

#include "forms/copy_dialog.h"

namespace snippetarium {

/// Copies a class that the catalogue has, with its procedures, into an application.
class fAddClass final : public CopyDialog {
    Q_OBJECT

  public:
    fAddClass(Database& db, std::int32_t appID, QWidget* parent);

    /// The copy, once the dialog is accepted.
    std::int32_t ClassID() const { return copyID_; }

  private:
    /// Also of a procedure, whose class it then is.
    bool CanBeCopied(const NodeIDs& node) const override { return node.classID != 0; }
    std::string Proposal(const NodeIDs& node) override;
    bool Copy(const NodeIDs& node, const std::string& name) override;

    std::int32_t appID_;
    std::int32_t copyID_ = 0;
};

}  // namespace snippetarium
