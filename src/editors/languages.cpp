#include "editors/languages.h"

#include "editors/field_rules.h"
#include "keywords/words.h"
#include "store/database.h"
#include "store/reads_languages.h"
#include "store/sql_text.h"
#include "store/writes_languages.h"
#include "support/guard.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kEmpty = "Please enter a language.";
constexpr std::string_view kTooLong =
    "The language you specified is too long (over 50 characters).";
constexpr std::string_view kTaken = "The language you specified already exists.";

/// Another language than `languageID` may not have the name.
bool MayHaveName(Database& db, std::int32_t languageID, std::string_view name) {
    if (name.empty()) return RefuseEntry(db, kEmpty);
    if (!IsOneLine(db, name)) return false;
    if (CharacterCount(name) > kShortTextLimit) return RefuseEntry(db, kTooLong);
    const std::int32_t holder = LanguageID(db, name);
    return holder == 0 || holder == languageID || RefuseEntry(db, kTaken);
}

}  // namespace

bool AddLanguage(Database& db, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::AddLanguage, [&] {
        const std::string_view trimmed = TrimBlanks(name);
        return MayHaveName(db, 0, trimmed) && SaveLanguage(db, trimmed, 0) != 0;
    });
}

bool RenameLanguage(Database& db, std::int32_t languageID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::RenameLanguage, [&] {
        const std::string_view trimmed = TrimBlanks(name);
        return MayHaveName(db, languageID, trimmed) && SaveLanguage(db, trimmed, languageID) != 0;
    });
}

bool RemoveLanguage(Database& db, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::RemoveLanguage, [&] {
        if (DeleteLanguage(db, name)) return true;
        const auto users = ClassIDCodeIDRSByLanguage(db, name).RowCount();
        return RefuseEntry(
            db,
            Sql("The language '", name, "' cannot be deleted, because ", std::to_string(users),
                users == 1 ? " class or procedure has it." : " classes and procedures have it."));
    });
}

}  // namespace snippetarium
