// What it costs to store what an import finds: a procedure with its source, comment, language and
// keyword string of four words, through the catalogue's operations and, in the same run, as the
// same writes through the bare library.

#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/catalogue_generator.h"
#include "bench/prepared_write.h"
#include "engine/collation.h"
#include "engine/sqlite_handle.h"
#include "keywords/keyword_saving.h"
#include "keywords/noise_words.h"
#include "store/database.h"
#include "store/keyword_rows.h"
#include "store/reads_keywords.h"
#include "store/text_index.h"
#include "store/writes_codes.h"
#include "tests/fakes.h"
#include "tests/temporary_folder.h"

namespace snippetarium::bench {
namespace {

constexpr std::int32_t kGeneratedProcedures = 100'000;
constexpr std::int32_t kProceduresPerClass = 20;
constexpr std::size_t kWords = 4;
/// Of so many procedures, one has a word that no other has.
constexpr std::int32_t kProceduresPerNewWord = 4;

/// A generated catalogue in a folder of its own. Generated once; each benchmark writes into a copy.
class GeneratedCatalogue {
  public:
    GeneratedCatalogue() {
        static const test::TemporaryFolder original;
        const std::string generated = original.File(kCatalogueFileName);
        if (!std::filesystem::exists(generated)) GenerateCatalogue(generated, kGeneratedProcedures);
        std::filesystem::copy_file(generated, Path());
    }
    const std::string& Folder() const { return folder_.Path(); }
    std::string Path() const { return folder_.File(kCatalogueFileName); }

  private:
    test::TemporaryFolder folder_;
};

/// The procedures that are stored, the same ones for every benchmark.
class Procedures {
  public:
    explicit Procedures(std::vector<std::string> words) : words_(std::move(words)) {}

    static std::string Name(std::int32_t i) { return "DrawGrid" + std::to_string(i); }
    static std::string Comment(std::int32_t i) {
        return "' Draws grid " + std::to_string(i) + " and the customer's columns";
    }
    static std::int32_t ClassID(std::int32_t i) { return 2 + i / kProceduresPerClass; }
    static std::int32_t LanguageID(std::int32_t i) { return 1 + ClassID(i) % 11; }
    static std::string Source(std::int32_t i) {
        std::string source = "Public Sub " + Name(i) + "(ByVal lngID As Long)\r\n";
        while (source.size() < 850)
            source +=
                "    strSQL = \"SELECT * FROM Orders WHERE Name = 'x' AND ID = \" & lngID\r\n";
        return source + "End Sub";
    }
    bool HasNewWord(std::int32_t i) const { return i % kProceduresPerNewWord == 0; }
    std::array<std::string, kWords> Words(std::int32_t i) const {
        std::array<std::string, kWords> words;
        for (std::size_t place = 0; place < kWords; ++place)
            words[place] =
                words_[(static_cast<std::size_t>(i) * 7919 + place * 13) % words_.size()];
        if (HasNewWord(i)) words.back() = "Fresh" + std::to_string(i);
        return words;
    }
    std::string Keyword(std::int32_t i) const {
        const std::array<std::string, kWords> words = Words(i);
        return words[0] + ", " + words[1] + "; " + words[2] + " and " + words[3];
    }

