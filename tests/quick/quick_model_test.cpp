#include <algorithm>
#include <array>
#include <random>
#include <set>

#include "quick/quick_search.h"
#include "store/check.h"
#include "store/sql_text.h"
#include "support/utf8.h"
#include "tests/quick/catalogue_model.h"
#include "tests/store/catalogue_fixture.h"

namespace snippetarium::test {
namespace {

constexpr std::array<std::string_view, 18> kPieces = {
    "Draw", "grid", "Leap",  "YEAR",    "_",  "5",   "HTTP", "жук", "Öl",
    "ω",    "x",    "Paint", "(int x)", "::", "get", "42",   "ß",   "the"};
constexpr std::array<std::string_view, 6> kBetween = {"", "", "", " ", " ", "\r\n"};

/// Makes catalogues, changes of them and entries at random, but the same in every run.
class Chance {
  public:
    explicit Chance(unsigned seed) : random_(seed) {}

    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <typename List>
    auto Pick(const List& list) {
        return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
    }
    std::string Name() {
        std::string name;
        for (int i = 1 + Below(3); i > 0; --i)
            name += Pick(kPieces);
        return name;
    }
    std::string Text() {
        std::string text;
        for (int i = Below(8); i > 0; --i)
            text.append(Pick(kPieces)).append(Pick(kBetween));
        return text;
    }

    /// A word or a phrase that may well be found.
    ModelEntry Term(const std::vector<ModelRow>& rows) {
        const ModelRow& row = Pick(rows);
        ModelEntry term;
        term.field = static_cast<QuickField>(OneIn(2) ? 0 : Below(11));
        switch (term.field) {
            case QuickField::Kind:
                term.text = Pick(std::array<std::string_view, 3>{"application", "cl", "p"});
                return term;
            case QuickField::Date:
                term.text =
                    Pick(std::array<std::string_view, 4>{"2001", "2002-12", "2024", "1999"});
                return term;
            case QuickField::Language:
                term.text = Pick(std::array<std::string_view, 5>{"c", "java", "j", "v?sual", "x"});
                return term;
            case QuickField::Author:
                term.text = Pick(std::array<std::string_view, 4>{"ann", "lee", "o'h", "bob"});
                return term;
            default:
                break;
        }
        const std::array<std::string, 6> texts = {row.name, row.name,    row.keywords,
                                                  row.code, row.comment, row.appName};
        MakeWord(term, Pick(texts));
        return term;
    }

    ModelEntry Entry(const std::vector<ModelRow>& rows, int depth) {
        ModelEntry entry;
        if (depth == 0 || OneIn(3)) return Term(rows);
        if (OneIn(5)) {
            entry.type = ModelEntry::Type::Not;
            entry.parts.push_back(Entry(rows, depth - 1));
            // "not not x" is x again, rank and all.
            while (entry.parts.front().type == ModelEntry::Type::Not)
                entry.parts.front() = Entry(rows, depth - 1);
            return entry;
        }
        entry.type = OneIn(2) ? ModelEntry::Type::And : ModelEntry::Type::Or;
        for (int i = 2 + Below(2); i > 0; --i)
            entry.parts.push_back(Entry(rows, depth - 1));
        return entry;
    }

  private:
    /// Takes a part of the text for a word, with a slip or a wildcard in it now and then.
    void MakeWord(ModelEntry& term, const std::string& from) {
        std::vector<std::string> characters;
        for (std::size_t position = 0; position < from.size();) {
            const std::size_t start = position;
            DecodeUtf8(from, position);
            characters.push_back(from.substr(start, position - start));
        }
        const int count = static_cast<int>(characters.size());
        const int start = count == 0 || OneIn(2) ? 0 : Below(count);
        const int size = OneIn(3) ? count - start : std::min(count - start, 1 + Below(8));
        term.isPhrase = OneIn(4);
        for (int i = start; i < start + size; ++i) {
            std::string character = characters[static_cast<std::size_t>(i)];
            const bool endsWord = character.find_first_of(" \r\n()\"") != std::string::npos;
            if (!term.isPhrase && endsWord) continue;
            if (!term.isPhrase && OneIn(12))
                character = Pick(std::array<std::string_view, 4>{"*", "?", "", "z"});
            term.text += character;
        }
        const std::size_t first = term.text.find_first_not_of("*");
        if (!term.isPhrase) {
            term.text = first == std::string::npos ? "" : term.text.substr(first);
            term.text.erase(term.text.find_last_not_of("*") + 1);
        }
        const bool isNothing =
            term.text.find_first_not_of(term.isPhrase ? " \r\n" : "*?") == std::string::npos;
        if (!isNothing && term.text.front() != '-') return;
        term = ModelEntry();
        term.text = "grid";
    }

