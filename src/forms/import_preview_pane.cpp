#include "forms/import_preview_pane.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <algorithm>
#include <chrono>

#include "forms/handler.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "support/utf8.h"
#include "ui_import_preview_pane.h"

namespace snippetarium {

namespace {

/// Going through a list with the arrow keys cuts only the file at which one stays.
constexpr int kPause = 150;
/// More of a text is not shown: a glance is wanted, and a text control takes long for more.
constexpr std::size_t kMostCharacters = 64'000;
constexpr std::size_t kMostProblems = 3;
constexpr std::chrono::milliseconds kBetweenYields{10};
/// The row of the class's own text; procedures have theirs from 0.
constexpr int kClassRow = -1;

/// A preview is no job behind a progress window: all events go on, so that the user can turn to
/// another file.
class PreviewEvents final : public EventLoop {
  public:
    explicit PreviewEvents(const Host& host) : host_(host), lastYield_(host.clock.Steady()) {}

    void Yield() override {
        const auto now = host_.clock.Steady();
        if (now - lastYield_ < kBetweenYields) return;
        const ErrorReporter::EventScope events(host_.reporter);
        QCoreApplication::processEvents();
        lastYield_ = host_.clock.Steady();
    }
    void SetPointer(Pointer) override {}

  private:
    const Host& host_;
    std::chrono::steady_clock::time_point lastYield_;
};

QString LineCount(std::string_view text) {
    const auto breaks = std::ranges::count(text, '\n');
    return QString::number(breaks + (text.empty() || text.ends_with('\n') ? 0 : 1));
}

std::string Together(std::string_view comment, std::string_view code) {
    std::string text(comment);
    if (!text.empty() && !text.ends_with('\n')) text += "\r\n";
    return text.append(code);
}

QTreeWidgetItem* MakeItem(const QString& name, std::string_view text, const QIcon& icon, int row) {
    auto* item = new QTreeWidgetItem({name, LineCount(text)});
    item->setIcon(0, icon);
    item->setToolTip(0, name);
    item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    item->setData(0, Qt::UserRole, row);
    return item;
}

}  // namespace

ImportPreviewPane::ImportPreviewPane(QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::ImportPreviewPane>()) {
    ui_->setupUi(this);
    setFocusProxy(ui_->trVwPreview);
    hint_ = ui_->lblProblems->text();
    QHeaderView* const header = ui_->trVwPreview->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    header->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui_->txtPreview->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    timer_.setSingleShot(true);
    timer_.setInterval(kPause);
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (host_) Handle(host_->reporter, Procedure::ImportPreviewEvent, [this] { CutWanted(); });
    });
    connect(ui_->trVwPreview, &QTreeWidget::currentItemChanged, this,
            &ImportPreviewPane::ShowMarkedText);
}

ImportPreviewPane::~ImportPreviewPane() = default;

void ImportPreviewPane::SetUp(const Host& host, const FileSystem& files) {
    host_ = std::make_unique<Host>(host);
    files_ = &files;
}

void ImportPreviewPane::SetEncoding(std::string_view encoding) {
    wanted_.encoding = encoding;
    StartSoon();
}

void ImportPreviewPane::ShowFile(std::string_view folder, std::string_view entry) {
    wanted_.folder = folder;
    wanted_.entry = entry;
    StartSoon();
}

void ImportPreviewPane::Forget() {
    state_.importCancelled = true;
    timer_.stop();
    wanted_.entry.clear();
    shownFor_ = {};
    Clear();
    ui_->lblProblems->setText(hint_);
}

void ImportPreviewPane::SetPaused(bool isPaused) {
    isPaused_ = isPaused;
    if (isPaused) {
        state_.importCancelled = true;
        timer_.stop();
    } else {
        StartSoon();
    }
}

void ImportPreviewPane::StartSoon() {
    state_.importCancelled = true;
    if (!isPaused_) timer_.start();
}

void ImportPreviewPane::CutWanted() {
    if (isCutting_) return timer_.start();
    if (wanted_.entry.empty() || wanted_ == shownFor_) return;
    const QScopedValueRollback cutting(isCutting_, true);
    PreviewEvents events(*host_);
    const Host host{host_->messages, host_->progress, events,
                    host_->clock,    host_->help,     host_->reporter};
    state_ = {};
    // Events may ask for another file meanwhile.
    const PreviewRequest request = wanted_;
    const ImportPreview preview = PreviewFile(host, *files_, analysers_, state_, request);
    if (state_.importCancelled) return;
    shownFor_ = request;
    ShowPreview(preview);
}

void ImportPreviewPane::Clear() {
    shown_ = {};
    ui_->trVwPreview->clear();
    ui_->txtPreview->clear();
    ui_->lblProblems->clear();
}

void ImportPreviewPane::ShowPreview(const ImportPreview& preview) {
    Clear();
    shown_ = preview;
    if (!shown_.refusal.empty()) return ui_->lblProblems->setText(ToQt(shown_.refusal));
    QTreeWidgetItem* const top =
        MakeItem(ToQt(shown_.className), shown_.file.text, Icon("class"), kClassRow);
    const QIcon icon = Icon("procedure");
    QList<QTreeWidgetItem*> children;
    for (const CutProcedure& procedure : shown_.file.procedures) {
        const QString name = procedure.name.empty() ? tr("(no name: stays in the class's text)")
                                                    : ToQt(procedure.name);
        const auto row = static_cast<int>(children.size());
        children << MakeItem(name, Together(procedure.comment, procedure.code), icon, row);
    }
    top->addChildren(children);
    ui_->trVwPreview->addTopLevelItem(top);
    top->setExpanded(true);
    ui_->trVwPreview->setCurrentItem(top);
    QStringList lines(children.size() == 1 ? tr("1 procedure")
                                           : tr("%1 procedures").arg(children.size()));
    const std::vector<std::string>& problems = shown_.file.problems;
    for (std::size_t i = 0; i < std::min(problems.size(), kMostProblems); ++i)
        lines << ToQt(problems[i]);
    if (problems.size() > kMostProblems) lines << tr("and other problems");
    ui_->lblProblems->setText(lines.join('\n'));
}

void ImportPreviewPane::ShowMarkedText() {
    const QTreeWidgetItem* const item = ui_->trVwPreview->currentItem();
    if (item == nullptr) return ui_->txtPreview->clear();
    const int row = item->data(0, Qt::UserRole).toInt();
    std::string text = Together(shown_.file.comment, shown_.file.text);
    if (row != kClassRow) {
        const CutProcedure& procedure = shown_.file.procedures.at(static_cast<std::size_t>(row));
        text = Together(procedure.comment, procedure.code);
    }
    ui_->txtPreview->setPlainText(LinesToQt(CutToCharacters(text, kMostCharacters)));
}

}  // namespace snippetarium
