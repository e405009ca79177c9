#include "import/c_macros.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "import/c_live_tokens.h"
#include "import/source_words.h"

namespace snippetarium {

namespace {

// clang-format off
/// Extensions that say nothing about where a definition is.
constexpr std::string_view kAlwaysMasked[] = {
    "__cdecl", "__stdcall", "__fastcall", "__thiscall", "__vectorcall", "_cdecl", "_stdcall",
    "__inline", "__inline__", "__forceinline", "__extension__", "__restrict", "__restrict__",
    "restrict", "__volatile__", "__const", "afx_msg", "__noreturn", "_Noreturn", "__far", "__near",
};
/// The same with a list in brackets.
constexpr std::string_view kMaskedWithList[] = {
    "__attribute__", "__attribute", "__declspec", "__pragma", "_Pragma", "__asm__", "__nonnull",
};
constexpr std::string_view kSpecifiers[] = {
    "static", "inline", "extern", "const", "constexpr", "consteval", "constinit", "virtual",
    "explicit", "friend", "template", "typename", "struct", "class", "enum", "union", "volatile",
    "register", "mutable", "typedef", "using", "namespace", "operator",
};
constexpr std::string_view kClassKeys[] = {"struct", "class", "enum", "union"};
constexpr std::string_view kBuiltInTypes[] = {
    "void", "int", "char", "short", "long", "float", "double", "bool", "unsigned", "signed", "auto",
    "size_t", "wchar_t", "uint8_t", "uint16_t", "uint32_t", "uint64_t", "int8_t", "int16_t",
    "int32_t", "int64_t",
};
constexpr std::string_view kStatements[] = {"return", "else", "case", "goto"};
/// What may stand between a parameter list and its body.
constexpr std::string_view kAfterParameters[] = {"const", "noexcept", "override", "final"};
// clang-format on

/// BOOL, FOO_API, Q2; not a single letter, which is a template's parameter.
bool LooksLikeMacro(std::string_view word) {
    const auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
    const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
    return word.size() >= 2 && std::none_of(word.begin(), word.end(), isLower) &&
           std::any_of(word.begin(), word.end(), isUpper);
}

class MacroMasker {
  public:
    explicit MacroMasker(CTokens& tokens) : tokens_(tokens), live_(tokens) {}

    void Run() {
        std::size_t brackets = 0;
        for (std::size_t i = 0; i < live_.Size(); ++i) {
            if (IsMasked(i)) continue;
            if (live_.IsAnyOf(i, "([")) {
                ++brackets;
            } else if (live_.IsAnyOf(i, ")]")) {
                if (brackets > 0) --brackets;
            } else if (live_.IsAnyOf(i, "{}")) {
                brackets = 0;
            } else if (live_.IsWord(i) && !MaskExtension(i) && brackets == 0 &&
                       LooksLikeMacro(live_.Text(i))) {
                LookAt(i);
            }
            if (!IsMasked(i)) lastKept_ = i;
        }
    }

  private:
    /// A name that looks like a macro and what stands around it.
    struct Use {
        std::size_t name = 0;
        /// The last token of it: the bracket behind its arguments, or the name itself.
        std::size_t last = 0;
        bool hasArguments = false;
        /// The token behind it.
        std::size_t next = 0;
        /// The token before it that is not masked; none where it is the first.
        std::size_t before = 0;
        bool isFirst = false;
        /// Nothing of its declaration stands before it.
        bool startsDeclaration = false;
    };

    bool IsMasked(std::size_t i) const { return tokens_.tokens[live_.PlaceOf(i)].isMasked; }

    void Mask(std::size_t first, std::size_t last) {
        for (std::size_t i = first; i <= last; ++i)
            tokens_.tokens[live_.PlaceOf(i)].isMasked = true;
    }

    bool MaskExtension(std::size_t i) {
        if (IsOneOf(live_.Text(i), kAlwaysMasked)) {
            Mask(i, i);
            return true;
        }
        if (!IsOneOf(live_.Text(i), kMaskedWithList) || !HasArguments(i)) return false;
        Mask(i, live_.Closing(i + 1));
        return true;
    }

    bool HasArguments(std::size_t i) const { return live_.Opens(i + 1, '('); }

    Use UseAt(std::size_t i) const {
        Use use;
        use.name = i;
        use.hasArguments = HasArguments(i);
        use.last = use.hasArguments ? live_.Closing(i + 1) : i;
        use.next = use.last + 1;
        use.before = lastKept_.value_or(0);
        use.isFirst = !lastKept_.has_value();
        use.startsDeclaration = use.isFirst || live_.IsAnyOf(use.before, ";{}:>");
        return use;
    }

    bool IsBefore(const Use& use, auto predicate) const {
        return !use.isFirst && predicate(use.before);
    }

