#include "navigator/status_text.h"

#include "navigator/node.h"
#include "store/database.h"
#include "support/guard.h"
#include "support/text.h"

namespace snippetarium {

namespace {

std::string CountText(Database& db, const std::string& sql, std::string_view one,
                      std::string_view many) {
    const auto count = static_cast<std::size_t>(ScalarLong(db, sql));
    return Grouped(count) + " " + std::string(count == 1 ? one : many);
}

}  // namespace

std::string PathText(Database& db, const NodeIDs& node) {
    return Guarded(db.Reporter(), Procedure::PathText, [&] {
        std::string path;
        for (NodeIDs at = node; at != NodeIDs{}; at = ParentOf(at))
            path = NameOfNode(db, at) + (path.empty() ? "" : " > ") + path;
        return path;
    });
}

std::string CountsText(Database& db) {
    return Guarded(db.Reporter(), Procedure::CountsText, [&] {
        // Without the two rows that only take in what belongs nowhere.
        return CountText(db, "SELECT count(*) FROM tblApplication WHERE appID > 1", "application",
                         "applications") +
               ", " +
               CountText(db, "SELECT count(*) FROM tblClass WHERE classID > 1", "class",
                         "classes") +
               ", " + CountText(db, "SELECT count(*) FROM tblCode", "procedure", "procedures");
    });
}

}  // namespace snippetarium
