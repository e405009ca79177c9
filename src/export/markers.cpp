#include "export/markers.h"

#include <algorithm>
#include <unordered_map>

namespace snippetarium {

namespace {

// Finding markers. Only known names count, so the text is read from the left, and wherever the
// beginning of a marker stands, the longest name that fits there is taken and its marker passed
// over as a whole. What looks like a marker inside another one's name is thus never found:
//
//     /***Procedure Draw***/***/      of Draw and Draw***/, it is the marker of Draw***/
//
// Two names can only be mistaken for each other where one reads like the other's marker with the
// text that happens to follow it.

constexpr std::string_view kLineBreak = "\r\n";

class MarkerFinder {
  public:
    explicit MarkerFinder(const MarkedProcedures& procedures)
        : form_(FormOf(procedures.family)), numbers_(procedures.codeNames.size()) {
        for (const std::string& name : procedures.codeNames)
            Know(name);
    }

    /// Adds a name, which must outlive this; one that is known keeps its number, which is returned.
    std::size_t Know(std::string_view name) {
        longestName_ = std::max(longestName_, name.size());
        return numbers_.emplace(name, count_++).first->second;
    }

    std::vector<MarkerPlace> Find(std::string_view text) const {
        std::vector<MarkerPlace> places;
        for (std::size_t at = text.find(form_.beginning); at != std::string_view::npos;) {
            const MarkerPlace place = LongestAt(text, at);
            if (place.length > 0) places.push_back(place);
            at = text.find(form_.beginning, at + std::max(place.length, std::size_t{1}));
        }
        return places;
    }

  private:
    /// The longest marker that begins at the offset; its length is 0 when there is none.
    MarkerPlace LongestAt(std::string_view text, std::size_t offset) const {
        MarkerPlace longest;
        const std::size_t nameOffset = offset + form_.beginning.size();
        const std::string_view nameAndEnd =
            text.substr(nameOffset, longestName_ + form_.end.size());
        for (std::size_t size = nameAndEnd.find(form_.end); size != std::string_view::npos;
             size = nameAndEnd.find(form_.end, size + 1)) {
            const auto known = numbers_.find(nameAndEnd.substr(0, size));
            if (known == numbers_.end()) continue;
            std::size_t end = nameOffset + size + form_.end.size();
            if (end < text.size()) {
                if (!text.substr(end).starts_with(form_.lineBreak)) continue;
                end += form_.lineBreak.size();
            }
            longest = {offset + 1, end - offset, known->second};
        }
        return longest;
    }

    MarkerForm form_;
    std::unordered_map<std::string_view, std::size_t> numbers_;
    std::size_t count_ = 0;
    std::size_t longestName_ = 0;
};

/// Whether a marker is replaced together with its line break.
enum class LineBreak { Keep, Replace };

std::string ReplaceMarkers(std::string_view classText, const MarkedProcedures& procedures,
                           std::string_view codeName, std::string_view replacement,
                           LineBreak lineBreak) {
    MarkerFinder finder(procedures);
    const std::size_t number = finder.Know(codeName);
    const std::size_t bareLength = MarkerText(procedures.family, codeName).size();
    std::string replaced;
    std::size_t copied = 0;
    for (const MarkerPlace& place : finder.Find(classText)) {
        if (place.procedure != number) continue;
        const std::size_t offset = place.position - 1;
        replaced.append(classText, copied, offset - copied).append(replacement);
        copied = offset + (lineBreak == LineBreak::Keep ? bareLength : place.length);
    }
    return replaced.append(classText, copied);
}

}  // namespace

MarkerFamily MarkerFamilyOf(std::int32_t languageID) {
    switch (languageID) {
        case 2:
        case 4:
        case 5:
        case 7:
            return MarkerFamily::C;
        case 6:
        case 9:
            return MarkerFamily::Page;
        default:
            return MarkerFamily::VisualBasic;
    }
}

MarkerForm FormOf(MarkerFamily family) {
    switch (family) {
        case MarkerFamily::C:
            return {"/***Procedure ", "***/", ""};
        case MarkerFamily::Page:
            return {"<!--**Procedure ", "**-->", kLineBreak};
        case MarkerFamily::VisualBasic:
            break;
    }
    return {"'***Procedure ", "***", kLineBreak};
}

std::string MarkerText(MarkerFamily family, std::string_view codeName) {
    const MarkerForm form = FormOf(family);
    return std::string(form.beginning).append(codeName).append(form.end);
}

std::string MarkerLine(MarkerFamily family, std::string_view codeName) {
    return MarkerText(family, codeName).append(FormOf(family).lineBreak);
}

std::vector<MarkerPlace> FindMarkers(std::string_view classText,
                                     const MarkedProcedures& procedures) {
    return MarkerFinder(procedures).Find(classText);
}

bool HasMarker(std::string_view classText, const MarkedProcedures& procedures,
               std::string_view codeName) {
    MarkerFinder finder(procedures);
    const std::size_t number = finder.Know(codeName);
    return std::ranges::any_of(finder.Find(classText), [number](const MarkerPlace& place) {
        return place.procedure == number;
    });
}

std::string RemoveMarker(std::string_view classText, const MarkedProcedures& procedures,
                         std::string_view codeName) {
    return ReplaceMarkers(classText, procedures, codeName, "", LineBreak::Replace);
}

std::string RenameMarker(std::string_view classText, const MarkedProcedures& procedures,
                         std::string_view codeName, std::string_view newName) {
    return ReplaceMarkers(classText, procedures, codeName, MarkerText(procedures.family, newName),
                          LineBreak::Keep);
}

std::string AppendMarker(std::string_view classText, const MarkedProcedures& procedures,
                         std::string_view codeName) {
    std::string text(classText);
    if (HasMarker(classText, procedures, codeName)) return text;
    if (!text.empty() && !text.ends_with(kLineBreak)) text += kLineBreak;
    return text += MarkerLine(procedures.family, codeName);
}

}  // namespace snippetarium
