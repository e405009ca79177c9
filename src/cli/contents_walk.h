#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "support/node_key.h"

namespace snippetarium {

class Database;

/// A node of the contents tree as the walk comes by.
struct ContentsNode {
    NodeIDs ids;
    std::string name = {};
    /// Classes of an application, procedures of a class.
    std::int32_t childCount = 0;
    /// How far below the top of the walk; the top is at 0.
    int depth = 0;

    NodeKind Kind() const;
    std::string Key() const;
};

using VisitNode = std::function<void(const ContentsNode&)>;

/// Visits the applications and what is below them, `levels` levels in all: each node before its
/// children, in the order in which the catalogue's queries return them. Application 1 comes first,
/// as "Application Undefined", if it holds anything.
void WalkContents(Database& db, int levels, const VisitNode& visit);

/// The same for one node and what is below it. Throws Error where the catalogue has no such node;
/// it has one only where each of its ancestors is the one that the IDs say.
void WalkContentsFrom(Database& db, const NodeIDs& top, int levels, const VisitNode& visit);

}  // namespace snippetarium
