#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "quick/name_block.h"
#include "quick/plan.h"

namespace snippetarium {

/// A part of a search, done in small pieces. Between two of them nothing of the catalogue is held,
/// so it may change, and the search may be dropped.
class QuickWork {
  public:
    virtual ~QuickWork() = default;
    /// Does a piece, which takes a millisecond or two at most. False when there is no more to do.
    virtual bool Advance() = 0;
};

/// A row that was found. Names that are shorter come first among rows of about the same age.
struct FoundRow {
    QuickKind kind = QuickKind::Application;
    QuickTier tier = QuickTier::ExactName;
    std::int32_t id = 0;
    std::uint32_t nameSize = 0;
};

/// The order of hits of one tier: applications, classes, procedures; then by age, in which 1,024
/// IDs count as equally old; then the shorter name; then the newer row.
bool ComesBefore(const FoundRow& a, const FoundRow& b);

/// In the order in which they are listed.
using FoundRows = std::vector<FoundRow>;

/// Finds the languages that a filter means: those of that name, else those whose names begin so.
void FindLanguages(QuickPlan& plan, PlannedTerm& term);

/// Finds out which rows a filter lets through, as long as they are few: a filter that lets many
/// through is cheaper to ask row by row.
std::unique_ptr<QuickWork> NarrowByFilter(QuickPlan& plan, std::size_t term);

/// Finds the keyword strings that hold a term, and the rows that have them, unless they are many.
std::unique_ptr<QuickWork> LookUpKeywords(QuickPlan& plan, std::size_t term);

/// Finds the names with the terms, and the hits by their names alone.
std::unique_ptr<QuickWork> FindByNames(QuickPlan& plan, FoundRows& found);

/// Finds the names of a block that are a slip away from a term.
void FindSlips(QuickPlan& plan, NameBlock& names, QuickKind kind, std::int32_t block);

/// Goes through the candidates of one tier, the newest first, and finds its hits. For comments and
/// codes, it also finds out which rows are candidates.
std::unique_ptr<QuickWork> FindByTier(QuickPlan& plan, QuickTier tier, FoundRows& found);

}  // namespace snippetarium
