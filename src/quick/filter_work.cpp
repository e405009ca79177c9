#include <string_view>

#include "quick/name_block.h"
#include "quick/node_row.h"
#include "quick/work.h"
#include "store/database.h"

namespace snippetarium {

namespace {

/// With more rows than these, asking row by row is as good.
constexpr std::size_t kMostRows = 4096;

constexpr std::string_view kClassesOfApplication = "SELECT classID FROM tblClass WHERE appID = ?1";
constexpr std::string_view kCodesOfClass = "SELECT codeID FROM tblCode WHERE classID = ?1";
constexpr std::string_view kClassesOfLanguage =
    "SELECT classID FROM tblClass WHERE languageID = ?1";
constexpr std::string_view kCodesOfLanguage =
    "SELECT codeID FROM tblCode_Link_Language WHERE languageID = ?1";
constexpr std::string_view kAuthors =
    "SELECT authorID, authorFName, authorMName, authorLName FROM tblAuthor";
constexpr std::string_view kOwnersOfAuthor =
    "SELECT ownerID FROM tbl_Author_Link WHERE authorID = ?1 AND ownerTableID = ?2";
constexpr std::string_view kDates = "SELECT dateID FROM tblDate WHERE dDate >= ?1 AND dDate < ?2";
constexpr std::string_view kOwnersOfDate =
    "SELECT ownerID FROM tbl_date_link WHERE dateID = ?1 AND ownerTableID = ?2";
constexpr std::string_view kLanguages = "SELECT languageID, language FROM tblLanguage";

using IDs = std::vector<std::int32_t>;

/// Notes the rows that a filter lets through, until they are too many.
class Narrowing final : public QuickWork {
  public:
    Narrowing(QuickPlan& plan, PlannedTerm& term) : plan_(plan), term_(term) {}

    bool Advance() override {
        const bool isNarrow = Collect();
        if (isNarrow) term_.byFilter.KnowAll();
        return false;
    }

  private:
    bool Collect() {
        switch (term_.term.field) {
            case QuickField::Application:
                return CollectOfApplications();
            case QuickField::Class:
                return CollectOfClasses(NamesThatFit(QuickKind::Class));
            case QuickField::Language:
                return CollectOfLanguages();
            case QuickField::Author:
                return CollectOwners(kOwnersOfAuthor, AuthorsThatFit());
            case QuickField::Date:
                return CollectOwners(kOwnersOfDate, DatesThatFit());
            default:
                return false;
        }
    }

    bool Note(QuickKind kind, std::int32_t id) {
        if (id <= 0 || BlockOf(id) > plan_.newestBlock[static_cast<std::size_t>(kind)]) return true;
        term_.byFilter.Of(kind).Add(id);
        return ++count_ <= kMostRows;
    }

    /// The first column of a statement's rows, one more than may be kept at most.
    template <typename... Values>
    IDs Read(std::string_view sql, const Values&... values) {
        IDs ids;
        const auto row = plan_.db.GetConnection().OpenCursor(sql, values...);
        while (ids.size() <= kMostRows && row->Next())
            ids.push_back(static_cast<std::int32_t>(row->Number(0)));
        return ids;
    }

    IDs NamesThatFit(QuickKind kind) {
        IDs ids;
        const std::int32_t newest = plan_.newestBlock[static_cast<std::size_t>(kind)];
        for (std::int32_t number = newest; number >= 0 && ids.size() <= kMostRows; --number) {
            NameBlock block = NameBlock::Read(plan_.db, kind, number);
            if (!term_.pattern->Find(block.Names())) continue;
            for (const NameBlock::Entry& entry : block.Entries()) {
                if (term_.pattern->Find(block.NameOf(entry))) ids.push_back(entry.id);
            }
        }
        return ids;
    }

    bool CollectOfClass(std::int32_t classID) {
        if (!Note(QuickKind::Class, classID)) return false;
        for (const std::int32_t codeID : Read(kCodesOfClass, std::int64_t{classID})) {
            if (!Note(QuickKind::Procedure, codeID)) return false;
        }
        return true;
    }

    bool CollectOfClasses(const IDs& classIDs) {
        for (const std::int32_t classID : classIDs) {
            if (!CollectOfClass(classID)) return false;
        }
        return true;
    }

    bool CollectOfApplications() {
        for (const std::int32_t appID : NamesThatFit(QuickKind::Application)) {
            if (!Note(QuickKind::Application, appID)) return false;
            if (!CollectOfClasses(Read(kClassesOfApplication, std::int64_t{appID}))) return false;
        }
        return true;
    }

    /// Also procedures that have another language than their class: these are asked later.
    bool CollectOfLanguages() {
        for (const std::int32_t languageID : term_.languageIDs) {
            for (const std::int32_t codeID : Read(kCodesOfLanguage, std::int64_t{languageID})) {
                if (!Note(QuickKind::Procedure, codeID)) return false;
            }
            if (!CollectOfClasses(Read(kClassesOfLanguage, std::int64_t{languageID}))) return false;
        }
        return true;
    }

    IDs AuthorsThatFit() {
        IDs ids;
        const auto row = plan_.db.GetConnection().OpenCursor(kAuthors);
        while (row->Next()) {
            const std::string name = AuthorName(row->Text(1), row->Text(2), row->Text(3));
            if (term_.pattern->Find(name)) ids.push_back(static_cast<std::int32_t>(row->Number(0)));
        }
        return ids;
    }

    IDs DatesThatFit() {
        const DayRange& days = term_.term.days;
        return Read(kDates, std::string_view(days.first), std::string_view(days.behind));
    }

    /// Level by level: where the procedures are too many, it is still known which classes it is.
    bool CollectOwners(std::string_view sql, const IDs& ids) {
        for (const QuickLevel& level : kQuickLevels) {
            if (!CollectOwnersOf(level, sql, ids)) return false;
            term_.byFilter.Know(level.kind);
        }
        return true;
    }

    bool CollectOwnersOf(const QuickLevel& level, std::string_view sql, const IDs& ids) {
        for (const std::int32_t id : ids) {
            const auto row = plan_.db.GetConnection().OpenCursor(
                sql, std::int64_t{id}, static_cast<std::int64_t>(level.owner));
            while (row->Next()) {
                if (!Note(level.kind, static_cast<std::int32_t>(row->Number(0)))) return false;
            }
        }
        return true;
    }

    QuickPlan& plan_;
    PlannedTerm& term_;
    std::size_t count_ = 0;
};

}  // namespace

void FindLanguages(QuickPlan& plan, PlannedTerm& term) {
    IDs equal;
    IDs beginning;
    const auto row = plan.db.GetConnection().OpenCursor(kLanguages);
    while (row->Next()) {
        const auto id = static_cast<std::int32_t>(row->Number(0));
        if (term.pattern->FitsWhole(row->Text(1))) equal.push_back(id);
        if (term.pattern->FindAt(row->Text(1), 0)) beginning.push_back(id);
    }
    const bool isOpen = !term.term.isPhrase && term.term.text.ends_with('*');
    term.languageIDs = isOpen || equal.empty() ? beginning : equal;
}

std::unique_ptr<QuickWork> NarrowByFilter(QuickPlan& plan, std::size_t term) {
    return std::make_unique<Narrowing>(plan, plan.terms[term]);
}

}  // namespace snippetarium
