#include "navigator/name_proposal.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <initializer_list>

#include "import/c_family.h"
#include "import/c_tokens.h"
#include "import/page_regions.h"
#include "import/script_page.h"
#include "import/tree_sitter_cutter.h"
#include "import/visual_basic.h"
#include "navigator/delivered_languages.h"
#include "navigator/silent_host.h"
#include "store/sql_text.h"
#include "support/line_ends.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

using namespace delivered_language;

/// A proposal comes while somebody types.
constexpr std::chrono::milliseconds kMostTime{300};

std::string NormalisedText(std::string_view text) {
    std::string normalised(text);
    NormaliseLineEnds(normalised);
    return normalised;
}

bool IsIdentifier(std::string_view name) {
    return !name.empty() && std::ranges::all_of(name, [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return std::isalnum(byte) != 0 || byte == '_' || byte >= 0x80U;
    });
}

/// Cuts one text as an import cuts a file, as long as there is time.
class NameFinder {
  public:
    CutFile Cut(std::string_view text, std::int32_t languageID) {
        switch (languageID) {
            case kVisualBasic:
                return CutVisualBasic(text, progress_);
            case kJava:
                return CutJava(text, progress_);
            case kCSharp:
                return CutCSharp(text, progress_);
            case kC:
                return CutCFamily(text, CDialect::C, UnitPlacement::Exact);
            case kCpp:
            case kCHeader:
            case kCppHeader:
                return CutCFamily(text, CDialect::Cpp, UnitPlacement::Exact);
            case kJavaScript:
                return CutJavaScript(text, progress_);
            case kVbScript:
                return CutVbScript(text, progress_);
            case kServerPage:
                return CutScriptPage(text, PageKind::ServerPage, progress_);
            case kHtmlPage:
                return CutScriptPage(text, PageKind::Html, progress_);
            default:
                return {};
        }
    }

    /// The name of the first procedure in a text that stands for itself.
    std::string NameIn(const std::string& code, std::int32_t languageID,
                       std::string_view className) {
        switch (languageID) {
            case kJava:
            case kCSharp:
                return MemberName(Closed(code, true), languageID, className);
            case kCpp:
            case kC:
            case kCHeader:
            case kCppHeader:
                return FirstName(Cut(Closed(code, true), languageID));
            case kJavaScript:
                return ScriptName(Closed(code, false));
            case kServerPage:
                return PageName(code, languageID, {kVbScript, kJavaScript});
            case kHtmlPage:
                return PageName(code, languageID, {kJavaScript, kVbScript});
            default:
                return FirstName(Cut(code, languageID));
        }
    }

    static std::string FirstName(const CutFile& file) {
        for (const CutProcedure& procedure : file.procedures) {
            if (!procedure.name.empty()) return procedure.name;
        }
        return {};
    }

  private:
    /// While a body is being typed, its brackets are open, and before that there is none.
    static std::string Closed(const std::string& code, bool needsBody) {
        const CTokens found = TokeniseC(code, CDialect::Cpp);
        int open = 0;
        bool hasBody = false;
        std::string_view before;
        for (const CToken& token : found.tokens) {
            const std::string_view text = found.TextOf(token);
            hasBody = hasBody || text == "{" || (before == "=" && text == ">");
            open += text == "{" ? 1 : text == "}" ? -1 : 0;
            before = text;
        }
        std::string closed = code;
        if (!hasBody && needsBody) closed += "\r\n{}";
        for (; open > 0; --open)
            closed += "\r\n}";
        return closed;
    }

    /// A method is found within its class only. A text that brings its class needs no other.
    std::string MemberName(const std::string& code, std::int32_t languageID,
                           std::string_view className) {
        const CutFile whole = Cut(code + "\r\n", languageID);
        if (!whole.className.empty()) return FirstName(whole);
        const bool isNamed = IsIdentifier(className);
        const std::string type = isNamed ? std::string(className) : "X";
        const std::string name =
            FirstName(Cut("class " + type + " {\r\n" + code + "\r\n}\r\n", languageID));
        return isNamed || name.empty() ? name : name.substr(type.size() + 1);
    }

    /// A method stands in a class, or in an object behind its name.
    std::string ScriptName(const std::string& code) {
        constexpr std::string_view kAround[][2] = {
            {"", ""}, {"class X {\r\n", "\r\n}"}, {"X = {\r\n", "\r\n}"}};
        for (const auto& [before, behind] : kAround) {
            std::string name =
                FirstName(Cut(std::string(before).append(code).append(behind), kJavaScript));
            if (before.empty() && !name.empty()) return name;
            if (name.starts_with("X.")) return name.substr(2);
        }
        return {};
    }

    /// Most procedures of pages come without the tags or percent signs around them.
    std::string PageName(const std::string& code, std::int32_t languageID,
                         std::initializer_list<std::int32_t> scripts) {
        if (HoldsPageCode(code)) return FirstName(Cut(code + "\r\n", languageID));
        for (const std::int32_t script : scripts) {
            std::string name = NameIn(code, script, {});
            if (!name.empty()) return name;
        }
        return {};
    }

    ImportState state_;
    SilentHost host_{kMostTime, [this] { state_.importCancelled = true; }};
    LineProgress progress_{host_.GetHost(), state_, 0};
};

std::string ShortEnough(const std::string& name) {
    return std::string(CutToCharacters(name, kNameLimit));
}

}  // namespace

std::string ProposedName(const NameQuestion& question) {
    return ShortEnough(NameFinder().NameIn(NormalisedText(question.code), question.languageID,
                                           question.className));
}

}  // namespace snippetarium
