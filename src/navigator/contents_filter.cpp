#include "navigator/contents_filter.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <utility>

#include "navigator/node.h"
#include "store/database.h"
#include "store/sql_text.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

/// A pattern that the text itself matches anywhere: no character of it is a wildcard.
std::string PatternOf(std::string_view text) {
    std::string pattern = "%";
    for (const char character : text) {
        const bool isWildcard = character == '%' || character == '_' || character == '[';
        if (isWildcard) pattern += '[';
        pattern += character;
        if (isWildcard) pattern += ']';
    }
    return SqlText(pattern + "%");
}

constexpr std::string_view kApplicationColumns = "a.appID, a.appName";
constexpr std::string_view kClassColumns = ", cls.classID, cls.className";
constexpr std::string_view kClassTables =
    " FROM tblClass cls INNER JOIN tblApplication a ON cls.appID = a.appID";
constexpr std::string_view kProcedureTables =
    " FROM (tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID)"
    " INNER JOIN tblApplication a ON cls.appID = a.appID";

/// Puts matches into their branches. A branch that fits itself takes no children: it has them all.
class Branches {
  public:
    void AddApplication(const Recordset& row) {
        Node& node = Find(row);
        node.isMatch = true;
        node.row.childCount = row["childCount"].Long();
    }
    void AddClass(const Recordset& row) {
        Node& application = Find(row);
        if (application.isMatch) return;
        Node& node = Find(application, row);
        node.isMatch = true;
        node.row.childCount = row["childCount"].Long();
    }
    void AddProcedure(const Recordset& row) {
        Node& application = Find(row);
        if (application.isMatch) return;
        Node& parent = Find(application, row);
        if (parent.isMatch) return;
        NodeIDs ids = parent.row.ids;
        ids.codeID = row["codeID"].Long();
        parent.Child(ids, row["codeName"].Text());
    }

    std::vector<FilteredBranch> Take() { return std::move(root_).Finish(); }

  private:
    struct Node {
        ContentsRow row;
        bool isMatch = false;
        std::map<NodeIDs, Node, bool (*)(const NodeIDs&, const NodeIDs&)> children{IsLess};

        Node& Child(const NodeIDs& ids, std::string_view text) {
            Node& child = children[ids];
            if (child.row.text.empty()) child.row = {.ids = ids, .text = std::string(text)};
            return child;
        }

        /// The children as branches, in the order of their names.
        std::vector<FilteredBranch> Finish() && {
            std::vector<FilteredBranch> branches;
            for (auto& [ids, node] : children)
                branches.push_back({std::move(node.row), std::move(node).Finish()});
            std::ranges::sort(branches,
                              [](const auto& a, const auto& b) { return Precedes(a.row, b.row); });
            return branches;
        }
    };

    static bool IsLess(const NodeIDs& a, const NodeIDs& b) {
        return std::tie(a.appID, a.classID, a.codeID) < std::tie(b.appID, b.classID, b.codeID);
    }

    static bool Precedes(const ContentsRow& a, const ContentsRow& b) {
        const bool isUndefined = a.ids == NodeIDs{.appID = kUndefinedApplicationID};
        const bool isOtherUndefined = b.ids == NodeIDs{.appID = kUndefinedApplicationID};
        if (isUndefined != isOtherUndefined) return isUndefined;
        const int order = CompareFolded(a.text, b.text);
        return order != 0 ? order < 0 : IsLess(a.ids, b.ids);
    }

    Node& Find(const Recordset& row) {
        const std::int32_t appID = row["appID"].Long();
        return root_.Child({.appID = appID}, appID == kUndefinedApplicationID
                                                 ? kUndefinedApplicationText
                                                 : row["appName"].Text());
    }
    static Node& Find(Node& application, const Recordset& row) {
        return application.Child(
            {.appID = application.row.ids.appID, .classID = row["classID"].Long()},
            row["className"].Text());
    }

    Node root_;
};

}  // namespace

FilteredContents ReadFiltered(Database& db, std::string_view text) {
    FilteredContents contents;
    Branches branches;
    const auto read = [&](const std::string& statement, auto add) {
        Recordset row = db.GetConnection().ExecuteSearch(
            Sql("SELECT TOP ", kMostFiltered + 1, " ", kApplicationColumns, statement));
        for (int count = 0; !row.EndOfFile(); row.MoveNext()) {
            if (++count > kMostFiltered) {
                contents.isCut = true;
                break;
            }
            (branches.*add)(row);
        }
    };
    const std::string pattern = PatternOf(text);
    read(Sql(", (SELECT count(*) FROM tblClass cls WHERE cls.appID = a.appID) AS childCount"
             " FROM tblApplication a WHERE a.appID > ",
             kUndefinedApplicationID, " AND a.appName LIKE ", pattern),
         &Branches::AddApplication);
    read(Sql(kClassColumns,
             ", (SELECT count(*) FROM tblCode cd WHERE cd.classID = cls.classID) AS childCount",
             kClassTables, " WHERE cls.className LIKE ", pattern),
         &Branches::AddClass);
    read(Sql(kClassColumns, ", cd.codeID, cd.codeName", kProcedureTables,
             " WHERE cd.codeName LIKE ", pattern),
         &Branches::AddProcedure);
    contents.applications = branches.Take();
    return contents;
}

}  // namespace snippetarium
