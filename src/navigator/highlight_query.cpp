#include "navigator/highlight_query.h"

#include <algorithm>
#include <array>
#include <span>

#include "support/embedded_file.h"
#include "support/error.h"

extern "C" {
const TSLanguage* tree_sitter_c(void);
const TSLanguage* tree_sitter_cpp(void);
const TSLanguage* tree_sitter_java(void);
const TSLanguage* tree_sitter_c_sharp(void);
const TSLanguage* tree_sitter_javascript(void);
const TSLanguage* tree_sitter_html(void);
}

namespace snippetarium {

/// The queries as the grammars' packages have them.
std::span<const EmbeddedFile> HighlightQueries();

namespace {

/// What the packages' documents call "highlights", in order. A later pattern beats an earlier one.
std::string QueryText(HighlightGrammar grammar) {
    static constexpr std::string_view kC = "tree-sitter-c/queries/highlights.scm";
    static constexpr std::string_view kCpp = "tree-sitter-cpp/queries/highlights.scm";
    static constexpr std::string_view kJava = "tree-sitter-java/queries/highlights.scm";
    static constexpr std::string_view kCSharp = "tree-sitter-c-sharp/queries/highlights.scm";
    static constexpr std::string_view kJavaScript = "tree-sitter-javascript/queries/highlights.scm";
    static constexpr std::string_view kHtml = "tree-sitter-html/queries/highlights.scm";
    const auto textOf = [](std::string_view path) {
        const auto files = HighlightQueries();
        const auto file = std::ranges::find(files, path, &EmbeddedFile::path);
        return file == files.end() ? std::string() : std::string(file->text) + "\n";
    };
    switch (grammar) {
        case HighlightGrammar::C:
            return textOf(kC);
        case HighlightGrammar::Cpp:
            return textOf(kC) + textOf(kCpp);
        case HighlightGrammar::Java:
            return textOf(kJava);
        case HighlightGrammar::CSharp:
            return textOf(kCSharp);
        case HighlightGrammar::JavaScript:
            return textOf(kJavaScript);
        case HighlightGrammar::Html:
            return textOf(kHtml);
    }
    return {};
}

const TSLanguage* LanguageOf(HighlightGrammar grammar) {
    switch (grammar) {
        case HighlightGrammar::C:
            return tree_sitter_c();
        case HighlightGrammar::Cpp:
            return tree_sitter_cpp();
        case HighlightGrammar::Java:
            return tree_sitter_java();
        case HighlightGrammar::CSharp:
            return tree_sitter_c_sharp();
        case HighlightGrammar::JavaScript:
            return tree_sitter_javascript();
        case HighlightGrammar::Html:
            return tree_sitter_html();
    }
    return nullptr;
}

struct CaptureName {
    std::string_view name;
    std::optional<HighlightKind> kind;
};

// A capture has the kind of its name, or of what stands before the name's last point.
// clang-format off
constexpr CaptureName kCaptureNames[] = {
    {"attribute",        HighlightKind::Attribute},
    {"comment",          HighlightKind::Comment},
    {"constant",         HighlightKind::Constant},
    {"constructor",      HighlightKind::Type},
    {"delimiter",        HighlightKind::Punctuation},
    {"embedded",         std::nullopt},
    {"function",         HighlightKind::Function},
    {"keyword",          HighlightKind::Keyword},
    {"label",            HighlightKind::Label},
    {"module",           HighlightKind::Type},
    {"number",           HighlightKind::Number},
    {"operator",         HighlightKind::Operator},
    {"property",         HighlightKind::Property},
    {"punctuation",      HighlightKind::Punctuation},
    {"string",           HighlightKind::String},
    {"string.escape",    HighlightKind::Escape},
    {"tag",              HighlightKind::Tag},
    {"type",             HighlightKind::Type},
    {"variable",         std::nullopt},
    {"variable.builtin", HighlightKind::Variable},
};
// clang-format on

std::optional<HighlightKind> KindOfName(std::string_view name) {
    while (true) {
        const auto* const found = std::ranges::find(kCaptureNames, name, &CaptureName::name);
        if (found != std::end(kCaptureNames)) return found->kind;
        const std::size_t point = name.rfind('.');
        if (point == std::string_view::npos) return std::nullopt;
        name = name.substr(0, point);
    }
}

std::string_view StringOf(const TSQuery* query, std::uint32_t id) {
    std::uint32_t length = 0;
    const char* const text = ts_query_string_value_for_id(query, id, &length);
    return {text, length};
}

}  // namespace

void HighlightQuery::Deleter::operator()(TSQuery* query) const {
    ts_query_delete(query);
}

bool HighlightQuery::Condition::Holds(std::string_view text) const {
    return pattern ? pattern->Matches(text) : text == equal;
}

const HighlightQuery* HighlightQuery::Of(HighlightGrammar grammar, std::chrono::microseconds wait) {
    const std::shared_future<HighlightQuery>& compilation = CompilationOf(grammar);
    if (compilation.wait_for(wait) != std::future_status::ready) return nullptr;
    return &compilation.get();
}

std::shared_future<HighlightQuery> HighlightQuery::Compile(HighlightGrammar grammar) {
    return std::async(std::launch::async, [grammar] { return HighlightQuery(grammar); });
}

const std::shared_future<HighlightQuery>& HighlightQuery::CompilationOf(HighlightGrammar grammar) {
    switch (grammar) {
        case HighlightGrammar::C: {
            static const auto kCompilation = Compile(HighlightGrammar::C);
            return kCompilation;
        }
        case HighlightGrammar::Cpp: {
            static const auto kCompilation = Compile(HighlightGrammar::Cpp);
            return kCompilation;
        }
        case HighlightGrammar::Java: {
            static const auto kCompilation = Compile(HighlightGrammar::Java);
            return kCompilation;
        }
        case HighlightGrammar::CSharp: {
            static const auto kCompilation = Compile(HighlightGrammar::CSharp);
            return kCompilation;
        }
        case HighlightGrammar::JavaScript: {
            static const auto kCompilation = Compile(HighlightGrammar::JavaScript);
            return kCompilation;
        }
        case HighlightGrammar::Html:
            break;
    }
    static const auto kCompilation = Compile(HighlightGrammar::Html);
    return kCompilation;
}

HighlightQuery::HighlightQuery(HighlightGrammar grammar) : language_(LanguageOf(grammar)) {
    const std::string text = QueryText(grammar);
    std::uint32_t place = 0;
    TSQueryError error = TSQueryErrorNone;
    query_.reset(ts_query_new(language_, text.data(), static_cast<std::uint32_t>(text.size()),
                              &place, &error));
    if (!query_) {
        throw Error(error_number::kInternal, "The highlighting query does not fit its grammar at " +
                                                 std::to_string(place) + ": " +
                                                 text.substr(place, 40));
    }
    ReadConditions();
    ReadKinds();
}

// A pattern's predicates come as one row of steps: the predicate's name, its arguments, an end, and
// so on. Those about local names are taken as true: no scopes are kept.
void HighlightQuery::ReadConditions() {
    conditions_.resize(ts_query_pattern_count(query_.get()));
    for (std::uint32_t pattern = 0; pattern < conditions_.size(); ++pattern) {
        std::uint32_t count = 0;
        const TSQueryPredicateStep* const steps =
            ts_query_predicates_for_pattern(query_.get(), pattern, &count);
        for (std::uint32_t i = 0; i + 2 < count; ++i) {
            const bool isStart = i == 0 || steps[i - 1].type == TSQueryPredicateStepTypeDone;
            if (!isStart || steps[i + 1].type != TSQueryPredicateStepTypeCapture ||
                steps[i + 2].type != TSQueryPredicateStepTypeString) {
                continue;
            }
            const std::string_view name = StringOf(query_.get(), steps[i].value_id);
            Condition condition{.capture = steps[i + 1].value_id, .pattern = {}, .equal = {}};
            condition.equal = StringOf(query_.get(), steps[i + 2].value_id);
            if (name == "match?") condition.pattern.emplace(condition.equal);
            if (name == "match?" || name == "eq?") conditions_[pattern].push_back(condition);
        }
    }
}

void HighlightQuery::ReadKinds() {
    const std::uint32_t count = ts_query_capture_count(query_.get());
    for (std::uint32_t id = 0; id < count; ++id) {
        std::uint32_t length = 0;
        const char* const name = ts_query_capture_name_for_id(query_.get(), id, &length);
        kinds_.push_back(KindOfName({name, length}));
    }
}

bool HighlightQuery::Holds(const TSQueryMatch& match, std::string_view text) const {
    return std::ranges::all_of(conditions_[match.pattern_index], [&](const Condition& condition) {
        for (std::uint32_t i = 0; i < match.capture_count; ++i) {
            const TSQueryCapture& capture = match.captures[i];
            if (capture.index != condition.capture) continue;
            const std::uint32_t begin = ts_node_start_byte(capture.node);
            const std::uint32_t end = ts_node_end_byte(capture.node);
            if (!condition.Holds(text.substr(begin, end - begin))) return false;
        }
        return true;
    });
}

std::optional<HighlightKind> HighlightQuery::KindOf(const TSQueryCapture& capture) const {
    const std::optional<HighlightKind> kind = kinds_[capture.index];
    const std::string_view node = ts_node_type(capture.node);
    // The queries call characters numbers and directives keywords.
    if (node == "char_literal") return HighlightKind::String;
    const bool isDirective = node.starts_with('#') || node == "preproc_directive";
    return kind == HighlightKind::Keyword && isDirective ? HighlightKind::Preprocessor : kind;
}

}  // namespace snippetarium
