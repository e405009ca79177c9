#include "import/unit_store.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "export/markers.h"
#include "import/file_kind.h"
#include "import/header_harvest.h"
#include "import/markers_in_file.h"
#include "import/unit_limits.h"
#include "keywords/keyword_saving.h"
#include "store/author_links.h"
#include "store/cut_short_imports.h"
#include "store/database.h"
#include "store/deletion.h"
#include "store/named_query.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_languages.h"
#include "store/sql_text.h"
#include "store/unique_names.h"
#include "store/writes_classes.h"
#include "store/writes_codes.h"
#include "store/writes_languages.h"
#include "support/case_fold.h"
#include "support/paths.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// The words between the commas of a language text, without blanks around them and without empty
/// ones.
std::vector<std::string> LanguageNames(std::string_view text) {
    std::vector<std::string> names;
    while (!text.empty()) {
        const std::size_t comma = std::min(text.find(','), text.size());
        std::string_view name = text.substr(0, comma);
        text.remove_prefix(std::min(comma + 1, text.size()));
        name.remove_prefix(std::min(name.find_first_not_of(' '), name.size()));
        name = name.substr(0, name.find_last_not_of(' ') + 1);
        if (!name.empty()) names.emplace_back(name);
    }
    return names;
}

/// The language text is filled without "C" where it has "Visual Basic", which ends like it. A name
/// that the user typed is one that was meant.
bool StandsFor(std::string_view listed, std::string_view language) {
    return EqualFolded(listed, language) ||
           (IsDeliveredLanguage(listed) && FoldCase(listed).ends_with(FoldCase(language)));
}

void LinkHarvestedAuthors(Database& db, const Owner& owner, const HarvestedHeader& header) {
    std::vector<std::int32_t> authorIDs;
    for (const AuthorName& name : header.authors)
        authorIDs.push_back(FindOrAddAuthor(db, name));
    LinkAuthors(db, owner, authorIDs);
}

}  // namespace

/// A class that is being stored.
struct UnitStore::ClassAtHand {
    std::int32_t classID = 0;
    ClassFields fields = {};
    MarkerFamily family = MarkerFamily::VisualBasic;
};

UnitStore::UnitStore(Database& db, ImportState& state, const NoiseWords& noise, StoreTarget target)
    : db_(db), state_(state), noise_(noise), target_(std::move(target)) {}

StoreResult UnitStore::Store(const CutFile& file, const ClassSource& source) {
    const std::string className(file.className.empty() ? BaseName(source.entry)
                                                       : std::string_view(file.className));
    if (className.empty()) {
        state_.Report("Class name is missing.");
        return StoreResult::NoName;
    }
    const std::vector<std::int32_t> before = StoredBefore(className, source.entry);
    if (!before.empty() && state_.overwriteChoice != OverwriteChoice::Yes) {
        state_.Report(source.entry + " was not imported, because its class " + className +
                      " is in the catalogue already.");
        return StoreResult::LeftAlone;
    }
    if (isUnderWay_) ListCutShortClass(db_);  // the one before failed
    NoteClassUnderWay(db_);
    isUnderWay_ = true;
    ClassAtHand stored = AddNewClass(file, source, className);
    const StoreResult result = StoreProcedures(stored, file, source);
    if (result == StoreResult::Stored) {
        for (const std::int32_t classID : before)
            DeleteOverwritten(classID, source.entry);
        NoteClassComplete(db_);
    } else {
        ListCutShortClass(db_);
    }
    isUnderWay_ = false;
    return result;
}

void UnitStore::DeleteOverwritten(std::int32_t classID, const std::string& entry) {
    if (DeleteClassQuietly(db_, classID)) return;
    state_.Report(entry + " was imported, but the class that it replaces could not be deleted.");
}

/// The classes of that name and path which were there when the job began. More than one where an
/// earlier import was killed in the midst of overwriting.
std::vector<std::int32_t> UnitStore::StoredBefore(const std::string& className,
                                                  const std::string& entry) const {
    std::vector<std::int32_t> alike;
    std::vector<std::int32_t> same;
    Recordset row = ReadRecordset(
        db_, Procedure::qryClassIDByClassNameClassPathAppID,
        {Parameter::Text255("className", className), Parameter::LongText("classPath", entry),
         Parameter::Long("appID", target_.appID)});
    for (; !row.EndOfFile(); row.MoveNext()) {
        const std::int32_t classID = row["classID"].Long();
        if (storedClasses_.contains(classID)) continue;
        alike.push_back(classID);
        if (ClassPathInAppByClassID(db_, classID) == entry) same.push_back(classID);
    }
    return same.empty() ? alike : same;
}

UnitStore::ClassAtHand UnitStore::AddNewClass(const CutFile& file, const ClassSource& source,
                                              const std::string& className) {
    const HarvestedHeader header = HarvestHeader(file.comment);
    const std::size_t head =
        file.procedures.empty() ? file.text.size() : file.procedures.front().position;
    ClassAtHand stored;
    stored.fields = {.name = className,
                     .appID = target_.appID,
                     .pathInApp = source.entry,
                     .declarations = std::string(WithinUnitLimit(file.text.substr(0, head))),
                     .comment = std::string(WithinUnitLimit(file.comment)),
                     .dates = header.dates,
                     .languageID = ClassLanguage(source.entry),
                     .keywordID = SaveDerivedKeyword(db_, noise_, header.keywords)};
    stored.family = MarkerFamilyOf(stored.fields.languageID);
    stored.classID = AddClass(db_, stored.fields);
    storedClasses_.insert(stored.classID);
    state_.codeFound = true;

    const Owner owner{OwnerKind::Class, stored.classID};
    ExecuteSQL(db_, Sql("INSERT INTO tblSourceForm VALUES(", stored.classID, ", ",
                        SqlText(source.form.Serialise()), ")"));
    LinkHarvestedAuthors(db_, owner, header);
    KeepRest(db_, owner, "classComment", file.comment);
    // From here on the class bears the name that the catalogue has for it.
    stored.fields.name = ClassNameByID(db_, stored.classID);
    stored.fields.dates = {};
    if (WithinUnitLimit(file.comment).size() < file.comment.size()) {
        ReportLongClass(state_, "The comment of the class ", stored.fields.name,
                        AppNameByID(db_, target_.appID));
    }
    return stored;
}

