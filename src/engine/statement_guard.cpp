#include "engine/statement_guard.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

#include "support/case_fold.h"

namespace snippetarium {

namespace {

constexpr std::array<std::string_view, 4> kSearchFunctions = {"like", "count", "max", "min"};
constexpr std::array<std::string_view, 12> kOwnFunctions = {
    "like",   "count", "max",   "min",    "coalesce",     "ifnull",
    "length", "sum",   "total", "substr", "group_concat", "likelihood"};

struct Limit {
    int id;
    int value;
};

// clang-format off
constexpr std::array kLimits = {
    Limit{SQLITE_LIMIT_ATTACHED, 0},
    Limit{SQLITE_LIMIT_COMPOUND_SELECT, 16},
    Limit{SQLITE_LIMIT_LENGTH, 256 << 20},
    Limit{SQLITE_LIMIT_VDBE_OP, 250'000},
};
constexpr std::array kSwitches = {
    Limit{SQLITE_DBCONFIG_DEFENSIVE, 1},
    Limit{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    Limit{SQLITE_DBCONFIG_DQS_DML, 0},
    Limit{SQLITE_DBCONFIG_DQS_DDL, 0},
    Limit{SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0},
    Limit{SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
};
// clang-format on

bool IsCatalogueTable(std::string_view name) {
    return name.size() > 3 && EqualsIgnoringAsciiCase(name.substr(0, 3), "tbl");
}

template <std::size_t Count>
bool IsAmong(const std::array<std::string_view, Count>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(), [name](std::string_view candidate) {
        return EqualsIgnoringAsciiCase(candidate, name);
    });
}

std::string_view OrEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

int Authorize(void* guard, int action, const char* first, const char* second, const char*,
              const char*) {
    const auto& statementGuard = *static_cast<const StatementGuard*>(guard);
    return statementGuard.Allows(action, OrEmpty(first), OrEmpty(second)) ? SQLITE_OK : SQLITE_DENY;
}

}  // namespace

void StatementGuard::Install(sqlite3* database) {
    for (const Limit& limit : kLimits)
        sqlite3_limit(database, limit.id, limit.value);
    for (const Limit& option : kSwitches) {
        sqlite3_db_config(database, option.id, option.value, static_cast<int*>(nullptr));
    }
    sqlite3_set_authorizer(database, Authorize, this);
}

bool StatementGuard::Allows(int action, std::string_view first, std::string_view second) const {
    if (purpose_ == StatementPurpose::Internal) return true;
    if (purpose_ == StatementPurpose::Alter) {
        // The library words and runs statements of its own for this; only its target is ours to
        // judge.
        return action != SQLITE_ALTER_TABLE || IsCatalogueTable(second);
    }
    switch (action) {
        case SQLITE_SELECT:
            return true;
        case SQLITE_READ:
            return IsCatalogueTable(first);
        case SQLITE_FUNCTION:
            return purpose_ == StatementPurpose::Search ? IsAmong(kSearchFunctions, second)
                                                        : IsAmong(kOwnFunctions, second);
        case SQLITE_INSERT:
        case SQLITE_UPDATE:
        case SQLITE_DELETE:
            return purpose_ == StatementPurpose::Action && IsCatalogueTable(first);
        default:
            return false;
    }
}

}  // namespace snippetarium
