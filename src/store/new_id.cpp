#include "store/new_id.h"

#include "store/database.h"
#include "store/sql_text.h"
#include "support/error.h"

namespace snippetarium {

std::int32_t NewID(Database& db, std::string_view column, std::string_view table,
                   std::int32_t last) {
    const std::int32_t largest = MaxIDValue(db, column, table);
    if (largest < last) return largest + 1;
    throw Error(error_number::kInvalidCall,
                Sql("There is no number left for another row of ", table,
                    ", because one has the last, ", largest, ". Delete what it belongs to."));
}

}  // namespace snippetarium
