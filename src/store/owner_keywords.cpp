#include "store/owner_keywords.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "store/database.h"
#include "store/deletion_stage.h"
#include "store/reads_keywords.h"
#include "store/sql_text.h"

namespace snippetarium {

namespace {

/// A SELECT of keyword IDs: what stands before the owner's ID, and behind it.
struct KeywordSet {
    std::string_view before;
    std::string_view after = "";

    std::string Of(std::int32_t ownerID) const { return Sql(before, ownerID, after); }
};

/// How many links or keyword strings are left.
using CountRead = std::int32_t (*)(Database&, std::int32_t ownerID);

/// The keyword strings of the owners on one level. Where no count is known, one deletion has to do.
struct KeywordPass {
    KeywordSet links;
    KeywordSet rows;
    CountRead countLinks = nullptr;
    CountRead countRows = nullptr;
};

// clang-format off
constexpr KeywordPass kProceduresOfApplication = {
    {"SELECT cd.keywordID FROM tblCode cd INNER JOIN tblClass cl ON cd.classID = cl.classID WHERE cd.keywordID is not null AND cl.appID = "},
    {"SELECT k.keywordID FROM (tblKeyword k INNER JOIN tblCode cd ON k.keywordID = cd.keywordID) INNER JOIN tblClass cls ON cd.classID = cls.classID WHERE cls.appID ="},
    CountCodeKeywordLinksByAppID, CountCodeKeywordsByAppID};
constexpr KeywordPass kClassesOfApplication = {
    {"SELECT keywordID FROM tblClass WHERE keywordID IS NOT NULL AND appID = "},
    {"SELECT k.keywordID FROM tblKeyword k INNER JOIN tblClass cls ON k.keywordID = cls.keywordID WHERE cls.appID = "},
    CountClassKeywordLinksByAppID, CountClassKeywordsByAppID};
constexpr KeywordSet kApplicationsOwn = {"SELECT KeywordID FROM tblApplication WHERE appID = ", " AND keywordID IS NOT NULL"};
constexpr KeywordPass kProceduresOfClass = {
    {"SELECT kl.keywordID FROM tblKeyword_link_searchWord kl INNER JOIN tblCode cd ON kl.keywordID = cd.keywordID WHERE cd.classID = "},
    {"SELECT k.keywordID FROM tblKeyword k INNER JOIN tblCode cd ON k.keywordID = cd.keywordID WHERE cd.classID = "},
    CountCodeKeywordLinksByClassID, CountCodeKeywordsByClassID};
constexpr KeywordSet kClassesOwn = {"SELECT KeywordID FROM tblClass WHERE classID = ", " AND keywordID IS NOT NULL"};
constexpr KeywordSet kProceduresOwn = {"SELECT KeywordID FROM tblCode WHERE codeID = "};

constexpr std::array kPassesOfApplication = {kProceduresOfApplication, kClassesOfApplication, KeywordPass{kApplicationsOwn, kApplicationsOwn}};
constexpr std::array kPassesOfClass = {kProceduresOfClass, KeywordPass{kClassesOwn, kClassesOwn}};
constexpr std::array kPassesOfProcedure = {KeywordPass{kProceduresOwn, kProceduresOwn}};
// clang-format on

std::span<const KeywordPass> PassesOf(OwnerKind kind) {
    switch (kind) {
        case OwnerKind::Application:
            return kPassesOfApplication;
        case OwnerKind::Class:
            return kPassesOfClass;
        case OwnerKind::Procedure:
            break;
    }
    return kPassesOfProcedure;
}

/// Repeats a DELETE until nothing is left. A count that never comes down, because the rows it
/// counts are not those that the statement deletes, must not keep the program busy for ever: a
/// DELETE that finds nothing ends it too.
void DeleteWhileAnyIsLeft(Database& db, const std::string& statement, CountRead count,
                          std::int32_t ownerID) {
    while (ExecuteSQL(db, statement) > 0 && count != nullptr && count(db, ownerID) >= 1) {
    }
}

constexpr std::size_t kStepsOfPass = 4;

void RunPass(Database& db, const KeywordPass& pass, std::int32_t ownerID, StepCounter& steps) {
    const std::string links = pass.links.Of(ownerID);
    ExecuteSQL(db, Sql("INSERT INTO tblIDsToDelete SELECT searchWordID AS ID FROM "
                       "tblKeyword_link_searchWord WHERE keywordID IN(",
                       links, ")"));
    steps.Count();
    DeleteWhileAnyIsLeft(
        db, Sql("DELETE FROM tblKeyword_link_searchWord WHERE keywordID IN (", links, ")"),
        pass.countLinks, ownerID);
    steps.Count();
    DeleteWhileAnyIsLeft(
        db, Sql("DELETE FROM tblKeyword WHERE keywordID IN (", pass.rows.Of(ownerID), ")"),
        pass.countRows, ownerID);
    steps.Count();
    ExecuteSQL(db,
               "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT searchWordID FROM "
               "tblKeyword_link_searchWord)");
    ExecuteSQL(db,
               "DELETE FROM tblSearchWord WHERE searchWordID IN (SELECT ID FROM tblIDsToDelete)");
    ExecuteSQL(db, "DELETE FROM tblIDsToDelete");
    steps.Count();
}

}  // namespace

bool DeleteOwnerKeywords(Database& db, const Owner& owner, const OnProgress& onProgress) {
    return RunStage(db, Procedure::DeleteOwnerKeywords, [&] {
        const auto passes = PassesOf(owner.kind);
        StepCounter steps(kStepsOfPass * passes.size(), onProgress);
        for (const KeywordPass& pass : passes)
            RunPass(db, pass, owner.id, steps);
        return true;
    });
}

}  // namespace snippetarium
