#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class Database;

/// What a check can find. See check_rules.cpp for the data and schema_comparison.h for the schema.
enum class FindingKind : std::uint8_t {
    DamagedFile,
    NotChecked,
    MissingSchemaObject,
    ChangedSchemaObject,
    ForeignSchemaObject,
    ChangedStatistics,
    ChangedStoredQuery,
    MissingPermanentRow,
    ClassWithoutApplication,
    ProcedureWithoutClass,
    OwnerWithoutItsKeyword,
    KeywordWithoutSeparator,
    KeywordLinkToNothing,
    UnlinkedSearchWord,
    AuthorLinkWithoutOwner,
    AuthorLinkWithoutAuthor,
    DateLinkWithoutOwner,
    DateLinkWithoutDate,
    ClassOfUnknownLanguage,
    LanguageLinkWithoutProcedure,
    LanguageLinkWithoutLanguage,
    BookmarkOfNothing,
    SourceFormWithoutClass,
    OverlongTextWithoutOwner,
    LeftoverToDelete,
    ClassCutShort,
    TrashWithoutEntry,
    StaleNames,
    DraftTextWithoutDraft,
    DateThatIsNone,
    DamagedTextIndex,
    TextIndexWithGaps,
};

enum class FindingWeight : std::uint8_t { Information, Fault };

/// One kind of thing that is wrong, or worth knowing.
struct CheckFinding {
    FindingKind kind = FindingKind::NotChecked;
    FindingWeight weight = FindingWeight::Fault;
    /// In words: "procedures whose class does not exist".
    std::string what;
    std::int64_t count = 0;
    /// The first five, each a text that leads to the row: "codeID 17".
    std::vector<std::string> examples;
    /// What can be done, for the user.
    std::string advice;
    /// A script in the engine's own SQL that mends it, for MendCatalogue; empty where none can.
    std::string mendingScript;
};

struct CheckReport {
    std::vector<CheckFinding> findings;
    /// False when the check could not be finished; the findings then say nothing.
    bool isComplete = false;

    /// True when the check was finished and found no fault.
    bool IsSound() const;
};

/// Checks the catalogue through and through: the file's build, its tables, indexes, triggers,
/// statistics and stored queries against those of a new one, and the rows against each other. It
/// changes nothing. The user can cancel it. A failure is reported and gives a report that is not
/// complete.
CheckReport CheckCatalogue(Database& db);

/// Mends what a check found and can be mended, all or nothing, after a backup. Nothing that can be
/// reached is lost by it. A damaged file is refused. Returns whether that was done; a failure is
/// reported.
bool MendCatalogue(Database& db, const CheckReport& report);

}  // namespace snippetarium