  private:
    std::vector<std::string> words_;
};

std::vector<std::string> SearchWords(Database& db) {
    std::vector<std::string> words;
    for (Recordset row = AllSearchWords(db); !row.EndOfFile(); row.MoveNext())
        words.push_back(row["searchWord"].Text());
    return words;
}

enum class Texts { Indexed, NotIndexed };

void StoreThroughTheCatalogue(benchmark::State& state, Texts texts) {
    const GeneratedCatalogue catalogue;
    test::FakeHost host;
    Database db(host.host, CatalogueProviders(), catalogue.Folder());
    OpenCatalogue(db);
    // What the generator has left to index is not what storing costs.
    if (texts == Texts::Indexed) CompleteTextIndex(db);
    if (texts == Texts::NotIndexed) DropTextIndex(db);
    const NoiseWords noise = LoadNoiseWords(db);
    const Procedures procedures(SearchWords(db));
    BulkWriting writing(db.GetConnection());
    std::int32_t i = 0;
    for (auto _ : state) {
        ++i;
        const std::int32_t codeID = AddCode(db, {.name = Procedures::Name(i),
                                                 .code = Procedures::Source(i),
                                                 .classID = Procedures::ClassID(i),
                                                 .comment = Procedures::Comment(i)});
        AddCodeLanguage(db, codeID, Procedures::LanguageID(i));
        const std::int32_t keywordID = SaveKeyword(db, noise, procedures.Keyword(i), 1);
        SetOwnerKeyword(db, {OwnerKind::Procedure, codeID}, keywordID);
    }
    state.SetItemsProcessed(state.iterations());
    writing.Finish();
    if (!host.messages.shown.empty()) state.SkipWithError("a procedure was not stored");
    CloseCatalogue(db);
}

DatabaseHandle OpenWithTheLibraryAlone(const std::string& path) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    DatabaseHandle database(opened);
    if (result != SQLITE_OK) ThrowEngineError(opened, result);
    InstallTextComparison(opened, nullptr);
    return database;
}

/// The same writes to the same file, each by itself and with the same settings, but nothing is read
/// and every ID is known: prepared once, the values bound.
void StoreThroughTheLibrary(benchmark::State& state) {
    const GeneratedCatalogue catalogue;
    const DatabaseHandle database = OpenWithTheLibraryAlone(catalogue.Path());
    sqlite3* const handle = database.get();
    RunStatements(handle,
                  "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 1000; "
                  "PRAGMA secure_delete = OFF; PRAGMA cache_size = -65536; "
                  "PRAGMA synchronous = NORMAL");
    const std::int32_t words =
        std::stoi(ScalarText(handle, "SELECT max(searchWordID) FROM tblSearchWord"));
    const std::int32_t codes = std::stoi(ScalarText(handle, "SELECT max(codeID) FROM tblCode"));
    PreparedWrite code(handle, "INSERT INTO tblCode (codeName, code, classID) VALUES (?, ?, ?)");
    PreparedWrite comment(handle, "UPDATE tblCode SET codeComment = ? WHERE codeID = ?");
    PreparedWrite language(handle, "INSERT INTO tblCode_Link_Language VALUES (?, ?)");
    PreparedWrite keyword(handle, "INSERT INTO tblKeyword VALUES (?, ?, 1)");
    PreparedWrite word(handle, "INSERT INTO tblSearchWord VALUES (?, ?)");
    PreparedWrite link(handle, "INSERT INTO tblKeyword_link_searchWord VALUES (?, ?)");
    PreparedWrite owner(handle, "UPDATE tblCode SET keywordID = ? WHERE codeID = ?");
    const Procedures procedures({"Grid", "Form", "Table", "Index"});
    std::int32_t newWords = words;
    std::int32_t i = 0;
    for (auto _ : state) {
        ++i;
        const std::int32_t id = codes + i;
        code.Text(Procedures::Name(i)).Text(Procedures::Source(i));
        code.Number(Procedures::ClassID(i)).Run();
        comment.Text(Procedures::Comment(i)).Number(id).Run();
        language.Number(id).Number(Procedures::LanguageID(i)).Run();
        keyword.Number(id).Text(procedures.Keyword(i)).Run();
        for (std::int32_t place = 0; place < static_cast<std::int32_t>(kWords); ++place) {
            std::int32_t wordID = 1 + (i * 7919 + place * 13) % words;
            if (place == 3 && procedures.HasNewWord(i)) {
                wordID = ++newWords;
                word.Number(wordID).Text("Fresh" + std::to_string(i)).Run();
            }
            link.Number(id).Number(wordID).Run();
        }
        owner.Number(id).Number(id).Run();
    }
    state.SetItemsProcessed(state.iterations());
}

BENCHMARK(StoreThroughTheLibrary)->Iterations(10'000);
BENCHMARK_CAPTURE(StoreThroughTheCatalogue, Indexed, Texts::Indexed)->Iterations(10'000);
BENCHMARK_CAPTURE(StoreThroughTheCatalogue, NotIndexed, Texts::NotIndexed)->Iterations(10'000);

}  // namespace
}  // namespace snippetarium::bench

BENCHMARK_MAIN();
