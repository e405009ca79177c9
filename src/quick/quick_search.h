#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quick/levels.h"
#include "quick/matching_line.h"
#include "quick/name_match.h"
#include "quick/query.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

/// One application, class or procedure that was found.
struct QuickHit {
    QuickKind kind = QuickKind::Application;
    QuickTier tier = QuickTier::ExactName;
    /// With the IDs of what it belongs to.
    NodeIDs ids;
    /// Names below the hit's level are empty.
    std::string appName;
    std::string className;
    std::string procedureName;
    /// Its place in the contents tree: "a12f34c56".
    std::string key;
    /// What was found in its own name.
    std::vector<ByteRange> nameMatches;
    /// The line of its keywords, comment or code in which it was found. For a name: the first line
    /// of the code that has it. Number 0 where there is none.
    MatchingLine line;
    QuickText lineOf = QuickText::Code;

    /// The name on the hit's own level.
    const std::string& Name() const;
};

/// A search for everything at once (see quick/query.h for its language), made in small steps on the
/// caller's thread, so that it can be given up at every keystroke.
///
///     QuickSearch search(db, "draw grid");
///     while (search.Step()) Show(search.Hits());
///
/// Hits come in the order in which they are to be listed, best first: what is there once never
/// moves. It may be dropped between any two steps, and the catalogue may change then: whether a
/// change that is made meanwhile is seen is left open, but no hit is of a row that was gone when it
/// was read.
class QuickSearch {
  public:
    static constexpr std::size_t kFirstHits = 100;

    /// Any entry is good: what is unfinished or makes no sense is left out. The database must
    /// outlive the search; closing it ends the search.
    QuickSearch(Database& db, std::string_view entry, std::size_t wantedHits = kFirstHits);
    ~QuickSearch();
    QuickSearch(const QuickSearch&) = delete;
    QuickSearch& operator=(const QuickSearch&) = delete;

    /// Works for some milliseconds, at most about ten. False when all is found. A failure is
    /// reported and ends the search.
    bool Step();

    /// The first hits, as many as are wanted.
    const std::vector<QuickHit>& Hits() const { return hits_; }
    /// Reads more of the hits with the next step, also when all is found.
    void WantMore(std::size_t hits) { wanted_ += hits; }
    /// How many were found so far; they are counted on beyond those wanted.
    std::size_t FoundCount() const;
    /// How many there are, once it is known.
    std::optional<std::size_t> Total() const;

    /// What is wrong with the entry, for one that is meant to be finished.
    const std::vector<QuickProblem>& Problems() const { return query_.problems; }

  private:
    struct State;

    void Prepare();
    bool DoSomeWork();
    bool HasUnreadHits() const;
    void ReadNextHit();

    Database& db_;
    QuickQuery query_;
    std::size_t wanted_;
    bool hasFailed_ = false;
    std::unique_ptr<State> state_;
    std::vector<QuickHit> hits_;
};

}  // namespace snippetarium
