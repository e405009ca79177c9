#include "store/writes_languages.h"

#include <limits>

#include "store/database.h"
#include "store/new_id.h"
#include "store/reads_languages.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// A languageID has 16 bits.
constexpr std::int32_t kLastLanguageID = std::numeric_limits<std::int16_t>::max();

}  // namespace

std::int32_t SaveLanguage(Database& db, std::string_view language, std::int32_t languageID) {
    return Guarded(db.Reporter(), Procedure::SaveLanguage, [&] {
        if (languageID != 0) {
            const std::int64_t renamed =
                ExecuteSQL(db, Sql("UPDATE tblLanguage SET language = ", SqlText50(language),
                                   " WHERE languageID =", languageID, ";"));
            return renamed == 0 ? 0 : languageID;
        }
        const std::int32_t newID = NewID(db, "languageID", "tblLanguage", kLastLanguageID);
        ExecuteSQL(db, Sql("INSERT INTO tblLanguage VALUES(", newID, ", ", SqlText50(language),
                           ", True);"));
        return newID;
    });
}

bool DeleteLanguage(Database& db, std::string_view language) {
    return Guarded(db.Reporter(), Procedure::DeleteLanguage, [&] {
        if (!ClassIDCodeIDRSByLanguage(db, language).EndOfFile()) return false;
        ExecuteSQL(db, Sql("DELETE FROM tblLanguage where language =", SqlText50(language), ";"));
        return true;
    });
}

bool LanguageStatus(Database& db, std::string_view language) {
    return Guarded(db.Reporter(), Procedure::LanguageStatus, [&] {
        const Recordset row = StatusRSByLanguage(db, language);
        return !row.EndOfFile() && row["Status"].Boolean();
    });
}

}  // namespace snippetarium
