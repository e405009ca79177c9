#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

#include "keywords/noise_words.h"
#include "navigator/commands.h"
#include "navigator/node_requests.h"

class QWidget;

namespace snippetarium {

class Database;
class EditorWindow;
class RecordEditor;
class fContents;
class fPage;

/// The open editors of applications, classes and procedures. Each is a window of its own beside the
/// main window.
class EditorWindows final : public QObject {
    Q_OBJECT

  public:
    struct Parts {
        Database& db;
        const NoiseWords& noise;
        QWidget& window;
        fContents& contents;
        fPage& page;
    };
    /// All outlive this; the window owns it.
    explicit EditorWindows(const Parts& parts);
    ~EditorWindows() override;

    /// The commands that open editors; others are left alone.
    void Perform(MenuCommand command);
    /// Opens the record's editor, or brings it to the front where it is open.
    void Open(const EditTarget& target);

    /// Offers to go on with what was not stored when the program ended.
    void OfferDrafts();
    /// For the program's end. False where the user wants to go on editing.
    bool CloseAll();

  private:
    void OpenNew(const NewTarget& target);
    void OpenRequested(const EditRequest& request);
    void OpenEditor(std::unique_ptr<RecordEditor> editor, std::int32_t appID);
    void OnSaved(const NodeIDs& before, const NodeIDs& node);
    void OnClosed(EditorWindow* window);

    Parts parts_;
    std::vector<QPointer<EditorWindow>> windows_;
};

}  // namespace snippetarium
