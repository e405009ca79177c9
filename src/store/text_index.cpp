#include "store/text_index.h"

#include <algorithm>
#include <array>
#include <string>

#include "store/database.h"
#include "store/job_progress.h"
#include "store/owner.h"
#include "store/packed_names.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

using std::string_view_literals::operator""sv;

constexpr std::array kApplicationTexts = {"appName"sv, "appComment"sv};
constexpr std::array kClassTexts = {"className"sv, "classDI"sv, "classComment"sv};
constexpr std::array kCodeTexts = {"codeName"sv, "code"sv, "codeComment"sv};
constexpr std::array kKeywordTexts = {"keyword"sv};

// The first three numbers are those that ownerTableID has elsewhere. The order of the columns, too,
// is a part of the files.
// clang-format off
constexpr std::array kTables = {
    IndexedTable{.number = 1, .name = "tblApplication", .idColumn = "appID",   .columns = kApplicationTexts},
    IndexedTable{.number = 2, .name = "tblClass",       .idColumn = "classID", .columns = kClassTexts, .parentColumn = "appID",   .parentTable = "tblApplication"},
    IndexedTable{.number = 3, .name = "tblCode",        .idColumn = "codeID",  .columns = kCodeTexts,  .parentColumn = "classID", .parentTable = "tblClass"},
    IndexedTable{.number = 4, .name = "tblKeyword",     .idColumn = "keywordID", .columns = kKeywordTexts},
};
// clang-format on

TextColumn ColumnOf(TextKind kind) {
    switch (kind) {
        case TextKind::ApplicationName:
            return {"tblApplication", "appName"};
        case TextKind::ApplicationComment:
            return {"tblApplication", "appComment"};
        case TextKind::ClassName:
            return {"tblClass", "className"};
        case TextKind::ClassText:
            return {"tblClass", "classDI"};
        case TextKind::ClassComment:
            return {"tblClass", "classComment"};
        case TextKind::CodeName:
            return {"tblCode", "codeName"};
        case TextKind::Code:
            return {"tblCode", "code"};
        case TextKind::CodeComment:
            return {"tblCode", "codeComment"};
        case TextKind::Keyword:
            return {"tblKeyword", "keyword"};
    }
    return {};
}

std::string EmptyingScript() {
    return "DELETE FROM tblTextBlock; DELETE FROM tblTextSegment; DELETE FROM tblTextDirty; "
           "DELETE FROM tblTextIndex;";
}

std::int64_t ReadNumber(Database& db, const std::string& sql) {
    const Recordset row = db.GetConnection().Execute(sql);
    return row.EndOfFile() || row[std::size_t{0}].IsNull() ? 0 : row[std::size_t{0}].Integer64();
}

/// The highest IDs of all tables together, and those that are indexed.
std::int64_t ReadLastIDs(Database& db) {
    std::int64_t all = 0;
    for (const IndexedTable& table : kTables)
        all += ReadNumber(db, Sql("SELECT max(", table.idColumn, ") FROM ", table.name));
    return all;
}

bool Complete(Database& db) {
    JobProgress progress(db.GetHost(), "Snippetarium is indexing texts, please wait...",
                         JobProgress::Cancelling::Possible);
    const auto readIndexed = [&] {
        return ReadNumber(db, "SELECT sum(indexedTo) FROM tblTextIndex");
    };
    const std::int64_t before = readIndexed();
    const auto all = static_cast<double>(std::max<std::int64_t>(ReadLastIDs(db) - before, 1));
    BulkWriting writing(db.GetConnection());
    while (db.GetConnection().TendTextIndex(TendingPace::ToTheEnd)) {
        if (progress.IsCancelled()) return false;
        progress.Show(std::min(1.0, static_cast<double>(readIndexed() - before) / all));
    }
    FinishWriting(db, writing);
    return true;
}

TextIndexState ReadState(Database& db, const IndexedTable& table) {
    const std::int32_t number = table.number;
    const std::string id(table.idColumn);
    const auto indexedTo = static_cast<std::int32_t>(
        ReadNumber(db, Sql("SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = ", number)));
    const std::string count = Sql("SELECT count(*) FROM ", table.name, " WHERE ", id);
    const std::string segments =
        Sql(" FROM tblTextSegment WHERE state = 1 AND ownerTableID = ", number);
    return {
        .table = table.number,
        .rows = ReadNumber(db, Sql(count, " <= ", indexedTo)),
        .waitingRows =
            ReadNumber(db, Sql(count, " > ", indexedTo)) +
            ReadNumber(db, Sql("SELECT count(*) FROM tblTextDirty WHERE ownerTableID = ", number)),
        .segments = ReadNumber(db, Sql("SELECT count(*)", segments)),
        .bytes = ReadNumber(db, Sql("SELECT sum(bytes)", segments))};
}

}  // namespace

std::span<const IndexedTable> IndexedTexts() {
    return kTables;
}

std::string TextIndexResetScript() {
    std::string script = EmptyingScript();
    for (const IndexedTable& table : kTables) {
        script += Sql("INSERT INTO tblTextIndex VALUES (", table.number, ", 0, 0);");
    }
    return script;
}

TextScan ScanFor(TextKind kind, std::string_view literal, ShortTexts shortTexts) {
    return {ColumnOf(kind), literal, shortTexts};
}

bool TendTextIndex(Database& db) {
    return GuardedStage(db.Reporter(), Procedure::TendTextIndex, [&] {
        if (db.IsReadOnly() || !db.GetConnection().IsOpen()) return false;
        constexpr std::size_t kBlocksAtATime = 4;
        if (db.GetConnection().TendTextIndex(TendingPace::WhenIdle)) return true;
        return PackNames(db, kBlocksAtATime);
    });
}

bool CompleteTextIndex(Database& db) {
    return GuardedStage(db.Reporter(), Procedure::CompleteTextIndex, [&] { return Complete(db); });
}

bool RebuildTextIndex(Database& db) {
    return Guarded(db.Reporter(), Procedure::RebuildTextIndex, [&] {
        db.GetConnection().RunScript(TextIndexResetScript());
        return Complete(db);
    });
}

bool DropTextIndex(Database& db) {
    return Guarded(db.Reporter(), Procedure::DropTextIndex, [&] {
        db.GetConnection().RunScript(EmptyingScript());
        return true;
    });
}

std::vector<TextIndexState> ReadTextIndexState(Database& db) {
    return Guarded(db.Reporter(), Procedure::ReadTextIndexState, [&] {
        std::vector<TextIndexState> states;
        if (ReadNumber(db, "SELECT count(*) FROM tblTextIndex") == 0) return states;
        for (const IndexedTable& table : kTables)
            states.push_back(ReadState(db, table));
        return states;
    });
}

}  // namespace snippetarium
