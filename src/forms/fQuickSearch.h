#pragma once

#include <QFrame>
#include <QTimer>
#include <memory>

#include "support/node_key.h"

namespace snippetarium {

class Database;
class QuickHitModel;
class QuickSearch;

namespace Ui {
class fQuickSearch;
}

/// The quick search line, which lies over the page, with what it finds below it. Searches as one
/// types, in steps between the window's events, and goes away when the focus leaves it.
class fQuickSearch final : public QFrame {
    Q_OBJECT

  public:
    /// `page` is what it lies over, in `window`. All outlive it.
    fQuickSearch(Database& db, QWidget& page, QWidget& window);
    ~fQuickSearch() override;

    /// The last entry is still in the line, selected, and searched for once more.
    void Open();

  signals:
    /// The user wants to go to a hit; the words are to be marked in its page.
    void HitChosen(const NodeIDs& node, const QStringList& words);
    /// Esc.
    void Left();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    bool OnKey(int key);
    void OnFocusChanged(QWidget* now);
    void StartSearch();
    void Step();
    void ShowHits(bool isSearching);
    void ShowMore(bool isSearching);
    QString Remark(bool isSearching) const;
    void MoveBy(int rows);
    void Choose();
    void Arrange();

    Database& db_;
    QWidget& page_;
    std::unique_ptr<Ui::fQuickSearch> ui_;
    QuickHitModel* model_;
    std::unique_ptr<QuickSearch> search_;
    QTimer stepTimer_;
    /// Whether the list still shows what an earlier entry found.
    bool isListStale_ = false;
    /// Whether Enter was pressed before there was a hit to go to.
    bool isChoosing_ = false;
};

}  // namespace snippetarium
