#include "support/procedure_numbers.h"

namespace snippetarium {

namespace {

constexpr ProcedureRow kProcedures[] = {
#define PROCEDURE(module, name, number) {number, #module, #name},
#include "support/procedures.inc"
#undef PROCEDURE
};

// clang-format off
constexpr NumberBlock kNumberBlocks[] = {
    {"fAddClass", 1, 16},
    {"fAddCode", 17, 31},
    {"fAddDate", 32, 44},
    {"fApplication", 45, 74},
    {"fAuthors", 75, 111},
    {"fBookmark", 112, 125},
    {"fCalendar", 126, 131},
    {"fClass", 132, 167},
    {"fCode", 168, 209},
    {"fCommonWord", 210, 220},
    {"fConfigure", 221, 234},
    {"fContents", 235, 247},
    {"fEditSearchWord", 248, 250},
    {"fExport", 261, 276},
    {"fFind", 281, 292},
    {"fImport", 339, 382},
    {"fIndex", 383, 395},
    {"fKeywords", 396, 420},
    {"fLanguage", 421, 428},
    {"fLogError", 429, 438},
    {"fMain", 439, 496},
    {"fMsgBox", 497, 508},
    {"fPage", 528, 539},
    {"fPrgrCancel", 540, 541},
    {"fProgressBar1", 542, 544},
    {"fProgressBar2", 542, 544},
    {"fSaveTo", 556, 567},
    {"fSearch", 626, 652},
    {"fSlctLanguage", 653, 665},
    {"fTopicsFound", 670, 679},
    {"fZoom", 680, 682},
    {"mod1UI", 684, 748},
    {"modArrayUtils", 750, 755},
    {"modCodeAnalysis", 758, 775},
    {"modCommonWords", 776, 783},
    {"modDatabase", 785, 975},
    {"modExport", 977, 986},
    {"modFSO", 987, 992},
    {"modFSOUtil", 993, 998},
    {"modImport", 998, 1078},
    {"modLoading", 1079, 1086},
    {"modMsgUtil", 1087, 1092},
    {"modSearch", 1107, 1120},
    {"modTextUtil", 1124, 1141},
    {"modUI", 1142, 1145},
};
// clang-format on

}  // namespace

std::span<const ProcedureRow> Procedures() {
    return kProcedures;
}

std::span<const NumberBlock> NumberBlocks() {
    return kNumberBlocks;
}

std::string_view ProcedureName(Procedure procedure) {
    switch (procedure) {
#define PROCEDURE(module, name, number) \
    case Procedure::name:               \
        return #name;
#include "support/procedures.inc"
#undef PROCEDURE
    }
    return {};
}

}  // namespace snippetarium
