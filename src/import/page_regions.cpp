#include "import/page_regions.h"

#include <algorithm>

#include "import/source_words.h"
#include "support/ascii_search.h"

namespace snippetarium {

namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

std::string_view SkipBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

/// A <% %> block: `inside` is what stands between the percent signs.
struct ServerBlock {
    enum class Kind : std::uint8_t { Code, Output, Directive };

    TextRange whole = {};
    TextRange inside = {};
    Kind kind = Kind::Code;
};

std::vector<ServerBlock> FindServerBlocks(std::string_view text) {
    std::vector<ServerBlock> blocks;
    std::size_t at = text.find("<%");
    while (at != kNowhere) {
        const std::size_t close = std::min(text.find("%>", at + 2), text.size());
        ServerBlock block{{at, std::min(close + 2, text.size())}, {at + 2, close}};
        const std::string_view inside = text.substr(at + 2, close - at - 2);
        if (inside.starts_with('@')) {
            block.kind = ServerBlock::Kind::Directive;
        } else if (SkipBlanks(inside).starts_with('=')) {
            block.kind = ServerBlock::Kind::Output;
        }
        blocks.push_back(block);
        at = text.find("<%", block.whole.end);
    }
    return blocks;
}

/// The value of an attribute in a tag; empty where it has none of that name.
std::string_view AttributeOf(std::string_view tag, std::string_view name) {
    for (std::size_t at = 1; at + name.size() <= tag.size(); ++at) {
        const char before = tag[at - 1];
        const bool isWordStart =
            IsBlank(before) || before == '"' || before == '\'' || before == '@';
        if (!isWordStart || !StartsWithIgnoringAsciiCase(tag.substr(at), name)) continue;
        std::string_view rest = SkipBlanks(tag.substr(at + name.size()));
        if (!rest.starts_with('=')) continue;
        rest = SkipBlanks(rest.substr(1));
        if (rest.starts_with('"') || rest.starts_with('\'')) {
            return rest.substr(1, rest.find(rest.front(), 1) - 1);
        }
        return rest.substr(0, rest.find_first_of(" \t\r\n>%"));
    }
    return {};
}

bool Contains(std::string_view text, std::string_view word) {
    return FindIgnoringAsciiCase(text, word) != kNowhere;
}

bool IsSame(std::string_view text, std::string_view word) {
    return text.size() == word.size() && StartsWithIgnoringAsciiCase(text, word);
}

bool NamesVbScript(std::string_view name) {
    return Contains(name, "vbs") || IsSame(name, "vb");
}

ScriptLanguage LanguageNamed(std::string_view name) {
    return NamesVbScript(name) ? ScriptLanguage::VbScript : ScriptLanguage::JavaScript;
}

ScriptLanguage LanguageOfServer(std::string_view text, const std::vector<ServerBlock>& blocks) {
    for (const ServerBlock& block : blocks) {
        if (block.kind != ServerBlock::Kind::Directive) continue;
        const std::string_view name = AttributeOf(
            text.substr(block.inside.begin, block.inside.end - block.inside.begin), "language");
        if (!name.empty()) return LanguageNamed(name);
    }
    return ScriptLanguage::VbScript;
}

/// Reads the tags of a page in which the server's blocks are blanked out.
class ScriptElementScanner {
  public:
    ScriptElementScanner(std::string_view html, ScriptLanguage server)
        : html_(html), server_(server) {}

    std::vector<PageRegion> Run() {
        std::size_t at = html_.find('<');
        while (at != kNowhere)
            at = html_.find('<', AtTag(at));
        return std::move(regions_);
    }

  private:
    static constexpr std::string_view kScript = "<script";

    /// Returns where to go on.
    std::size_t AtTag(std::size_t at) {
        const std::string_view rest = html_.substr(at);
        if (rest.starts_with("<!--")) {
            const std::size_t end = html_.find("-->", at + 4);
            return end == kNowhere ? html_.size() : end + 3;
        }
        const bool isScript = StartsWithIgnoringAsciiCase(rest, kScript) &&
                              rest.size() > kScript.size() &&
                              (IsBlank(rest[kScript.size()]) || rest[kScript.size()] == '>');
        return isScript ? AtScript(at) : at + 1;
    }

