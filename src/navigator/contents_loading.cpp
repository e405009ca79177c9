#include "navigator/contents_loading.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "navigator/node.h"
#include "store/database.h"
#include "store/job_progress.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "support/busy_pointer.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

constexpr std::size_t kBatch = 1'000;
/// A load that is done by then lets no events run: nothing has to wait for it.
constexpr std::chrono::milliseconds kUnnoticed{100};

/// Adds rows below a node, and stops when the node or the catalogue is gone.
class BatchLoading {
  public:
    BatchLoading(Database& db, ContentsTree& tree, const NodeIDs& parent)
        : db_(db),
          tree_(tree),
          parent_(parent),
          progress_(db.GetHost(), "Loading contents , please wait...",
                    JobProgress::Cancelling::Impossible),
          start_(db.GetHost().clock.Steady()) {}

    void Run(std::vector<ContentsRow> rows) {
        for (std::size_t begin = 0; begin < rows.size(); begin += kBatch) {
            ContentsItem* const parent = tree_.Find(parent_);
            if (!parent && parent_ != NodeIDs{}) return;
            const std::size_t end = std::min(begin + kBatch, rows.size());
            const auto from = rows.begin() + static_cast<std::ptrdiff_t>(begin);
            const auto to = rows.begin() + static_cast<std::ptrdiff_t>(end);
            tree_.Append(parent, {std::make_move_iterator(from), std::make_move_iterator(to)});
            LetEventsRun(static_cast<double>(end) / static_cast<double>(rows.size()));
            if (!db_.GetConnection().IsOpen()) return;
        }
    }

  private:
    void LetEventsRun(double share) {
        if (db_.GetHost().clock.Steady() - start_ > kUnnoticed) progress_.Show(share);
    }

    Database& db_;
    ContentsTree& tree_;
    NodeIDs parent_;
    JobProgress progress_;
    std::chrono::steady_clock::time_point start_;
};

std::optional<ContentsRow> UndefinedApplicationRow(Database& db) {
    for (Recordset row = UnAppWithCount(db); !row.EndOfFile(); row.MoveNext()) {
        if (row["countChild"].Long() > 0) {
            return ContentsRow{.ids = {.appID = kUndefinedApplicationID},
                               .text = std::string(kUndefinedApplicationText),
                               .childCount = row["countChild"].Long()};
        }
    }
    return std::nullopt;
}

std::vector<ContentsRow> ReadOtherApplications(Database& db) {
    Recordset row = AppWithClassCount(db);
    std::vector<ContentsRow> rows;
    rows.reserve(row.RowCount());
    for (; !row.EndOfFile(); row.MoveNext()) {
        rows.push_back({.ids = {.appID = row["appID"].Long()},
                        .text = std::string(row["appName"].Text()),
                        .childCount = row["classCount"].Long()});
    }
    return rows;
}

}  // namespace

std::vector<ContentsRow> ReadApplicationRows(Database& db) {
    std::vector<ContentsRow> rows = ReadOtherApplications(db);
    if (auto undefined = UndefinedApplicationRow(db))
        rows.insert(rows.begin(), std::move(*undefined));
    return rows;
}

std::vector<ContentsRow> ReadClassRows(Database& db, std::int32_t appID) {
    Recordset row = ClassWithCodeCountByAppID(db, appID);
    std::vector<ContentsRow> rows;
    rows.reserve(row.RowCount());
    for (; !row.EndOfFile(); row.MoveNext()) {
        rows.push_back({.ids = {.appID = appID, .classID = row["classID"].Long()},
                        .text = std::string(row["className"].Text()),
                        .childCount = row["codeCount"].Long()});
    }
    return rows;
}

std::vector<ContentsRow> ReadProcedureRows(Database& db, const NodeIDs& parent) {
    Recordset row = CodeIDCodeNameByClassID(db, parent.classID);
    std::vector<ContentsRow> rows;
    rows.reserve(row.RowCount());
    for (; !row.EndOfFile(); row.MoveNext()) {
        NodeIDs ids = parent;
        ids.codeID = row["codeID"].Long();
        rows.push_back({.ids = ids, .text = std::string(row["codeName"].Text())});
    }
    return rows;
}

void LoadContents(Database& db, ContentsTree& tree, const ContentsLoading& loading) {
    Guarded(db.Reporter(), Procedure::LoadContents, [&] {
        std::optional<BusyPointer> busy;
        if (loading.isPaneShown) busy.emplace(db.GetHost().events);
        tree.Clear();
        LoadUndefinedApplication(db, tree);
        LoadApplications(db, tree);
        if (loading.loadIndex && db.GetConnection().IsOpen()) loading.loadIndex();
    });
}

void LoadUndefinedApplication(Database& db, ContentsTree& tree) {
    Guarded(db.Reporter(), Procedure::LoadUndefinedApplication, [&] {
        if (auto row = UndefinedApplicationRow(db)) tree.Append(nullptr, {std::move(*row)});
    });
}

void LoadApplications(Database& db, ContentsTree& tree) {
    Guarded(db.Reporter(), Procedure::LoadApplications,
            [&] { BatchLoading(db, tree, {}).Run(ReadOtherApplications(db)); });
}

void LoadClasses(Database& db, ContentsTree& tree, std::int32_t appID) {
    Guarded(db.Reporter(), Procedure::LoadClasses,
            [&] { BatchLoading(db, tree, {.appID = appID}).Run(ReadClassRows(db, appID)); });
}

void LoadProcedures(Database& db, ContentsTree& tree, std::int32_t appID, std::int32_t classID) {
    Guarded(db.Reporter(), Procedure::LoadProcedures, [&] {
        const NodeIDs parent{.appID = appID, .classID = classID};
        BatchLoading(db, tree, parent).Run(ReadProcedureRows(db, parent));
    });
}

}  // namespace snippetarium