    std::minstd_rand random_;
};

class QuickModelTest : public OpenCatalogueFixture {
  protected:
    /// Procedures in three blocks of names, of which the triggers have packed two, with the first
    /// IDs of each, and the last ones of the first.
    void Fill(Chance& chance) {
        std::string script =
            "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee'), (2, 'Bob', 'M', 'O''Hara');"
            "INSERT INTO tblDate VALUES (1, '2001-03-14'), (2, '2002-12-01 08:30:00'), (3, "
            "'2024-02-29');";
        for (std::int32_t id = 1; id <= 12; ++id) {
            script += Sql("INSERT INTO tblSearchWord VALUES (", id, ", ", SqlText(chance.Name()),
                          "); INSERT INTO tblKeyword VALUES (", id, ", ", SqlText(chance.Text()),
                          ", 1); INSERT INTO tblKeyword_link_searchWord VALUES (", id, ", ",
                          std::int32_t{1 + chance.Below(12)}, ");");
        }
        for (std::int32_t id = 2; id <= 4; ++id) {
            script +=
                Sql("INSERT INTO tblApplication(appID, appName, appComment, keywordID) "
                    "VALUES (",
                    id, ", ", SqlText(chance.Name()), ", ", SqlText(chance.Text()), ", ",
                    std::int32_t{chance.Below(15)}, ");");
        }
        for (std::int32_t id = 2; id <= 9; ++id) {
            script +=
                Sql("INSERT INTO tblClass(classID, className, appID, languageID, classDI, "
                    "classComment, keywordID) VALUES (",
                    id, ", ", SqlText(chance.Name()), ", ", std::int32_t{2 + chance.Below(3)}, ", ",
                    std::int32_t{1 + chance.Below(11)}, ", ", SqlText(chance.Text()), ", ",
                    SqlText(chance.Text()), ", ", std::int32_t{chance.Below(15)}, ");");
        }
        for (const std::int32_t first : {1, 1010, 2048}) {
            for (std::int32_t id = first; id < first + 30; ++id)
                script += Procedure(chance, id);
        }
        db_.GetConnection().RunScript(script);
    }

    static std::string Procedure(Chance& chance, std::int32_t id) {
        std::string script =
            Sql("INSERT INTO tblCode VALUES (", id, ", ", SqlText(chance.Name()), ", ",
                SqlText(chance.Text()), ", ", SqlText(chance.Text()), ", ",
                std::int32_t{1 + chance.Below(9)}, ", ", std::int32_t{chance.Below(15)}, ");");
        if (chance.OneIn(2)) {
            script += Sql("INSERT INTO tblCode_Link_Language VALUES (", id, ", ",
                          std::int32_t{1 + chance.Below(11)}, ");");
        }
        for (const std::string_view link : {"tbl_Author_Link", "tbl_date_link"}) {
            if (!chance.OneIn(2)) continue;
            script += Sql("INSERT INTO ", link, " VALUES (", id, ", ",
                          std::int32_t{1 + chance.Below(2)}, ", 3);");
        }
        return script;
    }

