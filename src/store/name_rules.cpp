#include "store/name_rules.h"

#include <string>

#include "store/database.h"
#include "store/owner.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "store/sql_text.h"
#include "support/case_fold.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kEmpty = "Please enter a name.";
constexpr std::string_view kTooLong = "The name you specified is too long (over 255 characters).";
constexpr std::string_view kApplicationTaken =
    "A application with the name you specified already exists. Specify a different application "
    "name.";
constexpr std::string_view kClassTaken =
    "A class with the name you specified already exists in this application. Specify a different "
    "class name.";
constexpr std::string_view kCodeTaken =
    "A procedure with the name you specified already exists in this class. Specify a different "
    "procedure name.";
constexpr std::string_view kCannotRename = "Cannot rename: ";

bool Refuse(Database& db, std::string_view message) {
    ShowInformation(db.GetHost().messages, message, kInformationTitle);
    return false;
}

/// Whether it can be a name at all.
bool IsWellFormed(Database& db, std::string_view name) {
    if (name.find_first_not_of(" \t\r\n") == std::string_view::npos) return Refuse(db, kEmpty);
    if (CharacterCount(name) <= kNameLimit) return true;
    ShowErrorMessage(db.GetHost().messages, kTooLong, kInformationTitle);
    return false;
}

bool IsSameName(std::string_view a, std::string_view b) {
    return FoldCase(a) == FoldCase(b);
}

}  // namespace

bool MayAddApplication(Database& db, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::MayAddApplication, [&] {
        if (!IsWellFormed(db, name)) return false;
        return !IsAppNameTaken(db, name) || Refuse(db, kApplicationTaken);
    });
}

bool MayAddClass(Database& db, std::string_view name, std::int32_t appID) {
    return Guarded(db.Reporter(), Procedure::MayAddClass, [&] {
        if (!IsWellFormed(db, name)) return false;
        return !IsClassNameTaken(db, name, ApplicationOrUndefined(appID)) ||
               Refuse(db, kClassTaken);
    });
}

bool MayAddCode(Database& db, std::string_view name, std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::MayAddCode, [&] {
        if (!IsWellFormed(db, name)) return false;
        return !IsCodeNameTaken(db, name, ClassOrUndefined(classID)) || Refuse(db, kCodeTaken);
    });
}

bool MayRenameApplication(Database& db, std::int32_t appID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::MayRenameApplication, [&] {
        if (!IsWellFormed(db, name)) return false;
        if (IsSameName(name, AppNameByID(db, appID)) || !IsAppNameTaken(db, name)) return true;
        return Refuse(db, Sql(kCannotRename, kApplicationTaken));
    });
}

bool MayRenameClass(Database& db, std::int32_t classID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::MayRenameClass, [&] {
        if (!IsWellFormed(db, name)) return false;
        if (IsSameName(name, ClassNameByID(db, classID))) return true;
        if (!IsClassNameTaken(db, name, AppIDByClassID(db, classID))) return true;
        return Refuse(db, Sql(kCannotRename, kClassTaken));
    });
}

bool MayRenameCode(Database& db, std::int32_t codeID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::MayRenameCode, [&] {
        if (!IsWellFormed(db, name)) return false;
        if (IsSameName(name, CodeNameByID(db, codeID))) return true;
        const Recordset parents = AppIDClassIDRSByCodeID(db, codeID);
        const std::int32_t classID = parents.EndOfFile() ? 0 : parents["classID"].Long();
        if (!IsCodeNameTaken(db, name, classID)) return true;
        return Refuse(db, Sql(kCannotRename, kCodeTaken));
    });
}

}  // namespace snippetarium
