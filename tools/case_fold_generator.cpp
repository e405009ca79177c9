#include "tools/case_fold_generator.h"

#include <unicode/uchar.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr char kHeading[] =
    "// Made by make_case_fold_table; do not edit. Rows of {first, last, step, distance}: the\n"
    "// characters first, first + step ... last fold to the character that stands `distance` on.\n"
    "// clang-format off\n";

struct Run {
    char32_t first;
    char32_t last;
    std::uint32_t step;
    std::int32_t distance;
};

bool IsOldEnough(char32_t character) {
    std::array<std::uint8_t, U_MAX_VERSION_LENGTH> age{};
    u_charAge(static_cast<UChar32>(character), age.data());
    return age[0] >= 1 && (age[0] < 15 || (age[0] == 15 && age[1] == 0));
}

std::size_t Utf8Length(char32_t character) {
    std::string text;
    AppendUtf8(text, character);
    return text.size();
}

char32_t Fold(char32_t character) {
    // Two spellings of the ligature "st", of which Unicode 15.1 made one the fold of the other.
    constexpr char32_t kFoldedSinceLater = 0xFB05;
    if (character == kFoldedSinceLater || !IsOldEnough(character)) return character;
    const auto folded =
        static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
    const bool isUsable = IsOldEnough(folded) && Utf8Length(folded) == Utf8Length(character);
    return isUsable ? folded : character;
}

/// Puts the character into the last run when it continues it. Alphabets in which capital and small
/// letters alternate make runs of step 2.
bool Extend(std::vector<Run>& runs, char32_t character, std::int32_t distance) {
    if (runs.empty()) return false;
    Run& run = runs.back();
    const std::uint32_t step = character - run.last;
    const bool isFirstStep = run.first == run.last;
    if (run.distance != distance || step > 2 || (!isFirstStep && step != run.step)) return false;
    run.step = step;
    run.last = character;
    return true;
}

std::vector<Run> MakeRuns() {
    std::vector<Run> runs;
    for (char32_t character = 0; character <= UCHAR_MAX_VALUE; ++character) {
        const char32_t folded = Fold(character);
        if (folded == character) continue;
        const auto distance = static_cast<std::int32_t>(folded - character);
        if (!Extend(runs, character, distance)) runs.push_back({character, character, 1, distance});
    }
    return runs;
}

}  // namespace

std::string MakeCaseFoldTable() {
    std::string table = kHeading;
    for (const Run& run : MakeRuns()) {
        std::array<char, 64> row{};
        std::snprintf(row.data(), row.size(), "{0x%04X, 0x%04X, %u, %d},\n",
                      static_cast<unsigned>(run.first), static_cast<unsigned>(run.last),
                      static_cast<unsigned>(run.step), static_cast<int>(run.distance));
        table += row.data();
    }
    table += "// clang-format on\n";
    return table;
}

}  // namespace snippetarium
