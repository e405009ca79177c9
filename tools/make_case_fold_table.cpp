// Prints src/support/case_fold_table.inc. From the repository's folder:
//     build/dev/bin/make_case_fold_table > src/support/case_fold_table.inc

#include <cstdio>

#include "tools/case_fold_generator.h"

int main() {
    const std::string table = snippetarium::MakeCaseFoldTable();
    return std::fwrite(table.data(), 1, table.size(), stdout) == table.size() ? 0 : 1;
}
