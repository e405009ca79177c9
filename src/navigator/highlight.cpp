#include "navigator/highlight.h"

#include <algorithm>
#include <string>
#include <utility>

#include "navigator/highlight_engine.h"

namespace snippetarium {

namespace {

/// Longer texts stay plain: nobody reads them line by line, and a syntax tree takes fifty times
/// their size.
constexpr std::size_t kLongestText = 2'000'000;

/// The text with the ranges blanked out, but for their line breaks.
std::string WithoutRanges(std::string_view text, std::span<const TextRange> ranges) {
    std::string rest(text);
    for (const auto& [begin, end] : ranges) {
        for (std::size_t at = begin; at < std::min(end, rest.size()); ++at) {
            if (rest[at] != '\n' && rest[at] != '\r') rest[at] = ' ';
        }
    }
    return rest;
}

HighlightEngine EngineFor(std::string text, std::int32_t languageID) {
    switch (languageID) {
        case 1:
        case 8:
            return HighlightBasic(std::move(text));
        case 2:
            return HighlightByTree(std::move(text), HighlightGrammar::Java);
        case 3:
            return HighlightByTree(std::move(text), HighlightGrammar::CSharp);
        case 4:
        case 10:
        case 11:
            return HighlightByTree(std::move(text), HighlightGrammar::Cpp);
        case 5:
            return HighlightByTree(std::move(text), HighlightGrammar::C);
        case 6:
            return HighlightPage(std::move(text), PageKind::ServerPage);
        case 7:
            return HighlightByTree(std::move(text), HighlightGrammar::JavaScript);
        case 9:
            return HighlightPage(std::move(text), PageKind::Html);
        default:
            return nullptr;
    }
}

}  // namespace

Highlighter::Highlighter() = default;
Highlighter::Highlighter(Highlighter&&) noexcept = default;
Highlighter& Highlighter::operator=(Highlighter&&) noexcept = default;
Highlighter::~Highlighter() = default;

Highlighter::Highlighter(std::string_view text, std::int32_t languageID,
                         std::span<const TextRange> skipped) {
    if (text.size() <= kLongestText) engine_ = EngineFor(WithoutRanges(text, skipped), languageID);
}

bool Highlighter::Work(std::chrono::microseconds time) {
    return !engine_ || engine_->Work(time);
}

bool Highlighter::IsDone() const {
    return !engine_ || engine_->IsDone();
}

void Highlighter::Finish() {
    while (!Work(std::chrono::milliseconds{100})) {
    }
}

std::vector<HighlightSpan> Highlighter::Spans(const TextRange& range) const {
    return engine_ ? engine_->Spans(range) : std::vector<HighlightSpan>();
}

std::size_t Highlighter::KnownUpTo() const {
    return engine_ ? engine_->KnownUpTo() : static_cast<std::size_t>(-1);
}

}  // namespace snippetarium
