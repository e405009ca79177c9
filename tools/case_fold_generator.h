#pragma once

#include <string>

namespace snippetarium {

/// The text of src/support/case_fold_table.inc, made from the installed ICU's character data. Every
/// ICU that knows Unicode 15.0 or more gives the same text.
std::string MakeCaseFoldTable();

}  // namespace snippetarium
