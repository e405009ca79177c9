#include "store/name_rules.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

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
constexpr std::string_view kNoApplication =
    "The application does not exist any more. Choose another one.";
constexpr std::string_view kNoClass = "The class does not exist any more. Choose another one.";
constexpr std::string_view kNoCode = "The procedure does not exist any more. Choose another one.";
constexpr std::string_view kKeepsName =
    "What belongs nowhere else is found under this name, so it stays. Specify the old name.";

bool Refuse(Database& db, std::string_view message) {
    ShowInformation(db.GetHost().messages, message, kInformationTitle);
    return false;
}

bool RefuseRename(Database& db, std::string_view message) {
    return Refuse(db, Sql(kCannotRename, message));
}

/// Control characters and blanks, among them those of other scripts and those without a width.
bool IsVisible(char32_t character) {
    static constexpr std::pair<char32_t, char32_t> kInvisible[] = {
        {0x00, 0x20},     {0x7F, 0xA0},     {0xAD, 0xAD},     {0x1680, 0x1680}, {0x2000, 0x200F},
        {0x2028, 0x202F}, {0x205F, 0x206F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF},
    };
    return std::ranges::none_of(kInvisible, [character](const auto& range) {
        return range.first <= character && character <= range.second;
    });
}

bool HasVisible(std::string_view name) {
    for (std::size_t position = 0; position < name.size();) {
        if (IsVisible(DecodeUtf8(name, position))) return true;
    }
    return false;
}

/// Whether it can be a name at all.
bool IsWellFormed(Database& db, std::string_view name) {
    if (!HasVisible(name)) return Refuse(db, kEmpty);
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
        const std::int32_t parentID = ApplicationOrUndefined(appID);
        if (ApplicationRSByID(db, parentID).EndOfFile()) return Refuse(db, kNoApplication);
        return !IsClassNameTaken(db, name, parentID) || Refuse(db, kClassTaken);
    });
}

bool MayAddCode(Database& db, std::string_view name, std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::MayAddCode, [&] {
        if (!IsWellFormed(db, name)) return false;
        const std::int32_t parentID = ClassOrUndefined(classID);
        if (AppIDByClassID(db, parentID) == 0) return Refuse(db, kNoClass);
        return !IsCodeNameTaken(db, name, parentID) || Refuse(db, kCodeTaken);
    });
}

bool MayRenameApplication(Database& db, std::int32_t appID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::MayRenameApplication, [&] {
        if (!IsWellFormed(db, name)) return false;
        const Recordset application = ApplicationRSByID(db, appID);
        if (application.EndOfFile()) return RefuseRename(db, kNoApplication);
        if (IsSameName(name, application["appName"].Text())) return true;
        if (appID == kUndefinedApplicationID) return RefuseRename(db, kKeepsName);
        return !IsAppNameTaken(db, name) || RefuseRename(db, kApplicationTaken);
    });
}

bool MayRenameClass(Database& db, std::int32_t classID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::MayRenameClass, [&] {
        if (!IsWellFormed(db, name)) return false;
        const std::int32_t appID = AppIDByClassID(db, classID);
        if (appID == 0) return RefuseRename(db, kNoClass);
        if (IsSameName(name, ClassNameByID(db, classID))) return true;
        if (classID == kUndefinedClassID) return RefuseRename(db, kKeepsName);
        return !IsClassNameTaken(db, name, appID) || RefuseRename(db, kClassTaken);
    });
}

bool MayRenameCode(Database& db, std::int32_t codeID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::MayRenameCode, [&] {
        if (!IsWellFormed(db, name)) return false;
        const Recordset parents = AppIDClassIDRSByCodeID(db, codeID);
        if (parents.EndOfFile()) return RefuseRename(db, kNoCode);
        if (IsSameName(name, CodeNameByID(db, codeID))) return true;
        return !IsCodeNameTaken(db, name, parents["classID"].Long()) ||
               RefuseRename(db, kCodeTaken);
    });
}

}  // namespace snippetarium
