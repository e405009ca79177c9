#pragma once

#include <QObject>

#include "navigator/commands.h"

class QMainWindow;

namespace snippetarium {

class Database;
class fFind;
class fPage;
class fZoom;

/// The windows for reading what the page view shows. Each is made when it is first asked for and
/// used again from then on.
class ReadingWindows final : public QObject {
    Q_OBJECT

  public:
    ReadingWindows(Database& db, QMainWindow& window, fPage& page);

    /// The commands of these windows; others are left alone.
    void Perform(MenuCommand command);
    bool HasZoomSelection() const;

  signals:
    void ZoomMenuRequested(const QPoint& globalPosition);

  private:
    fFind& FindWindow();
    fZoom& ZoomWindow();

    Database& db_;
    QMainWindow& window_;
    fPage& page_;
    fFind* find_ = nullptr;
    fZoom* zoom_ = nullptr;
};

}  // namespace snippetarium
