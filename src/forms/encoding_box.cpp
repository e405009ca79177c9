#include "forms/encoding_box.h"

#include <QComboBox>
#include <array>

#include "forms/qt_text.h"
#include "support/encoding.h"
#include "support/text_file.h"

namespace snippetarium {

namespace {

/// The encodings in which sources have been written most; the terminal program takes all others.
// clang-format off
constexpr std::array<std::string_view, 18> kEncodings{
    kDefaultEncoding, "windows-1250", "windows-1251", "windows-1253", "windows-1254",
    "windows-1255", "windows-1256", "windows-1257", "windows-1258", "iso-8859-1",
    "iso-8859-2", "iso-8859-15", "koi8-r", "shift_jis", "euc-jp", "gb18030", "big5", "euc-kr",
};
// clang-format on

}  // namespace

void FillEncodingBox(QComboBox* box, std::string_view selected) {
    for (const std::string_view name : kEncodings)
        box->addItem(ToQt(name));
    const bool isKnown = !selected.empty() && IsKnownEncoding(selected);
    if (isKnown && box->findText(ToQt(selected)) < 0) box->addItem(ToQt(selected));
    box->setCurrentText(ToQt(isKnown ? selected : kDefaultEncoding));
}

}  // namespace snippetarium
