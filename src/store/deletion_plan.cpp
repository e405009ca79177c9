#include "store/deletion_plan.h"

#include <algorithm>

namespace snippetarium {

namespace {

class Runner {
  public:
    Runner(const DeletionPlan& plan, const OnProgress& onProgress) : onProgress_(onProgress) {
        for (const Stage& stage : plan.links)
            total_ += stage.weight;
        for (const Stage& stage : plan.rows)
            total_ += stage.weight;
    }

    bool Run(const Stage& stage) {
        const bool isDone = stage.run([&](double share) { Show(done_ + share * stage.weight); });
        done_ += stage.weight;
        Show(done_);
        return isDone;
    }

  private:
    void Show(double done) const {
        if (onProgress_) onProgress_(done / total_);
    }

    const OnProgress& onProgress_;
    double total_ = 0.0;
    double done_ = 0.0;
};

}  // namespace

bool RunPlan(const DeletionPlan& plan, const OnProgress& onProgress) {
    Runner runner(plan, onProgress);
    bool areLinksGone = true;
    for (const Stage& stage : plan.links)
        areLinksGone = runner.Run(stage) && areLinksGone;
    const bool areRowsGone =
        std::ranges::all_of(plan.rows, [&](const Stage& stage) { return runner.Run(stage); });
    return areLinksGone && areRowsGone;
}

}  // namespace snippetarium
