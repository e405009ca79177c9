#include "store/deletion.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "store/author_links.h"
#include "store/class_markers.h"
#include "store/database.h"
#include "store/date_links.h"
#include "store/deletion_plan.h"
#include "store/deletion_progress.h"
#include "store/deletion_stage.h"
#include "store/emptied_classes.h"
#include "store/owner_keywords.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_languages.h"
#include "store/reads_procedures.h"
#include "store/sql_text.h"
#include "store/trash.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// Owners of one kind, as the statements name them.
struct OwnerSet {
    OwnerKind kind = OwnerKind::Application;
    /// What stands between the brackets of IN.
    std::string ids = {};
    /// The same as a condition of the queries that look for their links.
    std::string condition = {};
};

OwnerSet Single(const Owner& owner) {
    return {owner.kind, std::to_string(owner.id), Sql("ownerID = ", owner.id)};
}

OwnerSet ProceduresOfClass(std::int32_t classID) {
    return {OwnerKind::Procedure, Sql("SELECT codeID FROM tblCode WHERE classID =", classID),
            Sql("ownerID IN     (SELECT codeID FROM tblCode      WHERE classID = ", classID, ")")};
}

OwnerSet ClassesOfApplication(std::int32_t appID) {
    return {OwnerKind::Class, Sql("SELECT classID FROM tblClass WHERE appID =", appID),
            Sql("ownerID IN     (SELECT classID FROM tblClass      WHERE appID = ", appID, ")")};
}

OwnerSet ProceduresOfApplication(std::int32_t appID) {
    return {OwnerKind::Procedure,
            Sql("SELECT cd.codeID FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = "
                "cls.classID WHERE cls.appID = ",
                appID),
            Sql("ownerID IN     (SELECT codeID FROM tblCode      WHERE classID IN         "
                "(SELECT classID FROM tblClass          WHERE appID = ",
                appID, "))")};
}

/// Deleting keyword strings and procedures takes longer than the links to authors and dates.
constexpr double kKeywordWeight = 6.0;
constexpr double kCodeWeight = 3.0;

bool HasLinks(Database& db, std::string_view idColumn, std::string_view linkTable,
              const OwnerSet& owners) {
    return RecordExists(db, Sql("SELECT ", idColumn, " FROM ", linkTable, " WHERE ",
                                owners.condition, " AND ownerTableID = ", owners.kind));
}

Stage AuthorStage(Database& db, const OwnerSet& owners, double weight = 1.0) {
    const auto run = [&db, owners](const OnProgress&) {
        return RunStage(db, Procedure::RemoveAuthorLinks, [&] {
            return !HasLinks(db, "authorID", "tbl_Author_Link", owners) ||
                   RemoveAuthorLinks(db, owners.kind, owners.ids);
        });
    };
    return {run, weight};
}

Stage DateStage(Database& db, const OwnerSet& owners, double weight = 1.0) {
    const auto run = [&db, owners](const OnProgress&) {
        return RunStage(db, Procedure::RemoveDateLinks, [&] {
            return !HasLinks(db, "dateID", "tbl_date_link", owners) ||
                   RemoveDateLinks(db, owners.kind, owners.ids);
        });
    };
    return {run, weight};
}

Stage KeywordStage(Database& db, const Owner& owner, double weight) {
    const auto run = [&db, owner](const OnProgress& onProgress) {
        return DeleteOwnerKeywords(db, owner, onProgress);
    };
    return {run, weight};
}

/// The languages whose procedures an import always leaves a marker for.
bool HasMarkerForSure(std::int32_t languageID) {
    static constexpr std::int32_t kLanguages[] = {2, 4, 5, 6, 7, 9};
    return std::ranges::find(kLanguages, languageID) != std::end(kLanguages);
}

Stage MarkerStage(Database& db, std::int32_t codeID) {
    return {[&db, codeID](const OnProgress&) {
        return RunStage(db, Procedure::TakeMarkerOut, [&] {
            if (HasMarkerForSure(LanguageIDByCodeID(db, codeID))) TakeMarkerOut(db, codeID);
            return true;
        });
    }};
}

Stage CodeStage(Database& db, const std::string& codeIDs, double weight) {
    const auto run = [&db, codeIDs](const OnProgress& onProgress) {
        return DeleteCodes(db, codeIDs, onProgress);
    };
    return {run, weight};
}

Stage ClassStage(Database& db, const std::string& classIDs) {
    return {[&db, classIDs](const OnProgress&) { return DeleteClasses(db, classIDs); }};
}

Stage ApplicationStage(Database& db, std::int32_t appID) {
    return {[&db, appID](const OnProgress&) {
        return RunStage(db, Procedure::DeleteApplications, [&] {
            // Should somebody have moved the undefined class, it does not go down with its place.
            if (AppIDByClassID(db, kUndefinedClassID) == appID) {
                ExecuteSQL(db, Sql("UPDATE tblClass SET appID = ", kUndefinedApplicationID,
                                   " WHERE classID = ", kUndefinedClassID));
            }
            return DeleteApplications(db, std::to_string(appID));
        });
    }};
}

