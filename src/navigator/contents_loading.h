#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "navigator/contents_tree.h"

namespace snippetarium {

class Database;

// What fills the contents tree. Each operation is guarded; a query that fails or finds nothing
// leaves its level empty. Rows are added in batches. A long load shows the progress window, whose
// caption ends in " , please wait...", and lets events run between two batches: the caller keeps
// other loads away meanwhile.

struct ContentsLoading {
    /// Then the pointer is an hourglass meanwhile.
    bool isPaneShown = false;
    /// Loads the keyword index, which says "Loading Index" while it works. May be empty.
    std::function<void()> loadIndex = {};
};

/// Fills the tree from scratch: the undefined application, where it holds anything, all others, and
/// the keyword index.
void LoadContents(Database& db, ContentsTree& tree, const ContentsLoading& loading);

void LoadUndefinedApplication(Database& db, ContentsTree& tree);
/// All but the undefined one.
void LoadApplications(Database& db, ContentsTree& tree);
/// Below a node that is in the tree; does nothing where it is not.
void LoadClasses(Database& db, ContentsTree& tree, std::int32_t appID);
void LoadProcedures(Database& db, ContentsTree& tree, std::int32_t appID, std::int32_t classID);

// The same rows for whoever needs them all at once. These throw.

/// The undefined application first, where it holds anything.
std::vector<ContentsRow> ReadApplicationRows(Database& db);
std::vector<ContentsRow> ReadClassRows(Database& db, std::int32_t appID);
std::vector<ContentsRow> ReadProcedureRows(Database& db, const NodeIDs& parent);

}  // namespace snippetarium
