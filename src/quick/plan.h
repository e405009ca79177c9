#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/id_set.h"
#include "quick/levels.h"
#include "quick/name_match.h"
#include "quick/query.h"
#include "quick/slip.h"
#include "quick/word_pattern.h"

namespace snippetarium {

class Database;

/// The rows of each level that may have something. At first that is all of them. Then it becomes
/// known of whole levels; and before that, of one block after the other.
class CandidateRows {
  public:
    IdSet& Of(QuickKind kind) { return ids_[static_cast<std::size_t>(kind)]; }
    const IdSet& Of(QuickKind kind) const { return ids_[static_cast<std::size_t>(kind)]; }

    /// From now on, those that were added are all there are on this level.
    void Know(QuickKind kind) { known_.set(static_cast<std::size_t>(kind)); }
    void KnowAll() { known_.set(); }
    bool IsKnown(QuickKind kind) const { return known_.test(static_cast<std::size_t>(kind)); }
    /// Until another block is, this block is known even where the level is not.
    void KnowBlock(QuickKind kind, std::int32_t block, const BlockMask& rows) {
        Of(kind).Replace(block, rows);
        knownBlocks_[static_cast<std::size_t>(kind)] = block;
    }
    bool IsBlockKnown(QuickKind kind, std::int32_t block) const {
        return IsKnown(kind) || knownBlocks_[static_cast<std::size_t>(kind)] == block;
    }

    BlockMask Block(QuickKind kind, std::int32_t block) const {
        return IsBlockKnown(kind, block) ? Of(kind).Block(block) : ~BlockMask();
    }

  private:
    std::array<IdSet, kQuickKinds> ids_;
    QuickKindSet known_;
    std::array<std::optional<std::int32_t>, kQuickKinds> knownBlocks_;
};

/// A term of the entry with what is known of it so far.
///
/// What is known are candidates: all rows that have the term are among them, and maybe others. So
/// a row only counts when it has been read and looked at, whatever index named it.
struct PlannedTerm {
    explicit PlannedTerm(const QuickTerm& from);

    bool IsLookedForIn(QuickText text) const;
    CandidateRows& In(QuickText text) { return inText[static_cast<std::size_t>(text)]; }
    const CandidateRows& In(QuickText text) const { return inText[static_cast<std::size_t>(text)]; }

    QuickTerm term;
    /// Nothing for kinds and dates.
    std::optional<WordPattern> pattern;
    /// Nothing where a slip does not count.
    std::optional<SlipPattern> slip;
    /// Stands under a "not". Then rows are only asked whether they have it.
    bool isNegated = false;
    /// What has it also has a word that must not be there: in "stream -read", while "-re" is typed.
    /// So only a slip makes it a hit.
    bool isRuledOut = false;
    /// The languages that a filter means.
    std::vector<std::int32_t> languageIDs;
    /// The keyword strings that hold the term, where it was worth while to find them all.
    std::optional<IdSet> keywordIDs;
    std::array<CandidateRows, kQuickTexts> inText;
    CandidateRows bySlip;
    /// For a filter.
    CandidateRows byFilter;
};

/// The search words of the catalogue as one text, a blank between two. In their order, and with
/// where they begin.
struct SearchWords {
    struct Entry {
        std::int64_t id = 0;
        std::size_t begin = 0;
    };
    std::string words;
    std::vector<Entry> entries;
    bool areAllRead = false;
};

/// Some blocks of each level.
class BlockSet {
  public:
    void Add(QuickKind kind, std::int32_t block) {
        std::vector<bool>& blocks = blocks_[static_cast<std::size_t>(kind)];
        const auto index = static_cast<std::size_t>(block);
        if (index >= blocks.size()) blocks.resize(index + 1);
        blocks[index] = true;
    }
    bool Holds(QuickKind kind, std::int32_t block) const {
        const std::vector<bool>& blocks = blocks_[static_cast<std::size_t>(kind)];
        return static_cast<std::size_t>(block) < blocks.size() &&
               blocks[static_cast<std::size_t>(block)];
    }

  private:
    std::array<std::vector<bool>, kQuickKinds> blocks_;
};

/// What a search knows.
struct QuickPlan {
    QuickPlan(Database& database, const QuickQuery& query);

    /// True where some term that makes hits is looked for there.
    bool UsesText(QuickText text) const;
    bool UsesSlips() const;
    /// True where some term is looked for in names, also one under a "not".
    bool LooksAtNames() const;

    Database& db;
    QuickNode root;
    std::vector<PlannedTerm> terms;
    std::array<std::int32_t, kQuickKinds> newestBlock{};
    /// The blocks whose names have told all they can. Of others, rows may be candidates for a name
    /// that does not have the term, or that has what must not be there.
    BlockSet notedNames;
    /// The single words of all keywords, read for the first term that is looked for there.
    SearchWords searchWords;
};

/// The tier of what is found in a text, the worst one for names.
constexpr QuickTier TierOfText(QuickText text) {
    switch (text) {
        case QuickText::Name:
            return QuickTier::NamePart;
        case QuickText::Keyword:
            return QuickTier::Keyword;
        case QuickText::Comment:
            return QuickTier::Comment;
        case QuickText::Code:
            break;
    }
    return QuickTier::Code;
}

/// The rows of a block that may be hits when the texts up to this tier are looked at, and reach
/// exactly this tier. The tiers of names count as one.
BlockMask CandidatesOf(const QuickPlan& plan, QuickTier tier, QuickKind kind, std::int32_t block);

/// True where the entry can be met by filters alone.
bool CanBeMetByFilters(const QuickNode& node, const std::vector<PlannedTerm>& terms);

}  // namespace snippetarium
