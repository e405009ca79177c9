#include "import/procedure_starts.h"

#include "support/ascii_search.h"
#include "support/case_fold.h"
#include "support/text.h"

namespace snippetarium {

namespace {

using enum ProcedureKind;

struct ProcedureStart {
    std::string_view prefix;
    ProcedureKind kind;
};

// clang-format off
constexpr ProcedureStart kProcedureStarts[] = {
    {"SUB ", Sub},
    {"PUBLIC SUB ", Sub},
    {"PRIVATE SUB ", Sub},
    {"FRIEND SUB ", Sub},
    {"STATIC SUB ", Sub},
    {"PUBLIC STATIC SUB ", Sub},
    {"PRIVATE STATIC SUB ", Sub},
    {"FRIEND STATIC SUB ", Sub},
    {"FUNCTION ", Function},
    {"PUBLIC FUNCTION ", Function},
    {"PRIVATE FUNCTION ", Function},
    {"FRIEND FUNCTION ", Function},
    {"STATIC FUNCTION ", Function},
    {"PUBLIC STATIC FUNCTION ", Function},
    {"PRIVATE STATIC FUNCTION ", Function},
    {"FRIEND STATIC FUNCTION ", Function},
    {"PROPERTY ", Property},
    {"PUBLIC PROPERTY ", Property},
    {"FRIEND PROPERTY ", Property},
    {"PRIVATE PROPERTY ", Property},
};

struct KindWords {
    std::string_view keyword;
    std::string_view end;
};

constexpr KindWords kSubWords      = {"Sub ",      "END SUB"};
constexpr KindWords kFunctionWords = {"Function ", "END FUNCTION"};
constexpr KindWords kPropertyWords = {"Property ", "END PROPERTY"};
// clang-format on

constexpr const KindWords& WordsOf(ProcedureKind kind) {
    switch (kind) {
        case Sub:
            return kSubWords;
        case Function:
            return kFunctionWords;
        case Property:
            break;
    }
    return kPropertyWords;
}

}  // namespace

std::optional<ProcedureKind> IsProcedureStart(std::string_view key) {
    for (const ProcedureStart& start : kProcedureStarts) {
        if (StartsWithIgnoringAsciiCase(key, start.prefix)) return start.kind;
    }
    return std::nullopt;
}

bool IsProcedureEnd(std::string_view line, ProcedureKind kind) {
    return EqualsIgnoringAsciiCase(TrimToVisible(line), WordsOf(kind).end);
}

bool IsVbScriptProcedure(ProcedureKind kind) {
    return kind != Property;
}

std::string_view ProcedureKeyword(ProcedureKind kind) {
    return WordsOf(kind).keyword;
}

}  // namespace snippetarium