    bool IsWordBefore(const Use& use, const auto& words) const {
        return !use.isFirst && live_.IsWord(use.before) && IsOneOf(live_.Text(use.before), words);
    }

    void LookAt(std::size_t i) {
        const Use use = UseAt(i);
        if (use.next >= live_.Size()) {
            if (use.startsDeclaration && use.hasArguments) Mask(use.name, use.last);
        } else if (IsWordBefore(use, kClassKeys)) {
            LookBehindClassKey(use);
        } else if (IsBehindParameters(use) && live_.IsAnyOf(use.next, "{;:=")) {
            // "int f() CALLS;" is a declaration either way, and not looked at.
            if (!live_.Is(use.next, ';') || !live_.Is(use.before, ')')) Mask(use.name, use.last);
        } else if (StandsOnOwnLine(use) && !IsTypeOfNextLine(use)) {
            Mask(use.name, use.last);
        } else if (use.startsDeclaration || IsWordBefore(use, kSpecifiers)) {
            LookBeforeDeclaration(use);
        } else {
            LookBetweenTypeAndName(use);
        }
    }

    bool IsBehindParameters(const Use& use) const {
        return IsBefore(use, [&](std::size_t i) { return live_.Is(i, ')'); }) ||
               IsWordBefore(use, kAfterParameters);
    }

    /// class EXPORT Grid {
    void LookBehindClassKey(const Use& use) {
        if (!live_.IsWord(use.next)) return;
        if (use.hasArguments || live_.IsAnyOf(use.next + 1, "{:;") || live_.IsWord(use.next + 1)) {
            Mask(use.name, use.last);
        }
    }

    /// Q_OBJECT, or BEGIN_MAP(a, b) without a semicolon.
    bool StandsOnOwnLine(const Use& use) const {
        if (!use.startsDeclaration || live_.IsAnyOf(use.next, "{;(.-=+,")) return false;
        const std::string_view text = tokens_.text;
        const auto hasBreak = [&](std::size_t from, std::size_t to) {
            return text.substr(from, to - from).find('\n') != std::string_view::npos;
        };
        const bool startsLine =
            use.name == 0 || hasBreak(live_[use.name - 1].end, live_[use.name].begin);
        return startsLine && hasBreak(live_[use.last].end, live_[use.next].begin);
    }

    /// BOOL on a line, and "Draw(HDC hdc)" on the next.
    bool IsTypeOfNextLine(const Use& use) const {
        return !use.hasArguments && live_.IsWord(use.next) && live_.Is(use.next + 1, '(');
    }

    /// FOO_API type name(      FOO(x) type name(
    void LookBeforeDeclaration(const Use& use) {
        if (!live_.IsWord(use.next)) return;
        if (!use.hasArguments && IsMacroBehindType(use.next)) {
            Mask(use.next, use.next);
        } else if (use.hasArguments || StartsDeclaration(use.next)) {
            Mask(use.name, use.last);
        }
    }

    /// BOOL CALLBACK Dialog(: the first is the type.
    bool IsMacroBehindType(std::size_t i) const {
        return LooksLikeMacro(live_.Text(i)) && live_.IsWord(i + 1) && live_.Is(i + 2, '(') &&
               !IsOneOf(live_.Text(i), kAlwaysMasked) && !IsOneOf(live_.Text(i), kMaskedWithList);
    }

    bool StartsDeclaration(std::size_t i) const {
        const std::string_view word = live_.Text(i);
        return IsOneOf(word, kBuiltInTypes) || IsOneOf(word, kSpecifiers) ||
               IsOneOf(word, kAlwaysMasked) || IsOneOf(word, kMaskedWithList) || IsConstructor(i) ||
               live_.IsWord(i + 1) || live_.IsScope(i + 1) || live_.IsAnyOf(i + 1, "<*&");
    }

    bool IsConstructor(std::size_t i) const {
        return HasArguments(i) && live_.IsAnyOf(live_.Closing(i + 1) + 1, ":{");
    }

    /// int WINAPI f(     char *APIENTRY g(
    void LookBetweenTypeAndName(const Use& use) {
        if (use.isFirst || use.hasArguments || !live_.IsWord(use.next)) return;
        const bool hasType = live_.IsWord(use.before)
                                 ? !IsOneOf(live_.Text(use.before), kStatements)
                                 : live_.IsAnyOf(use.before, "*&>");
        if (hasType && (live_.Is(use.next + 1, '(') || live_.IsScope(use.next + 1))) {
            Mask(use.name, use.last);
        }
    }

    CTokens& tokens_;
    const CLiveTokens live_;
    /// The last token before the one at hand that is not masked.
    std::optional<std::size_t> lastKept_;
};

}  // namespace

void MaskDeclarationMacros(CTokens& tokens) {
    MacroMasker(tokens).Run();
}

}  // namespace snippetarium
