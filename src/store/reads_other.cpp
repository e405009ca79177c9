#include "store/reads_other.h"

#include "store/named_query.h"

namespace snippetarium {

Recordset Favorite(Database& db) {
    return ReadRecordset(db, Procedure::qryFavorite, {});
}

Recordset CommonWordRS(Database& db) {
    return ReadRecordset(db, Procedure::qryCommonWordRS, {});
}

Recordset CommonWordRSByWord(Database& db, std::string_view commonWord) {
    return ReadRecordset(db, Procedure::qryCommonWordRSByWord,
                         {Parameter::Text255("commonWord", commonWord)});
}

Recordset WindowSizeRS(Database& db) {
    return ReadRecordset(db, Procedure::qryWindowSizeRS, {});
}

}  // namespace snippetarium
