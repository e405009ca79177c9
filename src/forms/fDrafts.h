#pragma once

#include <QDialog>
#include <cstdint>
#include <memory>
#include <vector>

#include "editors/drafts.h"

namespace snippetarium {

namespace Ui {
class fDrafts;
}

/// What was being edited when the program ended without storing it, to be gone on with or thrown
/// away. What is neither is offered again at the next start.
class fDrafts final : public QDialog {
    Q_OBJECT

  public:
    fDrafts(Database& db, std::vector<Draft> drafts, QWidget* parent);
    ~fDrafts() override;

    /// After QDialog::Accepted, the drafts to be opened.
    std::vector<std::int32_t> Chosen() const;

  private:
    void List();
    void EnableButtons();
    void ThrowAway();

    Database& db_;
    std::vector<Draft> drafts_;
    std::unique_ptr<Ui::fDrafts> ui_;
};

}  // namespace snippetarium
