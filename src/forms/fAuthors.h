#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editors/author_list.h"

namespace snippetarium {

class Database;

namespace Ui {
class fAuthors;
}

/// The authors of one application, class or procedure: chosen from all that the catalogue knows, or
/// entered by name. OK writes a changed name, which then shows wherever the author is named; who
/// the owner's authors are is the caller's to store.
class fAuthors final : public QDialog {
    Q_OBJECT

  public:
    fAuthors(Database& db, std::vector<LinkedAuthor> authors, QWidget* parent);
    ~fAuthors() override;

    /// In the order in which they stood, new ones behind. After QDialog::Accepted, to be stored.
    const std::vector<LinkedAuthor>& Authors() const { return list_.Authors(); }

  private:
    void Connect();
    void OnEvent(const std::function<void()>& body);
    void ListAuthors(int row);
    void ListKnown();
    void ShowSelected();
    void EnableButtons();
    int Selected() const;
    AuthorName Entered() const;
    void Choose();
    void Add();
    void Change();
    void Remove();
    void Accept();

    Database& db_;
    AuthorList list_;
    std::vector<KnownAuthor> known_;
    /// Of each row of the list of all authors, its place in known_.
    std::vector<std::size_t> shown_;
    std::unique_ptr<Ui::fAuthors> ui_;
};

}  // namespace snippetarium
