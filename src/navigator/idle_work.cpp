#include "navigator/idle_work.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "store/daily_backup.h"
#include "store/database.h"
#include "store/text_index.h"

namespace snippetarium {

namespace {

class Flag {
  public:
    explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flag() { flag_ = false; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

  private:
    bool& flag_;
};

}  // namespace

void IdleWork::Add(std::string name, Work work) {
    tasks_.push_back({std::move(name), std::move(work)});
}

void IdleWork::Step() {
    if (isStepping_ || tasks_.empty()) return;
    const Flag stepping(isStepping_);
    // Taken out of the list: what fails is not tried again, and the list may be cleared meanwhile.
    Task task = std::move(tasks_.front());
    tasks_.erase(tasks_.begin());
    current_ = task.name;
    wasCleared_ = false;
    const IdleStep result = task.work();
    current_.clear();
    if (result == IdleStep::MoreToDo && !wasCleared_)
        tasks_.insert(tasks_.begin(), std::move(task));
}

bool IdleWork::Has(std::string_view name) const {
    return (isStepping_ && current_ == name) ||
           std::ranges::find(tasks_, name, &Task::name) != tasks_.end();
}

std::string_view IdleWork::CurrentName() const {
    if (isStepping_) return current_;
    return tasks_.empty() ? std::string_view() : tasks_.front().name;
}

void IdleWork::Clear() {
    tasks_.clear();
    wasCleared_ = true;
}

void AddDailyBackup(IdleWork& idle, Database& db) {
    // Shared because a task can be copied; there is one.
    const auto backup = std::make_shared<DailyBackup>(db);
    idle.Add("Backing up",
             [backup] { return backup->Step() ? IdleStep::MoreToDo : IdleStep::Done; });
}

void AddTextIndexCare(IdleWork& idle, Database& db) {
    static constexpr std::string_view kName = "Indexing";
    if (db.IsReadOnly() || idle.Has(kName)) return;
    idle.Add(std::string(kName),
             [&db] { return TendTextIndex(db) ? IdleStep::MoreToDo : IdleStep::Done; });
}

}  // namespace snippetarium