    std::size_t AtScript(std::size_t at) {
        const std::size_t tagEnd = EndOfTag(at);
        if (tagEnd == kNowhere) return html_.size();
        const std::string_view rest = html_.substr(tagEnd + 1);
        const std::size_t length = std::min(FindIgnoringAsciiCase(rest, "</script"), rest.size());
        AddElement(html_.substr(at, tagEnd - at), {tagEnd + 1, tagEnd + 1 + length});
        return tagEnd + 1 + length;
    }

    /// The ">" of a tag, which does not count inside quotes.
    std::size_t EndOfTag(std::size_t at) const {
        char quote = '\0';
        for (; at < html_.size(); ++at) {
            const char character = html_[at];
            if (quote != '\0') {
                if (character == quote) quote = '\0';
            } else if (character == '"' || character == '\'') {
                quote = character;
            } else if (character == '>') {
                return at;
            }
        }
        return kNowhere;
    }

    void AddElement(std::string_view tag, const TextRange& range) {
        const std::string_view language = AttributeOf(tag, "language");
        const std::string_view type = AttributeOf(tag, "type");
        const std::string_view name = language.empty() ? type : language;
        if (IsSame(AttributeOf(tag, "runat"), "server")) {
            regions_.push_back(
                {range, name.empty() ? server_ : LanguageNamed(name), ScriptSide::Server});
            return;
        }
        const bool isKnown =
            name.empty() || NamesVbScript(name) || IsSame(name, "module") || NamesJavaScript(name);
        if (isKnown) regions_.push_back({range, LanguageNamed(name), ScriptSide::Browser});
    }

    /// "JavaScript1.2", "text/ecmascript", "JScript".
    static bool NamesJavaScript(std::string_view name) {
        return Contains(name, "jscript") || Contains(name, "javascript") ||
               Contains(name, "ecmascript");
    }

    std::string_view html_;
    ScriptLanguage server_;
    std::vector<PageRegion> regions_;
};

bool IsLineBreak(char character) {
    return character == '\r' || character == '\n';
}

std::string Blanked(std::string_view text, const std::vector<ServerBlock>& blocks) {
    std::string result(text);
    for (const ServerBlock& block : blocks) {
        const char filler = block.kind == ServerBlock::Kind::Output ? 'x' : ' ';
        for (std::size_t i = block.whole.begin; i < block.whole.end; ++i) {
            if (!IsLineBreak(result[i])) result[i] = filler;
        }
    }
    return result;
}

}  // namespace

std::vector<PageRegion> FindPageRegions(std::string_view text, PageKind kind) {
    if (kind == PageKind::Html) return ScriptElementScanner(text, ScriptLanguage::VbScript).Run();
    const std::vector<ServerBlock> blocks = FindServerBlocks(text);
    const ScriptLanguage server = LanguageOfServer(text, blocks);
    const std::string html = Blanked(text, blocks);
    std::vector<PageRegion> regions = ScriptElementScanner(html, server).Run();
    for (const ServerBlock& block : blocks) {
        if (block.kind == ServerBlock::Kind::Code) {
            regions.push_back({block.inside, server, ScriptSide::Server});
        }
    }
    std::ranges::stable_sort(regions, {},
                             [](const PageRegion& region) { return region.range.begin; });
    return regions;
}

std::string OnlyRanges(std::string_view text, const std::vector<TextRange>& ranges) {
    std::string result(text);
    std::size_t kept = 0;
    const auto blank = [&result](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            if (!IsLineBreak(result[i])) result[i] = ' ';
        }
    };
    for (const TextRange& range : ranges) {
        blank(kept, std::max(range.begin, kept));
        kept = std::max(range.end, kept);
    }
    blank(kept, result.size());
    return result;
}

std::string WithoutServerBlocks(std::string_view text) {
    return Blanked(text, FindServerBlocks(text));
}

}  // namespace snippetarium
