#include "support/source_form.h"

#include <algorithm>

#include "support/error.h"

namespace snippetarium {

namespace {

[[noreturn]] void ThrowUnreadable(std::string_view field) {
    throw Error(error_number::kInvalidCall,
                "The stored form of a source file cannot be read at \"" + std::string(field) +
                    "\". Import the file again to store its form anew.");
}

/// One of two words, as true or false.
bool IsFirstWord(std::string_view value, std::string_view first, std::string_view second) {
    if (value != first && value != second) ThrowUnreadable(value);
    return value == first;
}

void SetField(SourceForm& form, std::string_view name, std::string_view value) {
    if (name == "encoding") {
        if (value.empty()) ThrowUnreadable(name);
        form.encoding = value;
    } else if (name == "mark") {
        form.hasByteOrderMark = IsFirstWord(value, "yes", "no");
    } else if (name == "ends") {
        form.lineEnds.most = IsFirstWord(value, "crlf", "lf") ? LineEnd::CrLf : LineEnd::Lf;
    } else if (name == "last") {
        form.lineEnds.lastLineEnds = IsFirstWord(value, "ended", "open");
    } else if (name == "others") {
        form.lineEnds.others = LineSet::Parse(value);
    } else {
        ThrowUnreadable(name);
    }
}

}  // namespace

std::string SourceForm::Serialise() const {
    std::string text = "encoding=" + encoding;
    text += hasByteOrderMark ? ";mark=yes" : ";mark=no";
    text += lineEnds.most == LineEnd::CrLf ? ";ends=crlf" : ";ends=lf";
    text += lineEnds.lastLineEnds ? ";last=ended" : ";last=open";
    if (!lineEnds.others.Empty()) text += ";others=" + lineEnds.others.ToText();
    return text;
}

SourceForm SourceForm::Parse(std::string_view text) {
    SourceForm form;
    while (!text.empty()) {
        const std::string_view field = text.substr(0, text.find(';'));
        text.remove_prefix(std::min(field.size() + 1, text.size()));
        const std::size_t equals = field.find('=');
        if (equals == std::string_view::npos) ThrowUnreadable(field);
        SetField(form, field.substr(0, equals), field.substr(equals + 1));
    }
    return form;
}

}  // namespace snippetarium
