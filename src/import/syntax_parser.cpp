#include "import/syntax_parser.h"

#include <tree_sitter/api.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>
#include <vector>

#include "import/memory_in_use.h"
#include "import/unfinished_text.h"

extern "C" {
const TSLanguage* tree_sitter_java(void);
const TSLanguage* tree_sitter_c_sharp(void);
const TSLanguage* tree_sitter_javascript(void);
}

namespace snippetarium {

// A parser of this kind reads every text to its end, but a hostile one can make it try so many
// readings at once that it takes minutes and gigabytes. So it works in short turns, and between two
// of them it is looked at how far it has come, what it has taken, and whether the user still wants
// the result. A turn ends between tokens only, so what makes a single token expensive is looked at
// before: behind n open "<" the library takes n * n steps and bytes; and when a text ends with more
// than 65,535 parts of unfinished constructs on its stack, it spoils its memory.

namespace {

constexpr std::chrono::milliseconds kTurn{20};
constexpr std::chrono::seconds kLongestParse{10};
constexpr std::size_t kMostMemory = 120 * 1024 * 1024;
constexpr std::size_t kBytesRead = 4096;

const TSLanguage* LanguageOf(Grammar grammar) {
    switch (grammar) {
        case Grammar::Java:
            return tree_sitter_java();
        case Grammar::CSharp:
            return tree_sitter_c_sharp();
        case Grammar::JavaScript:
            return tree_sitter_javascript();
    }
    return nullptr;
}

/// The text as the parser asks for it.
struct Reading {
    std::string_view text;
    std::size_t reached = 0;
};

const char* Read(void* payload, std::uint32_t offset, TSPoint, std::uint32_t* length) {
    Reading& reading = *static_cast<Reading*>(payload);
    const std::size_t begin = std::min<std::size_t>(offset, reading.text.size());
    const std::size_t end = std::min(begin + kBytesRead, reading.text.size());
    reading.reached = std::max(reading.reached, end);
    *length = static_cast<std::uint32_t>(end - begin);
    return reading.text.data() + begin;
}

/// Finds the lines and columns of ascending offsets.
class PointFinder {
  public:
    explicit PointFinder(std::string_view text) : text_(text), nextBreak_(text.find('\n')) {}

    TSPoint At(std::size_t offset) {
        while (nextBreak_ < offset) {
            lineBegin_ = nextBreak_ + 1;
            nextBreak_ = text_.find('\n', lineBegin_);
            ++line_;
        }
        return {line_, static_cast<std::uint32_t>(offset - lineBegin_)};
    }

  private:
    std::string_view text_;
    std::size_t nextBreak_;  // a file may be one long line, which is searched once
    std::size_t lineBegin_ = 0;
    std::uint32_t line_ = 0;
};

/// What the parser is to see.
std::vector<TSRange> RangesWithout(std::string_view text, std::span<const TextRange> skipped) {
    std::vector<TSRange> ranges;
    PointFinder points(text);
    TSRange range = {};
    const auto add = [&](std::size_t end) {
        range.end_byte = static_cast<std::uint32_t>(end);
        range.end_point = points.At(end);
        ranges.push_back(range);
    };
    for (const TextRange& gap : skipped) {
        add(gap.begin);
        range.start_byte = static_cast<std::uint32_t>(gap.end);
        range.start_point = points.At(gap.end);
    }
    add(text.size());
    return ranges;
}

class BoundedParser {
  public:
    BoundedParser(std::string_view text, Grammar grammar, LineProgress& progress,
                  std::span<const TextRange> skipped)
        : reading_{text}, progress_(progress) {
        ts_parser_set_language(parser_.get(), LanguageOf(grammar));
        ts_parser_set_timeout_micros(parser_.get(), std::chrono::microseconds(kTurn).count());
        if (skipped.empty()) return;
        const std::vector<TSRange> seen = RangesWithout(text, skipped);
        ts_parser_set_included_ranges(parser_.get(), seen.data(),
                                      static_cast<std::uint32_t>(seen.size()));
    }

    ParseResult Run() {
        const auto deadline = std::chrono::steady_clock::now() + kLongestParse;
        // Small files take one turn, and looking at the memory takes longer than they do.
        std::optional<std::size_t> memoryAfterFirstTurn;
        while (true) {
            const TSInput input{&reading_, Read, TSInputEncodingUTF8};
            if (TSTree* tree = ts_parser_parse(parser_.get(), nullptr, input)) {
                ReportLines();
                return {ParseEnd::Done, SyntaxTree(tree)};
            }
            ReportLines();
            if (progress_.IsCancelled()) return {ParseEnd::Cancelled};
            const std::size_t memory = MemoryInUse();
            if (!memoryAfterFirstTurn) memoryAfterFirstTurn = memory;
            if (std::chrono::steady_clock::now() > deadline ||
                memory > *memoryAfterFirstTurn + kMostMemory) {
                return TooTangled();
            }
        }
    }

    /// The lines that nobody reads count too.
    ParseResult TooTangled() {
        reading_.reached = reading_.text.size();
        ReportLines();
        return {progress_.IsCancelled() ? ParseEnd::Cancelled : ParseEnd::TooTangled};
    }

  private:
    struct Deleter {
        void operator()(TSParser* parser) const { ts_parser_delete(parser); }
    };

    void ReportLines() {
        const std::string_view text = reading_.text;
        while (!progress_.IsCancelled()) {
            const std::size_t end = text.find('\n', reported_);
            if (end >= reading_.reached) return;
            reported_ = end + 1;
            progress_.LineRead();
        }
    }

    std::unique_ptr<TSParser, Deleter> parser_{ts_parser_new()};
    Reading reading_;
    LineProgress& progress_;
    std::size_t reported_ = 0;
};

}  // namespace

ParseResult ParseSyntax(std::string_view text, Grammar grammar, LineProgress& progress,
                        std::span<const TextRange> skipped) {
    BoundedParser parser(text, grammar, progress, skipped);
    const bool isTooLong = text.size() > std::numeric_limits<std::uint32_t>::max();
    return isTooLong || IsTooUnfinished(text, skipped) ? parser.TooTangled() : parser.Run();
}

}  // namespace snippetarium
