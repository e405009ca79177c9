#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class Database;

enum class IdleStep { MoreToDo, Done };

/// Work that waits until the user does nothing: the main window's timer calls Step again and again.
///
///     idle.Add("Indexing", [&] { return TendTextIndex(db) ? IdleStep::MoreToDo : IdleStep::Done;
///     });
class IdleWork {
  public:
    using Work = std::function<IdleStep()>;

    /// `name` is what the status bar says meanwhile. A step is to take a few milliseconds, where
    /// the work can be divided so; it reports its failures itself.
    void Add(std::string name, Work work);
    /// Whether work of that name waits or is being done.
    bool Has(std::string_view name) const;
    /// Does one step of the work that was added first. Does nothing inside another step, which may
    /// let events run.
    void Step();
    bool IsDone() const { return tasks_.empty() && !isStepping_; }
    /// Of the work that is being done or is next; empty where there is none.
    std::string_view CurrentName() const;
    /// The rest is not done: the program ends.
    void Clear();

  private:
    struct Task {
        std::string name;
        Work work;
    };

    std::vector<Task> tasks_;
    std::string current_;
    bool isStepping_ = false;
    bool wasCleared_ = false;
};

/// The first backup of the day. It reads the catalogue's file in the background until it is done or
/// the work is cleared.
void AddDailyBackup(IdleWork& idle, Database& db);

/// What the index of texts has to take in and to merge. To be added at the start and after each
/// change of the catalogue; does nothing where it is added already.
void AddTextIndexCare(IdleWork& idle, Database& db);

}  // namespace snippetarium
