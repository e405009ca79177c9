#pragma once

#include <QIcon>
#include <QString>

namespace snippetarium {

/// One of the program's own icons, by the name of its file: "contents". They are drawn in middle
/// tones that stand out from light and from dark backgrounds.
QIcon Icon(const QString& name);

}  // namespace snippetarium