StoreResult UnitStore::StoreProcedures(ClassAtHand& stored, const CutFile& file,
                                       const ClassSource& source) {
    UniqueNames names;
    const MarkersInFile strangers(file, stored.family);
    std::string text;
    std::size_t taken = 0;  // of the file's text
    std::size_t count = 0;
    const auto takeUpTo = [&](std::size_t position) {
        text += file.text.substr(taken, position - taken);
        taken = position;
    };
    for (const CutProcedure& procedure : file.procedures) {
        if (state_.importCancelled) {
            StoreClassText(stored, text);
            state_.Report(source.entry + " was not imported to its end: " + std::to_string(count) +
                          " of its " + std::to_string(file.procedures.size()) +
                          " procedures are in the catalogue.");
            return StoreResult::Cancelled;
        }
        takeUpTo(procedure.position);
        if (procedure.name.empty()) {
            state_.Report("Procedure name missing in one of the code units in the class " +
                          stored.fields.name + ".");
            continue;
        }
        std::string name = names.Add(procedure.name);
        while (strangers.HasMarkerOf(name))
            name = names.Add(procedure.name);
        StoreProcedure(stored, procedure, name, ProcedureLanguage(procedure, source.entry));
        text += MarkerText(stored.family, name);
        ++count;
        db_.GetHost().events.Yield();
    }
    takeUpTo(file.text.size());
    StoreClassText(stored, text);
    return StoreResult::Stored;
}

void UnitStore::StoreProcedure(const ClassAtHand& stored, const CutProcedure& procedure,
                               const std::string& name, std::int32_t languageID) {
    const HarvestedHeader header = HarvestHeader(procedure.comment);
    const std::string_view comment = WithinUnitLimit(procedure.comment);
    const std::string_view code = WithinUnitLimit(procedure.code);
    const std::int32_t codeID =
        AddCode(db_, {.name = name,
                      .code = std::string(code),
                      .classID = stored.classID,
                      .comment = std::string(comment),
                      .dates = header.dates,
                      .keywordID = SaveDerivedKeyword(db_, noise_, header.keywords)});
    const Owner owner{OwnerKind::Procedure, codeID};
    KeepRest(db_, owner, "code", procedure.code);
    KeepRest(db_, owner, "codeComment", procedure.comment);
    AddCodeLanguage(db_, codeID, languageID);
    LinkHarvestedAuthors(db_, owner, header);
    if (comment.size() < procedure.comment.size())
        ReportLongProcedure(state_, "The comment of the procedure ", name, stored.fields.name);
    if (code.size() < procedure.code.size())
        ReportLongProcedure(state_, "The procedure ", name, stored.fields.name);
}

/// The class's text with the markers, unless it is the one that stands there already.
void UnitStore::StoreClassText(ClassAtHand& stored, const std::string& text) {
    const std::string_view kept = WithinUnitLimit(text);
    if (kept != stored.fields.declarations) {
        stored.fields.declarations = kept;
        UpdateClass(db_, stored.classID, stored.fields);
    }
    KeepRest(db_, {OwnerKind::Class, stored.classID}, "classDI", text);
    if (kept.size() < text.size()) {
        ReportLongClass(state_, "The class ", stored.fields.name, AppNameByID(db_, target_.appID));
    }
}

/// Where the user has deleted the delivered row of a language, it comes back.
std::int32_t UnitStore::ClassLanguage(const std::string& entry) {
    const std::int32_t languageID = ClassLanguageID(FileExtension(entry));
    if (LanguageByID(db_, languageID).empty()) {
        ExecuteSQL(db_, Sql("INSERT INTO tblLanguage VALUES(", languageID, ", ",
                            SqlText(DeliveredLanguageName(languageID)), ", True);"));
    }
    return languageID;
}

std::int32_t UnitStore::ProcedureLanguage(const CutProcedure& procedure, const std::string& entry) {
    if (!procedure.language.empty()) return FindOrAddLanguage(procedure.language);
    const std::string_view extension = FileExtension(entry);
    const std::string_view offered = LanguageNameOfExtension(FoldCase(extension));
    const std::string_view own =
        offered.empty() ? DeliveredLanguageName(ClassLanguageID(extension)) : offered;
    const std::vector<std::string> names = LanguageNames(target_.language);
    const bool isListed =
        std::ranges::any_of(names, [&](const std::string& name) { return StandsFor(name, own); });
    if (!isListed && !names.empty()) return FindOrAddLanguage(names.front());
    return offered.empty() ? ClassLanguage(entry) : FindOrAddLanguage(std::string(own));
}

std::int32_t UnitStore::FindOrAddLanguage(const std::string& name) {
    std::int32_t& languageID = languages_[name];
    if (languageID == 0) languageID = LanguageID(db_, name);
    if (languageID == 0) languageID = SaveLanguage(db_, name, 0);
    return languageID;
}

}  // namespace snippetarium
