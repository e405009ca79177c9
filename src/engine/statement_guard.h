#pragma once

#include <cstdint>
#include <string_view>

struct sqlite3;

namespace snippetarium {

// What a statement may do.
//
// Search terms reach the statement texts as they were typed, quotes included: that is how the
// search language of this catalogue works. So a typed term can end its literal and go on in SQL, by
// accident or on purpose. The translator lets only one statement of a known verb through; this
// guard sees what the engine then makes of it and refuses whatever a search has no business with:
// system tables, functions that leak or load, writes, other files.

enum class StatementPurpose : std::uint8_t {
    /// The engine's own housekeeping: nothing is refused.
    Internal,
    /// Reads that the program words itself.
    Query,
    /// Reads that hold typed text.
    Search,
    /// INSERT, UPDATE and DELETE, with the triggers they set off.
    Action,
    /// ALTER TABLE.
    Alter,
};

/// Watches over everything that is prepared on one database. Must live as long as the database.
class StatementGuard {
  public:
    StatementGuard() = default;
    StatementGuard(const StatementGuard&) = delete;
    StatementGuard& operator=(const StatementGuard&) = delete;

    /// Also turns off the library's features that this program never needs and sets its limits.
    void Install(sqlite3* database);

    /// While it lives, what is prepared is judged by this purpose.
    class Scope {
      public:
        Scope(StatementGuard& guard, StatementPurpose purpose)
            : guard_(guard), previous_(guard.purpose_) {
            guard_.purpose_ = purpose;
        }
        ~Scope() { guard_.purpose_ = previous_; }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

      private:
        StatementGuard& guard_;
        StatementPurpose previous_;
    };

    /// The library's question: may a statement do this? The texts are "" where there is none.
    bool Allows(int action, std::string_view first, std::string_view second) const;

  private:
    StatementPurpose purpose_ = StatementPurpose::Internal;
};

}  // namespace snippetarium
