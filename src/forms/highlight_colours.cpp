#include "forms/highlight_colours.h"

#include <QColor>

#include "forms/theme.h"

namespace snippetarium {

namespace {

struct Colouring {
    HighlightKind kind;
    QRgb onLight;
    QRgb onDark;
};

/// Kinds that are missing look like plain text. Each colour has a contrast of at least 4.5 to 1 to
/// its background.
// clang-format off
constexpr Colouring kColours[] = {
    {HighlightKind::Keyword,      0xff1f4fb5, 0xff82aaff},
    {HighlightKind::Type,         0xff0b6e74, 0xff6fcfd4},
    {HighlightKind::String,       0xff9a3412, 0xffe8a87c},
    {HighlightKind::Escape,       0xff7c2d12, 0xfff3c79f},
    {HighlightKind::Comment,      0xff4d7037, 0xff93b57c},
    {HighlightKind::Number,       0xff8a3a9c, 0xffd6a2e8},
    {HighlightKind::Preprocessor, 0xff7a5200, 0xffd9b65c},
    {HighlightKind::Function,     0xff5b3f9e, 0xffc3b1f5},
    {HighlightKind::Constant,     0xff8a3a9c, 0xffd6a2e8},
    {HighlightKind::Variable,     0xff1f4fb5, 0xff82aaff},
    {HighlightKind::Label,        0xff7a5200, 0xffd9b65c},
    {HighlightKind::Tag,          0xff1f4fb5, 0xff82aaff},
    {HighlightKind::Attribute,    0xff0b6e74, 0xff6fcfd4},
    {HighlightKind::ScriptMark,   0xffa11d4a, 0xfff08fb0},
};
// clang-format on

}  // namespace

QTextCharFormat HighlightFormat(HighlightKind kind) {
    QTextCharFormat format;
    for (const Colouring& row : kColours) {
        if (row.kind == kind) format.setForeground(QColor(IsDark() ? row.onDark : row.onLight));
    }
    return format;
}

}  // namespace snippetarium
