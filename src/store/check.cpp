#include "store/check.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include "engine/engine_error.h"
#include "engine/inspection.h"
#include "engine/integrity.h"
#include "engine/text_index_check.h"
#include "store/backup.h"
#include "store/catalogue_content.h"
#include "store/check_rules.h"
#include "store/database.h"
#include "store/job_progress.h"
#include "store/permanent_rows.h"
#include "store/schema_comparison.h"
#include "store/text_index.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

constexpr std::size_t kExamples = 5;

/// A fault of the catalogue that keeps a part of the check from being made.
bool IsFaultOfTheCatalogue(EngineErrorCode code) {
    return code == EngineErrorCode::Corrupted || code == EngineErrorCode::UnrecognisedFormat ||
           code == EngineErrorCode::NoSuchTable || code == EngineErrorCode::WrongParameters;
}

class Check {
  public:
    Check(const std::string& path, JobProgress& progress)
        : path_(path), progress_(progress), delivered_(Inspection::OfScript(CreationScript())) {}

    CheckReport Run() {
        CheckBuild();
        Attempt("everything else", [this] { CheckContent(Inspection(path_, &progress_)); });
        report_.isComplete = true;
        return std::move(report_);
    }

  private:
    /// Damage that stops one part of the check does not stop the others.
    void Attempt(std::string_view part, const std::function<void()>& check) {
        try {
            check();
        } catch (const EngineError& error) {
            if (!IsFaultOfTheCatalogue(error.Code())) throw;
            CheckFinding finding;
            finding.kind = FindingKind::NotChecked;
            finding.what = "not checked: " + std::string(part);
            finding.count = 1;
            finding.examples = {error.Description()};
            finding.advice = "See to the other findings first, then check again.";
            report_.findings.push_back(std::move(finding));
        }
    }

    void CheckBuild() {
        progress_.SetStage("The build of the file");
        const std::vector<std::string> problems = FindIntegrityProblems(path_, &progress_);
        if (problems.empty()) return;
        CheckFinding finding;
        finding.kind = FindingKind::DamagedFile;
        finding.what = "places where the file is damaged";
        finding.count = static_cast<std::int64_t>(problems.size());
        finding.examples.assign(problems.begin(),
                                std::next(problems.begin(), static_cast<std::ptrdiff_t>(std::min(
                                                                problems.size(), kExamples))));
        finding.advice =
            "Restore a backup. Where none is new enough, recover the catalogue: all rows that can "
            "be read go into a new file. Then have the disk checked.";
        report_.findings.push_back(std::move(finding));
    }

    void CheckContent(const Inspection& catalogue) {
        progress_.SetStage("Tables, indexes, triggers and stored queries");
        Attempt("tables, indexes and triggers",
                [&] { Take(CompareSchemas(catalogue, delivered_)); });
        Attempt("stored queries", [&] { Take(CompareStoredQueries(catalogue, delivered_)); });
        Attempt("permanent rows", [&] { Take(FindMissingPermanentRows(catalogue, delivered_)); });
        Attempt("the text index", [this] { CheckTexts(); });
        const auto rules = CheckRules();
        for (std::size_t i = 0; i < rules.size(); ++i) {
            progress_.SetStage(rules[i].what);
            progress_.Show(static_cast<double>(i) / static_cast<double>(rules.size()));
            if (progress_.IsCancelled()) {
                throw EngineError(EngineErrorCode::Cancelled, "The check was cancelled.");
            }
            Attempt(rules[i].what, [&] { CheckByRule(catalogue, rules[i]); });
        }
    }

    void CheckTexts() {
        progress_.SetStage("The text index");
        const auto onProgress = [this](double share) { progress_.Show(share); };
        for (const TextIndexProblem& problem :
             CheckTextIndex(path_, IndexedTexts(), onProgress, &progress_)) {
            CheckFinding finding;
            const bool isDamaged = !problem.damage.empty();
            const std::string table(problem.table);
            finding.kind =
                isDamaged ? FindingKind::DamagedTextIndex : FindingKind::TextIndexWithGaps;
            finding.what = isDamaged ? "damage to the text index of " + table
                                     : "rows of " + table + " that the text index does not know";
            finding.count = isDamaged ? 1 : problem.lostRows;
            if (isDamaged) finding.examples = {problem.damage};
            for (const std::int64_t id : problem.examples)
                finding.examples.push_back("ID " + std::to_string(id));
            finding.advice = isDamaged ? "Searches find all there is, but read all texts for it. "
                                         "Mending makes the index anew."
                                       : "Searches may miss them. Mending makes the index anew.";
            finding.mendingScript = TextIndexResetScript();
            report_.findings.push_back(std::move(finding));
        }
    }

    void CheckByRule(const Inspection& catalogue, const CheckRule& rule) {
        CheckFinding finding;
        finding.count = catalogue.ReadNumber("SELECT count(*) " + rule.Breaches());
        if (finding.count == 0) return;
        Recordset row = catalogue.Read("SELECT " + std::string(rule.example) + " " +
                                       rule.Breaches() + " LIMIT " + std::to_string(kExamples));
        for (; !row.EndOfFile(); row.MoveNext())
            finding.examples.push_back(row[std::size_t{0}].Text());
        finding.kind = rule.kind;
        finding.weight = rule.weight;
        finding.what = rule.what;
        finding.advice = rule.advice;
        finding.mendingScript = rule.MendingScript();
        report_.findings.push_back(std::move(finding));
    }

    void Take(std::vector<CheckFinding> findings) {
        std::move(findings.begin(), findings.end(), std::back_inserter(report_.findings));
    }

    std::string path_;
    JobProgress& progress_;
    Inspection delivered_;
    CheckReport report_;
};

/// What seems to lead nowhere may only be unreadable.
[[noreturn]] void ThrowDamaged(const Database& db) {
    throw EngineError(EngineErrorCode::Corrupted,
                      "The file '" + db.FilePath() +
                          "' is damaged, so nothing was mended. Restore a backup or recover the "
                          "catalogue first, then check again.");
}

}  // namespace

bool CheckReport::IsSound() const {
    return isComplete &&
           std::none_of(findings.begin(), findings.end(), [](const CheckFinding& finding) {
               return finding.weight == FindingWeight::Fault;
           });
}

CheckReport CheckCatalogue(Database& db) {
    return Guarded(db.Reporter(), Procedure::CheckCatalogue, [&] {
        JobProgress progress(db.GetHost(), "Snippetarium is checking the catalogue, please wait...",
                             JobProgress::Cancelling::Possible);
        try {
            return Check(db.FilePath(), progress).Run();
        } catch (const EngineError& error) {
            if (error.Code() != EngineErrorCode::Cancelled) throw;
            return CheckReport();  // as the user wanted
        }
    });
}

bool MendCatalogue(Database& db, const CheckReport& report) {
    return Guarded(db.Reporter(), Procedure::MendCatalogue, [&] {
        std::string script;
        for (const CheckFinding& finding : report.findings) {
            if (finding.kind == FindingKind::DamagedFile) ThrowDamaged(db);
            if (!finding.mendingScript.empty()) script += finding.mendingScript + ";\n";
        }
        if (script.empty()) return true;
        WriteBackup(db, BackupReason::User);
        db.GetConnection().RunScript(script);
        return true;
    });
}

}  // namespace snippetarium
