#include "cli/contents_walk.h"

#include "cli/node_argument.h"

#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "support/error.h"

namespace snippetarium {

namespace {

constexpr std::int32_t kUndefinedAppID = 1;
constexpr std::string_view kUndefinedAppName = "Application Undefined";

std::string NameOfApplication(std::int32_t appID, std::string name) {
    return appID == kUndefinedAppID ? std::string(kUndefinedAppName) : std::move(name);
}

std::int32_t RowCount(const Recordset& rows) {
    return static_cast<std::int32_t>(rows.RowCount());
}

class Walk {
  public:
    Walk(Database& db, int levels, const VisitNode& visit)
        : db_(db), levels_(levels), visit_(visit) {}

    void Applications() {
        if (UndefinedApplicationHoldsAnything()) FromApplication(kUndefinedAppID);
        for (Recordset row = AppWithClassCount(db_); !row.EndOfFile(); row.MoveNext()) {
            const ContentsNode node{
                .ids = {.appID = row["appID"].Long()},
                .name = row["appName"].Text(),
                .childCount = row["classCount"].Long(),
            };
            visit_(node);
            if (GoesBelow(node)) Classes(node, ClassWithCodeCountByAppID(db_, node.ids.appID));
        }
    }

    /// False where there is no such node.
    bool From(const NodeIDs& top) {
        if (top.codeID != 0) return FromProcedure(top);
        if (top.classID != 0) return FromClass(top);
        return FromApplication(top.appID);
    }

  private:
    bool GoesBelow(const ContentsNode& node) const { return node.depth + 1 < levels_; }

    bool UndefinedApplicationHoldsAnything() {
        for (Recordset row = UnAppWithCount(db_); !row.EndOfFile(); row.MoveNext()) {
            if (row["countChild"].Long() > 0) return true;
        }
        return false;
    }

    bool FromApplication(std::int32_t appID) {
        const Recordset row = ApplicationRSByID(db_, appID);
        if (row.EndOfFile()) return false;
        Recordset classes = ClassWithCodeCountByAppID(db_, appID);
        const ContentsNode node{
            .ids = {.appID = appID},
            .name = NameOfApplication(appID, row["appName"].Text()),
            .childCount = RowCount(classes),
        };
        visit_(node);
        if (GoesBelow(node)) Classes(node, std::move(classes));
        return true;
    }

    bool FromClass(const NodeIDs& top) {
        const Recordset row = MiniClassRSByClassID(db_, top.classID);
        if (row.EndOfFile() || row["appID"].Long() != top.appID) return false;
        Recordset procedures = CodeIDCodeNameByClassID(db_, top.classID);
        const ContentsNode node{
            .ids = top,
            .name = row["className"].Text(),
            .childCount = RowCount(procedures),
        };
        visit_(node);
        if (GoesBelow(node)) Procedures(node, std::move(procedures));
        return true;
    }

    bool FromProcedure(const NodeIDs& top) {
        const Recordset row = AppIDClassIDRSByCodeID(db_, top.codeID);
        if (row.EndOfFile()) return false;
        if (row["appID"].Long() != top.appID || row["classID"].Long() != top.classID) return false;
        visit_({.ids = top, .name = CodeNameByID(db_, top.codeID)});
        return true;
    }

    void Classes(const ContentsNode& parent, Recordset row) {
        for (; !row.EndOfFile(); row.MoveNext()) {
            const ContentsNode node{
                .ids = {.appID = parent.ids.appID, .classID = row["classID"].Long()},
                .name = row["className"].Text(),
                .childCount = row["codeCount"].Long(),
                .depth = parent.depth + 1,
            };
            visit_(node);
            if (!GoesBelow(node) || node.childCount == 0) continue;
            Procedures(node, CodeIDCodeNameByClassID(db_, node.ids.classID));
        }
    }

    void Procedures(const ContentsNode& parent, Recordset row) {
        for (; !row.EndOfFile(); row.MoveNext()) {
            NodeIDs ids = parent.ids;
            ids.codeID = row["codeID"].Long();
            visit_({.ids = ids, .name = row["codeName"].Text(), .depth = parent.depth + 1});
        }
    }

    Database& db_;
    int levels_;
    const VisitNode& visit_;
};

}  // namespace

NodeKind ContentsNode::Kind() const {
    return KindOf(ids);
}

std::string ContentsNode::Key() const {
    return KeyOf(ids);
}

void WalkContents(Database& db, int levels, const VisitNode& visit) {
    Walk(db, levels, visit).Applications();
}

void WalkContentsFrom(Database& db, const NodeIDs& top, int levels, const VisitNode& visit) {
    if (Walk(db, levels, visit).From(top)) return;
    throw Error(error_number::kInvalidCall,
                "The catalogue has no '" + ContentsNode{.ids = top}.Key() + "'.");
}

}  // namespace snippetarium
