#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <string>
#include <string_view>

#include "import/import_preview.h"
#include "support/host.h"

namespace snippetarium {

namespace Ui {
class ImportPreviewPane;
}

/// Shows what a file would be cut into, before anything is stored. Cutting a large file lets the
/// window go on, and ends when another file is asked for.
class ImportPreviewPane final : public QWidget {
    Q_OBJECT

  public:
    explicit ImportPreviewPane(QWidget* parent);
    ~ImportPreviewPane() override;

    /// To be called before anything else; `files` outlives this.
    void SetUp(const Host& host, const FileSystem& files);
    /// For files that do not tell their encoding.
    void SetEncoding(std::string_view encoding);
    /// Shows an entry of the folder.
    void ShowFile(std::string_view folder, std::string_view entry);
    /// Shows none any more.
    void Forget();
    /// While a job runs nothing is cut besides.
    void SetPaused(bool isPaused);

  private:
    void StartSoon();
    void CutWanted();
    void ShowPreview(const ImportPreview& preview);
    void ShowMarkedText();
    void Clear();

    std::unique_ptr<Ui::ImportPreviewPane> ui_;
    std::unique_ptr<Host> host_;
    const FileSystem* files_ = nullptr;
    Analysers analysers_ = ProgramAnalysers();
    PreviewRequest wanted_;
    /// What `shown_` came from.
    PreviewRequest shownFor_;
    /// Of the preview that is being made.
    ImportState state_;
    bool isCutting_ = false;
    bool isPaused_ = false;
    QTimer timer_;
    /// What it says while no file is shown.
    QString hint_;
    ImportPreview shown_;
};

}  // namespace snippetarium