DeletionPlan PlanForCode(Database& db, std::int32_t codeID) {
    const Owner owner{OwnerKind::Procedure, codeID};
    return {{},
            {KeywordStage(db, owner, kKeywordWeight), AuthorStage(db, Single(owner)),
             DateStage(db, Single(owner)), MarkerStage(db, codeID)},
            {CodeStage(db, std::to_string(codeID), kCodeWeight)}};
}

DeletionPlan PlanForClass(Database& db, std::int32_t classID) {
    const Owner owner{OwnerKind::Class, classID};
    const OwnerSet procedures = ProceduresOfClass(classID);
    DeletionPlan plan{
        std::to_string(classID),
        {KeywordStage(db, owner, kKeywordWeight), AuthorStage(db, procedures),
         AuthorStage(db, Single(owner)), DateStage(db, procedures), DateStage(db, Single(owner))},
        {CodeStage(db, procedures.ids, kCodeWeight)}};
    if (classID > kUndefinedClassID) plan.rows.push_back(ClassStage(db, std::to_string(classID)));
    return plan;
}

DeletionPlan PlanForApplication(Database& db, std::int32_t appID) {
    const Owner owner{OwnerKind::Application, appID};
    const OwnerSet procedures = ProceduresOfApplication(appID);
    const OwnerSet classes = ClassesOfApplication(appID);
    // The more procedures there are, the less the rest counts.
    const double many = 1.0 + CountCodeByAppID(db, appID);
    DeletionPlan plan{
        classes.ids,
        {KeywordStage(db, owner, kKeywordWeight * many), AuthorStage(db, procedures, many),
         AuthorStage(db, classes), AuthorStage(db, Single(owner)), DateStage(db, procedures, many),
         DateStage(db, classes), DateStage(db, Single(owner))},
        {CodeStage(db, procedures.ids, kCodeWeight * many),
         ClassStage(db, Sql(classes.ids, " AND classID > ", kUndefinedClassID))}};
    if (appID > kUndefinedApplicationID) plan.rows.push_back(ApplicationStage(db, appID));
    return plan;
}

bool Exists(Database& db, const Owner& owner) {
    switch (owner.kind) {
        case OwnerKind::Application:
            return !ApplicationRSByID(db, owner.id).EndOfFile();
        case OwnerKind::Class:
            return !ClassDICommentLanIDByID(db, owner.id).EndOfFile();
        case OwnerKind::Procedure:
            break;
    }
    return !CodeByID(db, owner.id).EndOfFile();
}

bool Run(Database& db, const DeletionPlan& plan, const OnProgress& onProgress) {
    const auto deletion = [&] { return RunPlan(plan, onProgress); };
    if (plan.emptiedClasses.empty()) return deletion();
    return EmptyClasses(db, plan.emptiedClasses, deletion);
}

/// A deletion that the user sees.
void Delete(Database& db, const Owner& owner, const DeletionPlan& plan) {
    if (!Exists(db, owner)) return;
    BulkWriting writing(db.GetConnection());
    DeletionProgress progress(db.GetHost());
    KeepInTrash(db, owner);
    Run(db, plan, [&](double share) { progress.Show(share); });
    FinishWriting(db, writing);
}

}  // namespace

void DeleteCode(Database& db, std::int32_t codeID) {
    Guarded(db.Reporter(), Procedure::DeleteCode, [&] {
        Delete(db, {OwnerKind::Procedure, codeID}, PlanForCode(db, codeID));
    });
}

void DeleteClass(Database& db, std::int32_t classID) {
    Guarded(db.Reporter(), Procedure::DeleteClass, [&] {
        Delete(db, {OwnerKind::Class, classID}, PlanForClass(db, classID));
    });
}

void DeleteApplication(Database& db, std::int32_t appID) {
    Guarded(db.Reporter(), Procedure::DeleteApplication, [&] {
        Delete(db, {OwnerKind::Application, appID}, PlanForApplication(db, appID));
    });
}

bool DeleteClassQuietly(Database& db, std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::DeleteClassQuietly,
                   [&] { return Run(db, PlanForClass(db, classID), {}); });
}

bool DeleteCodeQuietly(Database& db, std::int32_t codeID) {
    return Guarded(db.Reporter(), Procedure::DeleteCode,
                   [&] { return Run(db, PlanForCode(db, codeID), {}); });
}

bool DeleteCodes(Database& db, std::string_view codeIDs, const OnProgress& onProgress) {
    return RunStage(db, Procedure::DeleteCodes, [&] {
        static constexpr std::string_view kTables[] = {"tblCode_Link_Language", "tblFavorite",
                                                       "tblCode"};
        StepCounter steps(std::size(kTables), onProgress);
        for (const std::string_view table : kTables) {
            ExecuteSQL(db, Sql("DELETE FROM ", table, " WHERE codeID IN (", codeIDs, ")"));
            steps.Count();
        }
        return true;
    });
}

bool DeleteClasses(Database& db, std::string_view classIDs) {
    return RunStage(db, Procedure::DeleteClasses, [&] {
        ExecuteSQL(db, Sql("DELETE FROM tblClass WHERE classID IN (", classIDs, ")"));
        return true;
    });
}

bool DeleteApplications(Database& db, std::string_view appIDs) {
    return RunStage(db, Procedure::DeleteApplications, [&] {
        ExecuteSQL(db, Sql("DELETE FROM tblApplication WHERE appID IN (", appIDs, ")"));
        return true;
    });
}

}  // namespace snippetarium
