#include "forms/fFind.h"

#include <QEvent>
#include <QPlainTextEdit>
#include <utility>

#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/page_marks.h"
#include "forms/qt_text.h"
#include "navigator/help.h"
#include "navigator/utf16_map.h"
#include "store/database.h"
#include "ui_fFind.h"

namespace snippetarium {

namespace {

TextRange InUnits(const Utf16Map& places, const TextRange& range) {
    return {places.ToUtf16(range.begin), places.ToUtf16(range.end)};
}

/// How much of a match before its end must be seen.
constexpr int kSeenOfMatch = 100;

}  // namespace

fFind::fFind(Database& db, QWidget* parent)
    : QDialog(parent), db_(db), ui_(std::make_unique<Ui::fFind>()) {
    ui_->setupUi(this);
    connect(ui_->txtFind, &QLineEdit::textChanged, this, [this](const QString& text) {
        ui_->cmdFindNext->setEnabled(!text.isEmpty());
        ui_->lblNotice->clear();
    });
    connect(ui_->cmdFindNext, &QPushButton::clicked, this, &fFind::SelectNext);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    new HelpKey(this, [this] { OpenHelp(db_, AnchorOf("fFind")); });
}

fFind::~fFind() = default;

void fFind::FindIn(QPlainTextEdit& text) {
    if (text_ != &text) {
        LetGo();
        text_ = &text;
        text.window()->installEventFilter(this);
        // Above the window that it searches, also when that comes to the front.
        if (text.window() != parentWidget()) setParent(text.window(), windowFlags());
    }
    ui_->lblNotice->clear();
    show();
    raise();
    activateWindow();
    ui_->txtFind->setFocus();
    ui_->txtFind->selectAll();
}

void fFind::LetGo() {
    if (text_.isNull()) return;
    if (std::exchange(hasMarks_, false)) MarkRanges(*text_, {}, 0);
    text_->window()->removeEventFilter(this);
    text_.clear();
}

void fFind::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    LetGo();
}

bool fFind::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && !text_.isNull() && watched == text_->window()) close();
    return QDialog::eventFilter(watched, event);
}

FindRequest fFind::Request() const {
    return {.text = FromQt(ui_->txtFind->text()),
            .matchCase = ui_->chckCase->isChecked(),
            .wholeWord = ui_->chckWord->isChecked()};
}

void fFind::SelectNext() {
    if (text_.isNull()) return;
    Handle(db_.Reporter(), Procedure::FindEvent, [this] {
        const std::string page = TextOf(*text_);
        const Utf16Map places(page);
        const FindRequest request = Request();
        QTextCursor cursor = text_->textCursor();
        const auto behind = static_cast<std::size_t>(cursor.selectionEnd());
        const auto found = FindNext(page, request, places.ToByte(behind));
        std::vector<TextRange> matches = FindAll(page, request);
        for (TextRange& match : matches)
            match = InUnits(places, match);
        const TextRange selected = found ? InUnits(places, found->range) : TextRange{};
        MarkRanges(*text_, matches, selected.begin);
        hasMarks_ = true;
        ui_->lblNotice->clear();
        if (!found) return TellNotFound(db_);
        cursor.setPosition(static_cast<int>(selected.begin));
        cursor.setPosition(static_cast<int>(selected.end), QTextCursor::KeepAnchor);
        text_->setTextCursor(cursor);
        MakeWayFor(*text_);
        ShowNotice(*found, matches.size());
    });
}

/// What was found must not lie behind this window.
void fFind::MakeWayFor(const QPlainTextEdit& text) {
    const QWidget& view = *text.viewport();
    const QRect match = text.cursorRect().translated(view.mapToGlobal(QPoint(0, 0)));
    const QRect own = frameGeometry();
    if (!own.adjusted(0, 0, kSeenOfMatch, 0).intersects(match)) return;
    const QRect around(view.mapToGlobal(QPoint(0, 0)), view.size());
    const bool isInUpperHalf = match.center().y() < around.center().y();
    move(own.left(), isInUpperHalf ? around.bottom() - own.height() : around.top());
}

void fFind::ShowNotice(const FoundText& found, std::size_t matches) {
    const QString count = matches == 1 ? tr("1 match") : tr("%L1 matches").arg(matches);
    ui_->lblNotice->setText(
        found.hasWrapped ? tr("Went on at the beginning of the text; %1.").arg(count) : count);
}

}  // namespace snippetarium
