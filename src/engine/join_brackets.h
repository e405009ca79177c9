#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "engine/sql_tokens.h"

namespace snippetarium {

/// Watches the brackets of a statement while it is translated, and blanks out those that only say
/// in which order joins are made, directly behind FROM:
///
///     FROM ((a INNER JOIN b ON x) INNER JOIN c ON y) INNER JOIN d ON z
///     FROM   a INNER JOIN b ON x  INNER JOIN c ON y  INNER JOIN d ON z
///
/// Joins are made from left to right anyway, so the two mean the same; but each open bracket keeps
/// the engine's parser waiting with a part of its small stack, and searches for many words open
/// many. All others stay: around a sub-select, behind JOIN or a comma, in an expression, and around
/// joins that bear a name.
class JoinBrackets {
  public:
    /// Takes note of the next token, whose text has just been appended to `sql`; the End token
    /// last. Throws EngineError: Syntax for a bracket without its partner, QueryTooComplex where
    /// more than 100 are open.
    void Read(const SqlToken& token, std::string& sql);

    /// How many brackets are open, blanked ones included.
    std::size_t Depth() const { return open_.size(); }

  private:
    struct Open {
        std::size_t statementOffset;
        std::size_t sqlOffset;
        bool holdsJoins;
    };
    struct Pair {
        std::size_t opener;
        std::size_t closer;
    };

    void SettleClosedPair(const SqlToken& next, std::string& sql);
    void ReadOpener(const SqlToken& token, std::size_t sqlOffset);
    void ReadCloser(const SqlToken& token, std::size_t sqlOffset);

    std::vector<Open> open_;
    std::optional<Pair> closed_;  // around joins, if the next token agrees
    SqlToken previous_;
    bool isBehindFrom_ = false;  // or behind an opener that is
};

}  // namespace snippetarium
