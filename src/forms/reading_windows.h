#pragma once

#include <QObject>

#include "navigator/commands.h"
#include "support/node_key.h"

class QMainWindow;

namespace snippetarium {

class Database;
class fContents;
class fFind;
class fPage;
class fQuickSearch;
class fZoom;

/// The windows for finding and reading that go with the page view. Each is made when it is first
/// asked for and used again from then on.
class ReadingWindows final : public QObject {
    Q_OBJECT

  public:
    ReadingWindows(Database& db, QMainWindow& window, fContents& contents, fPage& page);

    /// The commands of these windows; others are left alone.
    void Perform(MenuCommand command);
    bool HasZoomSelection() const;

  signals:
    void ZoomMenuRequested(const QPoint& globalPosition);

  private:
    fFind& FindWindow();
    fZoom& ZoomWindow();
    fQuickSearch& QuickLine();
    void GoTo(const NodeIDs& node, const QStringList& words);

    Database& db_;
    QMainWindow& window_;
    fContents& contents_;
    fPage& page_;
    fFind* find_ = nullptr;
    fZoom* zoom_ = nullptr;
    fQuickSearch* quick_ = nullptr;
};

}  // namespace snippetarium
