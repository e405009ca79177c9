#include "engine/salvage.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstddef>

#include "engine/create_database.h"
#include "engine/engine_error.h"
#include "engine/fetch_rows.h"
#include "engine/open_for_reading.h"
#include "engine/table_layout.h"
#include "engine/whole_database.h"

namespace snippetarium {

namespace {

/// Indexes and triggers are taken off while the rows come in and put back afterwards: building an
/// index at the end takes a fraction of the time, and no trigger may change what is recovered.
/// Those that keep values apart stay, so that no rule of a table is broken.
class BareTables {
  public:
    explicit BareTables(sqlite3* database) : database_(database) {
        hasStatistics_ =
            !ScalarText(database_, "SELECT name FROM sqlite_schema WHERE name = 'sqlite_stat1'")
                 .empty();
        if (hasStatistics_) {
            RunStatements(database_, "CREATE TEMP TABLE statistics AS SELECT * FROM sqlite_stat1");
        }
        Recordset object = ReadRows(
            "SELECT type, name, sql FROM sqlite_schema WHERE type IN ('index', 'trigger') AND sql "
            "IS NOT NULL AND sql NOT LIKE 'CREATE UNIQUE%'");
        for (; !object.EndOfFile(); object.MoveNext()) {
            texts_.push_back(object["sql"].Text());
            RunStatements(database_, "DROP " + object["type"].Text() + " " + object["name"].Text());
        }
    }

    void PutBack() {
        for (const std::string& text : texts_)
            RunStatements(database_, text);
        if (!hasStatistics_) return;
        RunStatements(
            database_,
            "DELETE FROM sqlite_stat1; INSERT INTO sqlite_stat1 SELECT * FROM statistics");
    }

  private:
    Recordset ReadRows(std::string_view sql) const {
        const StatementHandle statement = PrepareStatement(database_, sql);
        return FetchRows(database_, statement.get());
    }

    sqlite3* database_;
    std::vector<std::string> texts_;
    bool hasStatistics_ = false;
};

/// A schema with damage in it is used as far as it goes, and pages are looked at more closely.
constexpr const char* kSettingsForDamage =
    "PRAGMA writable_schema = ON; PRAGMA cell_size_check = ON; PRAGMA mmap_size = 0";

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The layout of the source's table of this name; one without columns where there is none.
TableLayout FindLayout(const std::vector<TableLayout>& layouts, const std::string& name) {
    const auto found = std::find_if(layouts.begin(), layouts.end(),
                                    [&](const TableLayout& layout) { return layout.name == name; });
    return found == layouts.end() ? TableLayout() : *found;
}

/// Fills the tables of a new catalogue, which holds the delivered rows, with those of a damaged
/// one.
class Salvage {
  public:
    Salvage(sqlite3* damaged, sqlite3* target, const SalvagePlan& plan, const CancelPoll* poll)
        : damaged_(damaged),
          target_(target),
          plan_(plan),
          poll_(poll),
          delivered_(OpenDatabase(":memory:", OpenFlag::Create)) {
        RunStatements(delivered_.get(), plan.creationScript);
    }

    SalvageReport Run(const OnProgress& onProgress) {
        SalvageReport report;
        const std::vector<TableLayout> layouts = ReadTableLayouts(target_);
        const std::vector<TableLayout> damagedLayouts = ReadTableLayouts(damaged_);
        RequireOneOf(layouts, damagedLayouts);
        for (std::size_t i = 0; i < layouts.size(); ++i) {
            if (Contains(plan_.deliveredTables, layouts[i].name)) continue;
            report.tables.push_back(FillTable(
                layouts[i], FindLayout(damagedLayouts, layouts[i].name), [&](double share) {
                    const double done = static_cast<double>(i) + share;
                    if (onProgress) onProgress(done / static_cast<double>(layouts.size()));
                }));
        }
        return report;
    }

  private:
    static void RequireOneOf(const std::vector<TableLayout>& wanted,
                             const std::vector<TableLayout>& found) {
        const bool isCatalogue =
            std::any_of(wanted.begin(), wanted.end(), [&](const TableLayout& layout) {
                return !FindLayout(found, layout.name).name.empty();
            });
        if (isCatalogue) return;
        throw EngineError(
            EngineErrorCode::UnrecognisedFormat,
            "The file holds none of a catalogue's tables, so nothing can be recovered "
            "from it. Restore a backup.");
    }

    SalvagedTable FillTable(const TableLayout& wanted, const TableLayout& found,
                            const OnProgress& onProgress) {
        RunStatements(target_, "DELETE FROM " + wanted.name);
        SalvagedTable table;
        if (found.name.empty()) {
            table.name = wanted.name;
            table.hasUncountedLoss = !Contains(plan_.newerTables, wanted.name);
        } else {
            TableLayout common = wanted;
            KeepCommonColumns(common, found);
            table = TableSalvage(damaged_, target_, common, poll_).Run(onProgress);
            KeepCounter(wanted.name);
        }
        if (!table.IsComplete() || Contains(plan_.tablesWithPermanentRows, wanted.name)) {
            TableSalvage(delivered_.get(), target_, wanted, nullptr).Run(nullptr);
        }
        return table;
    }

    /// The counters of the damaged file go on, where they can be read and are ahead.
    void KeepCounter(const std::string& table) {
        const auto counter = TryReadCounter(damaged_, table);
        if (!counter) return;
        const std::string where = " WHERE name = '" + table + "'";
        RunStatements(target_, "INSERT INTO sqlite_sequence SELECT '" + table +
                                   "', 0 WHERE NOT EXISTS (SELECT * FROM sqlite_sequence" + where +
                                   "); UPDATE sqlite_sequence SET seq = max(seq, " +
                                   std::to_string(*counter) + ")" + where);
    }

    sqlite3* damaged_;
    sqlite3* target_;
    const SalvagePlan& plan_;
    const CancelPoll* poll_;
    DatabaseHandle delivered_;
};

}  // namespace

bool SalvageReport::IsComplete() const {
    return std::all_of(tables.begin(), tables.end(),
                       [](const SalvagedTable& table) { return table.IsComplete(); });
}

SalvageReport SalvageDatabase(const std::string& damagedPath, const std::string& targetPath,
                              const SalvagePlan& plan, const OnProgress& onProgress,
                              const CancelPoll* poll) {
    SalvageReport report;
    const DatabaseHandle damaged = OpenForReading(damagedPath);
    RunStatements(damaged.get(), kSettingsForDamage);  // before anything is read
    WriteWholeDatabase(targetPath, [&](const std::string& path) {
        CreateDatabase(path, plan.creationScript);
        const DatabaseHandle target = OpenDatabase(path, OpenFlag::ReadWrite);
        RunStatements(target.get(),
                      "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = "
                      "-65536; BEGIN");
        BareTables bare(target.get());
        report = Salvage(damaged.get(), target.get(), plan, poll).Run(onProgress);
        bare.PutBack();
        RunStatements(target.get(), "COMMIT");
    });
    return report;
}

}  // namespace snippetarium