    /// Renames, deletes, brings back under the old ID and changes texts.
    void Change(Chance& chance) {
        for (int i = 0; i < 12; ++i) {
            const std::int32_t id = chance.Pick(std::array{1, 1010, 2048}) + chance.Below(30);
            const std::string where = Sql(" WHERE codeID = ", id);
            const std::array<std::string, 6> statements = {
                "UPDATE tblCode SET codeName = " + SqlText(chance.Name()) + where,
                "UPDATE tblCode SET codeName = " + SqlText(chance.Name()) + where,
                "UPDATE tblCode SET code = " + SqlText(chance.Text()) + where,
                "DELETE FROM tblCode" + where,
                "DELETE FROM tblCode" + where + ";" + Procedure(chance, id),
                Sql("UPDATE tblClass SET className = ", SqlText(chance.Name()),
                    " WHERE classID = ", std::int32_t{2 + chance.Below(8)})};
            db_.GetConnection().RunScript(chance.Pick(statements));
        }
    }

    std::vector<std::string> Find(const std::string& entry) {
        QuickSearch search(db_, entry, 10'000);
        while (search.Step()) {
        }
        EXPECT_TRUE(search.Problems().empty()) << entry << ": " << search.Problems().front().text;
        EXPECT_EQ(search.Total(), search.Hits().size());
        std::vector<std::string> hits;
        for (const QuickHit& hit : search.Hits())
            hits.push_back(std::to_string(static_cast<int>(hit.tier)) + " " + hit.key);
        return hits;
    }

    void ComparePackedNames() {
        for (const CheckFinding& finding : CheckCatalogue(db_).findings)
            EXPECT_NE(finding.kind, FindingKind::StaleNames) << finding.examples.front();
    }
};

TEST_F(QuickModelTest, FindsWhatASlowWalkOverTheCatalogueFinds) {
    Chance chance(11);
    Fill(chance);
    std::size_t hits = 0;
    for (int round = 0; round < 6; ++round) {
        const CatalogueModel model(db_);
        for (int i = 0; i < 60; ++i) {
            const ModelEntry entry = chance.Entry(model.Rows(), 3);
            const std::vector<std::string> expected = model.Find(entry);
            ASSERT_EQ(Find(entry.Typed()), expected) << "round " << round << ": " << entry.Typed();
            hits += expected.size();
        }
        ComparePackedNames();
        Change(chance);
        // Then nearly all is looked up in the text index, what changes later is read.
        while (round % 3 == 0 && db_.GetConnection().TendTextIndex(TendingPace::ToTheEnd)) {
        }
        if (round == 3) {  // an opening packs again
            CloseCatalogue(db_);
            OpenCatalogue(db_);
        }
    }
    EXPECT_GT(hits, 5'000U) << "entries that find nothing compare nothing";
}

/// All texts of one and two characters in what the catalogue is made of.
std::set<std::string> LettersAndPairs() {
    std::set<std::string> texts;
    for (const std::string_view piece : kPieces) {
        for (std::size_t start = 0; start < piece.size(); DecodeUtf8(piece, start)) {
            std::size_t end = start;
            for (int size = 0; size < 2 && end < piece.size(); ++size) {
                DecodeUtf8(piece, end);
                texts.emplace(piece.substr(start, end - start));
            }
        }
    }
    return texts;
}

// What is typed first: most of it starts no word, or stands in codes only.
TEST_F(QuickModelTest, FindsEveryLetterAndPairOfLettersAloneAndBesideAnother) {
    Chance chance(23);
    Fill(chance);
    for (const bool isIndexed : {false, true}) {
        while (isIndexed && db_.GetConnection().TendTextIndex(TendingPace::ToTheEnd)) {
        }
        const CatalogueModel model(db_);
        for (const std::string& text : LettersAndPairs()) {
            if (text == " ") continue;  // nothing to look for
            ModelEntry letters;
            letters.text = text;
            letters.isPhrase = text.find_first_of(" ()") != std::string::npos;
            ModelEntry other;
            other.text = chance.Pick(std::array<std::string_view, 4>{"a", "ee", "x*a", "g*d"});
            ModelEntry both;
            both.type = ModelEntry::Type::And;
            both.parts = {letters, other};
            ModelEntry without = both;
            without.parts[1].type = ModelEntry::Type::Not;
            without.parts[1].parts = {other};
            for (const ModelEntry& entry : {letters, both, without})
                ASSERT_EQ(Find(entry.Typed()), model.Find(entry)) << entry.Typed();
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
