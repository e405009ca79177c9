#include "export/marker_expansion.h"

#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

#include "support/error.h"

namespace snippetarium {

namespace {

// Replacing one procedure after the other reads the whole text once for each of them, and the text
// grows on the way: thousands of procedures of some size take minutes. One pass from left to right
// is enough as long as it comes to the same. Two things can make a difference: a marker that comes
// to stand in the text only by an insertion, and a place where two markers overlap or two names
// fit.
//
// Both are ruled out by one word that is in every marker, once, and cannot reach over a marker's
// edges, since it has neither the marker's first character nor its last: "**Procedure ". If no name
// contains it or the end of a marker, at any place at most one name fits, whatever follows. And if
// the finished text holds the word only where the class's text has a marker of nobody, unharmed,
// then no stage on the way to it held another marker than those found in the class's text: pieces
// that stand side by side at some stage, without a marker between them, do so in the end.
//
// Otherwise the text is made by the letter of the rule.

constexpr std::string_view kMarkerWord = "**Procedure ";

/// More than any real class: only markers inside of procedures, one level multiplying the next, can
/// lead to it.
constexpr std::size_t kLongestText = std::size_t{256} << 20U;

void CheckLength(const std::string& text) {
    if (text.size() <= kLongestText) return;
    throw Error(error_number::kOutOfMemory,
                "The text grows beyond 256 MB when the procedures are put into it, because "
                "they contain each other's markers. Rename one of them.");
}

/// The procedures, and which of them have been put into the text.
class PlacedProcedures {
  public:
    explicit PlacedProcedures(std::span<const ProcedureText> procedures)
        : procedures_(procedures), isPlaced_(procedures.size()) {}

    const ProcedureText& Place(std::size_t index) {
        isPlaced_[index] = true;
        return procedures_[index];
    }
    std::vector<std::string> NamesOfOthers() const {
        std::vector<std::string> names;
        for (std::size_t i = 0; i < procedures_.size(); ++i) {
            if (!isPlaced_[i]) names.push_back(procedures_[i].codeName);
        }
        return names;
    }

  private:
    std::span<const ProcedureText> procedures_;
    std::vector<bool> isPlaced_;
};

/// The expansion in one pass. Each step returns false where it may differ from the rule.
class OnePass {
  public:
    OnePass(MarkerFamily family, std::string_view classText,
            std::span<const ProcedureText> procedures)
        : family_(family),
          form_(FormOf(family)),
          end_(std::string(form_.end).append(form_.lineBreak)),
          classText_(classText),
          procedures_(procedures),
          placed_(procedures) {}

    bool ReadNames() {
        for (std::size_t i = 0; i < procedures_.size(); ++i) {
            const std::string_view name = procedures_[i].codeName;
            if (name.find(kMarkerWord) != name.npos || name.find(end_) != name.npos) return false;
            byName_.emplace(name, i);  // of equal names, the first one's turn comes first
        }
        return true;
    }

    bool Expand() {
        std::size_t copied = 0;
        for (std::size_t at = classText_.find(form_.beginning); at != classText_.npos;) {
            const std::size_t nameOffset = at + form_.beginning.size();
            const std::size_t nameEnd = classText_.find(end_, nameOffset);
            if (nameEnd == classText_.npos) return false;
            const std::size_t markerEnd = nameEnd + end_.size();
            const auto name = classText_.substr(nameOffset, nameEnd - nameOffset);
            const auto found = byName_.find(name);
            if (found == byName_.end()) {
                if (name.find(kMarkerWord) != name.npos) return false;
                nobodys_.push_back(classText_.substr(at, markerEnd - at));
                at = classText_.find(form_.beginning, nameEnd);
                continue;
            }
            expanded_.append(classText_, copied, at - copied);
            expanded_ += InsertedText(family_, placed_.Place(found->second));
            CheckLength(expanded_);
            copied = markerEnd;
            at = classText_.find(form_.beginning, copied);
        }
        expanded_.append(classText_, copied);
        return true;
    }

    /// True when the markers of nobody, and no others, stand in the finished text.
    bool Check() const {
        const std::size_t wordOffset = form_.beginning.size() - kMarkerWord.size();
        std::size_t at = expanded_.find(kMarkerWord);
        for (const std::string_view marker : nobodys_) {
            if (at == expanded_.npos || at < wordOffset) return false;
            if (expanded_.compare(at - wordOffset, marker.size(), marker) != 0) return false;
            at = expanded_.find(kMarkerWord, at + 1);
        }
        return at == expanded_.npos;
    }

    ExpandedText Take() { return {std::move(expanded_), placed_.NamesOfOthers()}; }

  private:
    MarkerFamily family_;
    MarkerForm form_;
    std::string end_;
    std::string_view classText_;
    std::span<const ProcedureText> procedures_;
    PlacedProcedures placed_;
    std::unordered_map<std::string_view, std::size_t> byName_;
    std::vector<std::string_view> nobodys_;
    std::string expanded_;
};

ExpandedText ExpandByTheRule(MarkerFamily family, std::string_view classText,
                             std::span<const ProcedureText> procedures) {
    std::string text(classText);
    PlacedProcedures placed(procedures);
    for (std::size_t i = 0; i < procedures.size(); ++i) {
        const std::string marker = MarkerLine(family, procedures[i].codeName);
        std::size_t at = text.find(marker);
        if (at == text.npos) continue;
        const std::string inserted = InsertedText(family, placed.Place(i));
        std::string replaced;
        std::size_t copied = 0;
        for (; at != text.npos; at = text.find(marker, copied)) {
            replaced.append(text, copied, at - copied).append(inserted);
            copied = at + marker.size();
            CheckLength(replaced);
        }
        text = replaced.append(text, copied);
    }
    return {std::move(text), placed.NamesOfOthers()};
}

}  // namespace

std::string InsertedText(MarkerFamily family, const ProcedureText& procedure) {
    const std::string_view lineBreak = FormOf(family).lineBreak;
    std::string text;
    if (procedure.comment) text.append(*procedure.comment).append(lineBreak);
    return text.append(procedure.code).append(lineBreak);
}

ExpandedText ExpandMarkers(MarkerFamily family, std::string_view classText,
                           std::span<const ProcedureText> procedures) {
    OnePass pass(family, classText, procedures);
    if (pass.ReadNames() && pass.Expand() && pass.Check()) return pass.Take();
    return ExpandByTheRule(family, classText, procedures);
}

}  // namespace snippetarium
