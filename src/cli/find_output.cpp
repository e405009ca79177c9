#include "cli/find_output.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>

#include "cli/command_context.h"
#include "cli/text_table.h"
#include "quick/quick_search.h"

namespace snippetarium {

namespace {

constexpr std::string_view kMark = "\x1b[1;31m";
constexpr std::string_view kUnmark = "\x1b[0m";

// In the order of their enumerations.
constexpr std::array<std::string_view, 9> kTiers = {"exactName", "namePrefix", "wordStart",
                                                    "namePart",  "keyword",    "comment",
                                                    "code",      "slip",       "filter"};
constexpr std::array<std::string_view, kQuickKinds> kKinds = {"application", "class", "procedure"};
constexpr std::array<std::string_view, kQuickTexts> kTexts = {"name", "keyword", "comment", "code"};

template <typename Names, typename Value>
std::string_view NameOf(const Names& names, Value value) {
    return names.at(static_cast<std::size_t>(value));
}

enum class Marking { None, Terminal };

/// The text for a terminal, its parts set off.
std::string Marked(std::string_view text, const std::vector<ByteRange>& parts, Marking marking) {
    std::string result;
    std::size_t from = 0;
    for (const ByteRange& part : parts) {
        result += OneLine(text.substr(from, part.begin - from));
        const std::string marked = OneLine(text.substr(part.begin, part.size));
        if (marking == Marking::Terminal) {
            result.append(kMark).append(marked).append(kUnmark);
        } else {
            result += marked;
        }
        from = part.End();
    }
    return result + OneLine(text.substr(from));
}

std::string Place(const QuickHit& hit) {
    switch (hit.kind) {
        case QuickKind::Application:
            return "application";
        case QuickKind::Class:
            return "class in " + OneLine(hit.appName);
        case QuickKind::Procedure:
            break;
    }
    return "in " + OneLine(hit.className) + ", " + OneLine(hit.appName);
}

/// "12: ", "comment 2: ".
std::string LinePlace(const QuickHit& hit) {
    const std::string number = std::to_string(hit.line.number) + ": ";
    if (hit.lineOf == QuickText::Code) return number;
    if (hit.lineOf == QuickText::Keyword) return "keywords: ";
    return std::string(NameOf(kTexts, hit.lineOf)) + " " + number;
}

/// Without the white space before it.
MatchingLine Unindented(const MatchingLine& line) {
    MatchingLine result = line;
    const std::size_t start = std::min(line.text.find_first_not_of(" \t"), line.text.size());
    const bool isMatched = !line.matches.empty() && line.matches.front().begin < start;
    if (start == 0 || isMatched) return result;
    result.text.erase(0, start);
    for (ByteRange& match : result.matches)
        match.begin -= start;
    return result;
}

void PrintHit(std::ostream& output, const QuickHit& hit, std::size_t keyWidth, Marking marking) {
    const std::string indent(keyWidth + 2, ' ');
    output << hit.key << indent.substr(hit.key.size())
           << Marked(hit.Name(), hit.nameMatches, marking) << "  " << Place(hit);
    if (hit.tier == QuickTier::Slip) output << ", one letter off";
    output << '\n';
    if (hit.line.number == 0) return;
    const MatchingLine line = Unindented(hit.line);
    output << indent << LinePlace(hit) << Marked(line.text, line.matches, marking) << '\n';
}

std::string Summary(const QuickSearch& search) {
    const std::size_t shown = search.Hits().size();
    const auto total = search.Total();
    if (total && *total == 0) return "Nothing was found.";
    if (total && *total <= shown) return std::to_string(*total) + " found.";
    const std::string first = "The first " + std::to_string(shown) + " of ";
    if (total) return first + std::to_string(*total) + ". --limit shows more.";
    return first + "more than " + std::to_string(search.FoundCount()) + ". --limit shows more.";
}

Json RangesDocument(const std::vector<ByteRange>& ranges) {
    Json list = Json::array();
    for (const ByteRange& range : ranges)
        list.push_back({{"place", range.begin + 1}, {"size", range.size}});
    return list;
}

Json HitDocument(const QuickHit& hit) {
    Json document = {{"key", hit.key},
                     {"kind", NameOf(kKinds, hit.kind)},
                     {"tier", NameOf(kTiers, hit.tier)},
                     {"application", hit.appName}};
    if (hit.kind != QuickKind::Application) document["class"] = hit.className;
    if (hit.kind == QuickKind::Procedure) document["procedure"] = hit.procedureName;
    document["nameMatches"] = RangesDocument(hit.nameMatches);
    if (hit.line.number == 0) return document;
    document["line"] = {{"of", NameOf(kTexts, hit.lineOf)},
                        {"number", hit.line.number},
                        {"place", hit.line.place},
                        {"text", hit.line.text},
                        {"matches", RangesDocument(hit.line.matches)}};
    return document;
}

}  // namespace

void PrintHits(CommandContext& context, const QuickSearch& search) {
    const Marking marking =
        context.GetStreams().terminals.output ? Marking::Terminal : Marking::None;
    std::size_t keyWidth = 0;
    for (const QuickHit& hit : search.Hits())
        keyWidth = std::max(keyWidth, hit.key.size());
    for (const QuickHit& hit : search.Hits())
        PrintHit(context.Output(), hit, keyWidth, marking);
    context.Output() << Summary(search) << '\n';
}

Json HitsDocument(const QuickSearch& search) {
    Json document = {{"hits", Json::array()}, {"total", nullptr}};
    for (const QuickHit& hit : search.Hits())
        document["hits"].push_back(HitDocument(hit));
    if (const auto total = search.Total()) document["total"] = *total;
    return document;
}

}  // namespace snippetarium
