#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace snippetarium {

/// The procedures that can fail, each with the number that leads from a reported error code back to
/// it. The list stands in procedures.inc; a new procedure gets a free number of its module's block,
/// or one of the later additions.
enum class Procedure : std::int16_t {
#define PROCEDURE(module, name, number) name = (number),
#include "support/procedures.inc"
#undef PROCEDURE
};

/// One row of the list: where a number stands in the code.
struct ProcedureRow {
    std::int16_t number;
    std::string_view module;
    std::string_view name;
};

/// The numbers, both ends included, that belong to one form or module.
struct NumberBlock {
    std::string_view module;
    std::int16_t first;
    std::int16_t last;

    constexpr bool Holds(std::int16_t number) const { return first <= number && number <= last; }
};

/// Numbers for procedures of any module that came after the blocks were laid out.
inline constexpr NumberBlock kLaterAdditions{"", 1146, 1191};

/// Every procedure.
std::span<const ProcedureRow> Procedures();
/// The blocks in the order of the form and module names. The two progress windows share one block,
/// and number 998 ends modFSOUtil's as it begins modImport's.
std::span<const NumberBlock> NumberBlocks();

/// The procedure's name, as the code spells it. A named query's read bears the query's name.
std::string_view ProcedureName(Procedure procedure);

/// What the user sees and sends in: 10000 + the procedure's number.
constexpr std::int32_t ErrorCode(Procedure procedure) {
    return 10000 + static_cast<std::int32_t>(procedure);
}

}  // namespace snippetarium
