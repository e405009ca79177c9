#pragma once

#include <QTextCharFormat>

#include "navigator/highlight.h"

namespace snippetarium {

/// How a part of a source text looks on the background at hand, light or dark.
QTextCharFormat HighlightFormat(HighlightKind kind);

}  // namespace snippetarium
