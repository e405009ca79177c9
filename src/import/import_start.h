#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "import/import_selection.h"
#include "import/import_state.h"
#include "support/host.h"

namespace snippetarium {

class Database;

/// The control of the import dialog that a refused start points the user to.
enum class ImportControl : std::uint8_t {
    None,
    SelectedFiles,
    ApplicationPath,
    Language,
    Application
};

struct ImportStart {
    /// Where false, the click has ended; the control gets the focus.
    bool mayStart = false;
    ImportControl focus = ImportControl::None;
    /// The application that the files go to.
    std::int32_t appID = 0;
};

/// Questions that have been answered before they are asked, and so are not.
struct ImportAnswers {
    /// Supply an application name?
    std::optional<StandardAnswer> supplyName = std::nullopt;
    /// Overwrite what an application that is there holds?
    std::optional<StandardAnswer> overwrite = std::nullopt;
};

/// Checks what the user has entered and asks what has to be asked, in the order in which the user
/// is to mend it. Adds the application where it is new; sets the state's overwriteChoice. With the
/// default result where that fails, which is reported.
ImportStart StartImport(Database& db, ImportState& state, const ImportTexts& texts,
                        std::size_t fileCount, const ImportAnswers& answers = {});

}  // namespace snippetarium
