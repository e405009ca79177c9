#pragma once

#include <string>
#include <vector>

#include "support/import_export_report.h"

namespace snippetarium {

/// What an import left behind, as its report shows it: the entries (import/folder_walk.h) that
/// lines begin with are written as the platform writes paths.
JobTexts ShownTexts(JobTexts texts, const std::vector<std::string>& entries);

}  // namespace snippetarium
