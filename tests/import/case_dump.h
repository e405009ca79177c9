#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "support/encoding.h"
#include "support/utf8.h"
#include "tests/import/class_in_memory.h"

namespace snippetarium::test {

// What a file became, as a text that people can read and compare:
//
//     class modSort
//     text
//     |Option Explicit
//     |'***Procedure Sort(a())***
//     |
//     |
//     procedure Sort(a())
//     comment
//     |'Sorts.
//     code
//     |Sub Sort(a())
//     |End Sub
//     |
//     problem Something is wrong.
//
// Each line of a text stands behind "|", and so does what follows its last line break; a text that
// is empty is left out. Control characters and bytes that are no characters show as "<0D>".

inline std::string Visible(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string visible;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t character = DecodeUtf8(text, at);
        const bool isStandIn = character >= kFirstStandIn && character <= kLastStandIn;
        if (isStandIn || character < 0x20) {
            const std::size_t byte = (isStandIn ? character - kFirstStandIn : character) & 0xFFU;
            visible.append("<").append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
            visible += ">";
        } else {
            visible += text.substr(begin, at - begin);
        }
    }
    return visible;
}

inline std::string DumpOfText(std::string_view title, std::string_view text) {
    if (text.empty()) return {};
    std::string dump = std::string(title) + "\n|";
    for (std::size_t end = text.find("\r\n"); end != std::string_view::npos;
         end = text.find("\r\n")) {
        dump += Visible(text.substr(0, end)) + "\n|";
        text.remove_prefix(end + 2);
    }
    return dump + Visible(text) + "\n";
}

inline std::string DumpOf(const CutFile& cut, MarkerFamily family) {
    const ClassInMemory stored = Store(cut, family);
    std::string dump = "class " + Visible(stored.name) + "\n";
    dump += DumpOfText("header", stored.comment) + DumpOfText("text", stored.text);
    for (const ProcedureInMemory& procedure : stored.procedures) {
        dump += "procedure " + Visible(procedure.name) + "\n";
        dump += DumpOfText("comment", procedure.comment) + DumpOfText("code", procedure.code);
    }
    for (const CutProcedure& procedure : cut.procedures) {
        if (procedure.name.empty()) dump += "procedure without a name\n";
    }
    for (const std::string& problem : cut.problems)
        dump += "problem " + problem + "\n";
    return dump;
}

}  // namespace snippetarium::test
