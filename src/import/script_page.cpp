#include "import/script_page.h"

#include <algorithm>
#include <iterator>

#include "import/basic_scan.h"
#include "import/source_units.h"
#include "import/tree_sitter_cutter.h"
#include "support/ascii_search.h"

namespace snippetarium {

namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kVbScript = "VBScript";
constexpr std::string_view kJavaScript = "JavaScript";

/// The units and comments of all scripts of a page, by their places in it.
class PageAnalysis {
  public:
    PageAnalysis(std::string_view text, LineProgress& progress)
        : text_(text), progress_(progress) {}

    /// The server's scripts are one program in each language, and so is VBScript in a browser.
    void AddProgram(const std::vector<PageRegion>& regions, ScriptLanguage language,
                    ScriptSide side) {
        std::vector<TextRange> ranges;
        for (const PageRegion& region : regions) {
            if (region.language == language && region.side == side) ranges.push_back(region.range);
        }
        if (ranges.empty()) return;
        const std::string script = OnlyRanges(text_, ranges);
        if (language == ScriptLanguage::VbScript) {
            AddVbScript(script);
        } else {
            AddJavaScript(script, 0);
        }
    }

    /// An error in one script element must not hide the functions of the next.
    void AddElements(const std::vector<PageRegion>& regions) {
        const std::string page = WithoutServerBlocks(text_);
        for (const auto& [range, language, side] : regions) {
            if (language != ScriptLanguage::JavaScript || side != ScriptSide::Browser) continue;
            AddJavaScript(std::string_view(page).substr(range.begin, range.end - range.begin),
                          range.begin);
        }
    }

    CutFile Cut() {
        const auto byPlace = [](const SourceUnit& unit) { return unit.code.begin; };
        std::ranges::stable_sort(units_, {}, byPlace);
        std::ranges::stable_sort(comments_, {}, &TextRange::begin);
        CutFile file = CutUnits(text_, units_, comments_, UnitPlacement::WholeLines);
        file.problems = std::move(problems_);
        return file;
    }

  private:
    void AddVbScript(const std::string& script) {
        BasicScan scan = ScanBasic(script, BasicDialect::VbScript, progress_);
        std::ranges::move(scan.problems, std::back_inserter(problems_));
        for (BasicProcedure& procedure : scan.procedures) {
            const TextRange code{procedure.begin, WithoutBreak(procedure.end)};
            if (procedure.name.empty() || !HoldsScriptAlone(script, code)) continue;
            units_.push_back({std::move(procedure.name), code, std::string(kVbScript)});
            const TextRange comment{procedure.commentBegin, WithoutBreak(procedure.begin)};
            const bool hasComment = procedure.commentBegin < procedure.begin;
            if (hasComment && HoldsScriptAlone(script, comment)) comments_.push_back(comment);
        }
    }

    /// `offset`: the script's place in the page.
    void AddJavaScript(std::string_view script, std::size_t offset) {
        ScriptUnits found = FindJavaScriptUnits(script, progress_);
        std::ranges::move(found.problems, std::back_inserter(problems_));
        const auto inPage = [offset](const TextRange& range) {
            return TextRange{range.begin + offset, range.end + offset};
        };
        for (SourceUnit& unit : found.units) {
            units_.push_back({std::move(unit.name), inPage(unit.code), std::string(kJavaScript)});
        }
        for (const TextRange& comment : found.comments)
            comments_.push_back(inPage(comment));
    }

    std::size_t WithoutBreak(std::size_t end) const {
        const bool hasBreak = text_.substr(0, end).ends_with(kLineBreak);
        return hasBreak ? end - kLineBreak.size() : end;
    }

    /// Is there nothing but script on the first and on the last line? On the lines between, parts
    /// of the page may stand: they belong to the procedure that prints them.
    bool HoldsScriptAlone(std::string_view script, const TextRange& range) const {
        const std::size_t firstEnd = std::min(text_.find(kLineBreak, range.begin), range.end);
        const std::size_t lastBegin =
            std::max(text_.substr(0, range.end).rfind('\n') + 1, range.begin);
        const auto isSame = [&](std::size_t begin, std::size_t end) {
            return text_.substr(begin, end - begin) == script.substr(begin, end - begin);
        };
        return isSame(range.begin, firstEnd) && isSame(lastBegin, range.end);
    }

    std::string_view text_;
    LineProgress& progress_;
    std::vector<SourceUnit> units_;
    std::vector<TextRange> comments_;
    std::vector<std::string> problems_;
};

}  // namespace

CutFile CutScriptPage(std::string_view text, PageKind kind, LineProgress& progress) {
    const std::vector<PageRegion> regions = FindPageRegions(text, kind);
    PageAnalysis analysis(text, progress);
    analysis.AddProgram(regions, ScriptLanguage::VbScript, ScriptSide::Server);
    analysis.AddProgram(regions, ScriptLanguage::JavaScript, ScriptSide::Server);
    analysis.AddProgram(regions, ScriptLanguage::VbScript, ScriptSide::Browser);
    analysis.AddElements(regions);
    return analysis.Cut();
}

bool HoldsPageCode(std::string_view text) {
    return text.find("<%") != std::string_view::npos ||
           FindIgnoringAsciiCase(text, "<script") != std::string_view::npos;
}

}  // namespace snippetarium
