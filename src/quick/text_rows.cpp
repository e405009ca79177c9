#include "quick/text_rows.h"

namespace snippetarium {

TextRows RowsWithText(Database& /*db*/, QuickKind /*kind*/, QuickText /*text*/,
                      std::string_view /*literal*/) {
    return {};
}

}  // namespace snippetarium
