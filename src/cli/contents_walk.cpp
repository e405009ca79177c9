#include "cli/contents_walk.h"

#include "cli/node_argument.h"
#include "navigator/contents_loading.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "support/error.h"

namespace snippetarium {

namespace {

std::int32_t CountOf(const std::vector<ContentsRow>& rows) {
    return static_cast<std::int32_t>(rows.size());
}

class Walk {
  public:
    Walk(Database& db, int levels, const VisitNode& visit)
        : db_(db), levels_(levels), visit_(visit) {}

    void Applications() {
        for (const ContentsRow& row : ReadApplicationRows(db_)) {
            if (row.ids.appID == kUndefinedApplicationID) {
                FromApplication(kUndefinedApplicationID);
            } else {
                Visit(row, 0);
                if (levels_ > 1) Classes(ReadClassRows(db_, row.ids.appID), 1);
            }
        }
    }

    /// False where there is no such node.
    bool From(const NodeIDs& top) {
        if (top.codeID != 0) return FromProcedure(top);
        if (top.classID != 0) return FromClass(top);
        return FromApplication(top.appID);
    }

  private:
    void Visit(const ContentsRow& row, int depth) {
        visit_({.ids = row.ids, .name = row.text, .childCount = row.childCount, .depth = depth});
    }

    bool FromApplication(std::int32_t appID) {
        const Recordset row = ApplicationRSByID(db_, appID);
        if (row.EndOfFile()) return false;
        const std::vector<ContentsRow> classes = ReadClassRows(db_, appID);
        const std::string name(appID == kUndefinedApplicationID ? kUndefinedApplicationText
                                                                : row["appName"].Text());
        Visit({.ids = {.appID = appID}, .text = name, .childCount = CountOf(classes)}, 0);
        if (levels_ > 1) Classes(classes, 1);
        return true;
    }

    bool FromClass(const NodeIDs& top) {
        const Recordset row = MiniClassRSByClassID(db_, top.classID);
        if (row.EndOfFile() || row["appID"].Long() != top.appID) return false;
        const std::vector<ContentsRow> procedures = ReadProcedureRows(db_, top);
        Visit({.ids = top,
               .text = std::string(row["className"].Text()),
               .childCount = CountOf(procedures)},
              0);
        if (levels_ > 1) Procedures(procedures, 1);
        return true;
    }

    bool FromProcedure(const NodeIDs& top) {
        const Recordset row = AppIDClassIDRSByCodeID(db_, top.codeID);
        if (row.EndOfFile()) return false;
        if (row["appID"].Long() != top.appID || row["classID"].Long() != top.classID) return false;
        Visit({.ids = top, .text = CodeNameByID(db_, top.codeID)}, 0);
        return true;
    }

    void Classes(const std::vector<ContentsRow>& classes, int depth) {
        for (const ContentsRow& row : classes) {
            Visit(row, depth);
            if (depth + 1 < levels_ && row.childCount > 0)
                Procedures(ReadProcedureRows(db_, row.ids), depth + 1);
        }
    }

    void Procedures(const std::vector<ContentsRow>& procedures, int depth) {
        for (const ContentsRow& row : procedures)
            Visit(row, depth);
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
