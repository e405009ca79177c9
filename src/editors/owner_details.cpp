#include "editors/owner_details.h"

#include <algorithm>

#include "editors/author_text.h"
#include "editors/field_rules.h"
#include "editors/owner_keywords.h"
#include "store/database.h"
#include "store/date_links.h"
#include "store/reads_authors_dates.h"
#include "store/reads_keywords.h"
#include "store/sql_text.h"
#include "support/date_text.h"
#include "support/guard.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNoAuthor = "Please enter the author's name.";
constexpr std::string_view kAuthorTooLong =
    "A part of the author's name is too long (over 50 characters).";
constexpr std::string_view kUnknownSeparator = "There is no such separator.";

bool CheckAuthor(Database& db, const AuthorName& name) {
    if (AuthorText(name).empty()) return RefuseEntry(db, kNoAuthor);
    for (const std::string* part : {&name.first, &name.middle, &name.last}) {
        if (!IsOneLine(db, *part)) return false;
        if (CharacterCount(*part) > kShortTextLimit) return RefuseEntry(db, kAuthorTooLong);
    }
    return true;
}

bool CheckDate(Database& db, const std::string& text) {
    return IsDate(text) ||
           RefuseEntry(db,
                       Sql("'", text,
                           "' is no date. Write it like 2001-03-14, 3/14/2001 or March 14, 2001."));
}

bool CheckKeywords(Database& db, const KeywordEntry& entry) {
    if (SeparatorByID(db, entry.separatorID).empty()) return RefuseEntry(db, kUnknownSeparator);
    return FitsLongText(db, "keyword text", entry.text);
}

Recordset KeywordsOf(Database& db, const Owner& owner) {
    switch (owner.kind) {
        case OwnerKind::Application:
            return KeywordRSWithAppID(db, owner.id);
        case OwnerKind::Class:
            return KeywordRSWithClassID(db, owner.id);
        case OwnerKind::Procedure:
            break;
    }
    return KeywordRSWithCodeID(db, owner.id);
}

std::vector<LinkedAuthor> AuthorsOf(Database& db, const Owner& owner) {
    std::vector<LinkedAuthor> authors;
    const auto kind = static_cast<std::int32_t>(owner.kind);
    for (Recordset row = AuthorsRSByOwner(db, owner.id, kind); !row.EndOfFile(); row.MoveNext()) {
        authors.push_back(
            {row["authorID"].Long(),
             {row["authorFName"].Text(), row["authorMName"].Text(), row["authorLName"].Text()}});
    }
    return authors;
}

void ReplaceAuthors(Database& db, const Owner& owner, const std::vector<AuthorName>& names) {
    std::vector<std::int32_t> wanted;
    for (const AuthorName& name : names)
        wanted.push_back(FindOrAddAuthor(db, name));
    LinkAuthors(db, owner, wanted);
    for (const LinkedAuthor& author : AuthorsOf(db, owner)) {
        if (std::ranges::find(wanted, author.authorID) == wanted.end())
            UnlinkAuthor(db, owner.kind, std::to_string(owner.id), author.authorID);
    }
}

/// Each day once, however it is written.
std::vector<std::string> EachDayOnce(const std::vector<std::string>& dates) {
    std::vector<std::string> days;
    for (const std::string& text : dates) {
        const auto date = ParseDateText(text);
        if (!date) continue;
        const std::string day = IsoText(*date);
        if (std::ranges::find(days, day) == days.end()) days.push_back(day);
    }
    return days;
}

}  // namespace

OwnerDetails LoadOwnerDetails(Database& db, const Owner& owner) {
    return Guarded(db.Reporter(), Procedure::LoadOwnerDetails, [&] {
        OwnerDetails details;
        details.authors = AuthorsOf(db, owner);
        const auto kind = static_cast<std::int32_t>(owner.kind);
        for (Recordset row = DateRSByOwner(db, owner.id, kind); !row.EndOfFile(); row.MoveNext())
            details.dates.push_back(row["dDate"].Text());
        if (const Recordset row = KeywordsOf(db, owner); !row.EndOfFile()) {
            details.keywords = {{row["keyword"].Text(), row["separatorID"].Long()},
                                row["separatorDescription"].Text(),
                                row["searchWords"].Text()};
        }
        return details;
    });
}

bool CheckDetailChanges(Database& db, const DetailChanges& changes) {
    return Guarded(db.Reporter(), Procedure::CheckDetailChanges, [&] {
        for (const AuthorName& name : changes.authors.value_or(std::vector<AuthorName>{})) {
            if (!CheckAuthor(db, name)) return false;
        }
        for (const std::string& date : changes.dates.value_or(std::vector<std::string>{})) {
            if (!CheckDate(db, date)) return false;
        }
        return !changes.keywords || CheckKeywords(db, *changes.keywords);
    });
}

void SaveDetailChanges(Database& db, const NoiseWords& noise, const Owner& owner,
                       const DetailChanges& changes) {
    Guarded(db.Reporter(), Procedure::SaveDetailChanges, [&] {
        if (changes.authors) ReplaceAuthors(db, owner, *changes.authors);
        if (changes.dates) ReplaceDateLinks(db, owner, EachDayOnce(*changes.dates));
        if (changes.keywords)
            ReplaceOwnerKeywords(db, noise, owner, changes.keywords->text,
                                 changes.keywords->separatorID);
    });
}

}  // namespace snippetarium
