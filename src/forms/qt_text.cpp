#include "forms/qt_text.h"

#include <QByteArray>
#include <QPlainTextEdit>

#include "navigator/shown_path.h"
#include "support/paths.h"

namespace snippetarium {

QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString LinesToQt(std::string_view text) {
    return ToQt(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string FromQt(const QString& text) {
    return text.toStdString();
}

std::string LinesFromQt(const QString& text) {
    QString lines = text;
    // A pasted text may have brought line ends of its own.
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lines.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return lines.toStdString();
}

QString PathToQt(std::string_view path) {
    return ToQt(ShownPath(path));
}

void TakePath(const QString& shown, std::string& path) {
    if (shown != PathToQt(path)) path = ToCataloguePath(FromQt(shown));
}

std::string TextOf(const QPlainTextEdit& control) {
    QString text = control.document()->toRawText();
    text.replace(QChar::ParagraphSeparator, '\n');
    return FromQt(text);
}

}  // namespace snippetarium
