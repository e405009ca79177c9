#include "engine/collation.h"

#include <sqlite3.h>

#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "engine/engine_error.h"
#include "engine/jet_like.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

constexpr int kPatternArgument = 0;
constexpr int kTextArgument = 1;

int Collate(void* /*context*/, int sizeOfA, const void* a, int sizeOfB, const void* b) {
    const auto text = [](const void* bytes, int size) {
        return std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    };
    return CompareFolded(text(a, sizeOfA), text(b, sizeOfB));
}

/// The operand as text, which converts a number in place.
std::string_view TextOf(sqlite3_value* value) {
    const unsigned char* text = sqlite3_value_text(value);
    if (text == nullptr) throw std::bad_alloc();
    return {reinterpret_cast<const char*>(text),
            static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool Matches(const LikePattern& pattern, sqlite3_context* context, sqlite3_value* text) {
    const auto* poll = static_cast<const CancelPoll*>(sqlite3_user_data(context));
    return pattern.Match(TextOf(text), poll);
}

/// Matches with the pattern that an earlier row of the statement left, or compiles and leaves it.
bool MatchRow(sqlite3_context* context, sqlite3_value** operands) {
    const void* kept = sqlite3_get_auxdata(context, kPatternArgument);
    if (kept != nullptr) {
        return Matches(*static_cast<const LikePattern*>(kept), context, operands[kTextArgument]);
    }
    auto pattern = std::make_unique<LikePattern>(TextOf(operands[kPatternArgument]));
    const bool isMatch = Matches(*pattern, context, operands[kTextArgument]);
    // The statement owns the pattern from here on, and drops it at once where the operand is not
    // the same for all rows.
    sqlite3_set_auxdata(context, kPatternArgument, pattern.release(),
                        [](void* aux) { delete static_cast<LikePattern*>(aux); });
    return isMatch;
}

bool IsNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

/// like(pattern, text), which is what the engine makes of "text LIKE pattern". The engine is C
/// code: no exception may leave this function.
void Like(sqlite3_context* context, int /*operandCount*/, sqlite3_value** operands) {
    if (IsNull(operands[kPatternArgument]) || IsNull(operands[kTextArgument])) return;
    try {
        sqlite3_result_int(context, MatchRow(context, operands) ? 1 : 0);
    } catch (const EngineError& error) {
        sqlite3_result_error(context, error.what(), -1);
        if (error.Code() == EngineErrorCode::Cancelled) {
            sqlite3_result_error_code(context, SQLITE_INTERRUPT);
        }
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

/// like(pattern, text, escape): the built-in function knows neither our classes nor our letters and
/// cannot be cancelled.
void RefuseEscape(sqlite3_context* context, int /*operandCount*/, sqlite3_value** /*operands*/) {
    sqlite3_result_error(context,
                         "LIKE knows no ESCAPE. To find a wildcard itself, write it in brackets: "
                         "\"[%]\".",
                         -1);
}

void Check(sqlite3* database, int result) {
    if (result == SQLITE_OK) return;
    throw EngineError(EngineErrorCode::Unexpected, "The comparison of text cannot be set up: " +
                                                       std::string(sqlite3_errmsg(database)));
}

}  // namespace

void InstallTextComparison(sqlite3* database, const CancelPoll* poll) {
    Check(database,
          sqlite3_create_collation_v2(database, "CATNC", SQLITE_UTF8, nullptr, Collate, nullptr));
    // The poll is only read; the engine's interface merely has no const pointer for it.
    auto* context = const_cast<CancelPoll*>(poll);
    constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    Check(database, sqlite3_create_function_v2(database, "like", 2, kFlags, context, Like, nullptr,
                                               nullptr, nullptr));
    Check(database, sqlite3_create_function_v2(database, "like", 3, kFlags, nullptr, RefuseEscape,
                                               nullptr, nullptr, nullptr));
}

}  // namespace snippetarium
