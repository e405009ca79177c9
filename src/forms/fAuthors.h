#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "editors/author_list.h"
#include "editors/author_naming.h"

namespace snippetarium {

class Database;
class FilteredList;

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
    void ListKnown();
    void ListAuthors(int row);
    void ShowSelected();
    void EnableButtons();
    std::optional<std::size_t> Selected() const;
    AuthorName Entered() const;
    bool HasEntry() const;
    bool SettleEntry();
    std::int32_t PlacesOf(std::size_t row) const;
    void Choose();
    void Add();
    void Change();
    void Remove();
    void Accept();

    Database& db_;
    AuthorList list_;
    std::vector<KnownAuthor> known_;
    std::unique_ptr<Ui::fAuthors> ui_;
    FilteredList* knownList_ = nullptr;
};

}  // namespace snippetarium
