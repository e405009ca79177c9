#include <gtest/gtest.h>

#include <array>

#include "engine/jet_like.h"
#include "search/statements.h"
#include "store/deletion.h"
#include "store/trash.h"
#include "support/case_fold.h"
#include "support/utf8.h"
#include "tests/store/text_index_fixture.h"

// Thousands of searches with the index and without it, while the catalogue changes and the index is
// tended, thrown away and made anew.

namespace snippetarium::test {
namespace {

// clang-format off
RandomText Pieces() {
    return RandomText({
        "grid", "Grid", "GR", "id", "a", "B", "ab", " ", "\r\n", "_", "%", "[", "]", "''", "'", "K", "(x)", "sub ", "End Sub",
        "\xC3\xA9t\xC3\xA9", "\xC3\x89T\xC3\x89", "\xD0\x96\xD1\x83\xD0\xBA", "\xD0\xB6\xD0\xA3\xD0\x9A",
        "\xE2\x82\xAC", "\xF0\x9F\x99\x82", "\xC3\x9F", "\xE2\x84\xAA"}, 11);
}
// clang-format on

class SearchGenerator {
  public:
    explicit SearchGenerator(RandomText& random) : random_(random) {}

    /// The inside of a literal.
    std::string Pattern() {
        constexpr std::array<std::string_view, 9> kWildcards = {"%", "_",  "[a-f]", "[!a]", "[%]",
                                                                "%", "[]", "?",     "*"};
        std::string pattern = random_.Below(5) == 0 ? "" : "%";
        for (std::size_t parts = 1 + random_.Below(3); parts > 0; --parts) {
            pattern += random_.Pieces(1 + random_.Below(3));
            if (random_.Below(3) == 0) pattern += kWildcards[random_.Below(kWildcards.size())];
        }
        // What is typed has quotes as they come; here most are doubled, so that it can run.
        std::string literal;
        for (const char character : pattern + (random_.Below(5) == 0 ? "" : "%"))
            literal.append(character == '\'' && random_.Below(20) != 0 ? "''"
                                                                       : std::string(1, character));
        return literal;
    }

    std::string Condition(int depth = 0) {
        constexpr std::array<std::string_view, 6> kColumns = {
            "cd.Code", "cd.Code", "cls.classDI", "cd.codeName", "cd.codeComment", "cls.className"};
        switch (depth > 3 ? 9 : random_.Below(10)) {
            case 0:
                return Condition(depth + 1) + " and " + Condition(depth + 1);
            case 1:
            case 2:
                return Condition(depth + 1) + " or " + Condition(depth + 1);
            case 3:
                return "not " + Condition(depth + 1);
            case 4:
                return "( " + Condition(depth + 1) + " )";
            case 5:
                return "cd.codeID > " + std::to_string(random_.Below(300));
            default:
                return std::string(kColumns[random_.Below(kColumns.size())]) +
                       (random_.Below(8) == 0 ? " ='" : " LIKE '") + Pattern() + "' ";
        }
    }

  private:
    RandomText& random_;
};

class TextIndexSearchTest : public TextIndexFixture {
  protected:
    std::string OneOf(const char* table, const char* column) {
        const Recordset row = db_.GetConnection().Execute(
            "SELECT max(" + std::string(column) + ") FROM " + table + " WHERE " + column +
            " <= " + std::to_string(2 + random_.Below(400)));
        return std::to_string(row[std::size_t{0}].Long());
    }

    /// The procedures whose code holds the literal; for one of two letters, and more than that.
    std::vector<std::int64_t> HoldersOf(const std::string& literal) {
        std::vector<std::int64_t> holders;
        Recordset row = plain_.ExecuteSearch("SELECT codeID, code FROM tblCode ORDER BY codeID");
        for (; !row.EndOfFile(); row.MoveNext()) {
            const std::string code = FoldCase(row["code"].Text());
            const bool isShort = literal.size() == 2 && code.size() == 2;
            const bool isHolder = code.find(FoldCase(literal)) != std::string::npos;
            if (isHolder && !isShort) holders.push_back(row["codeID"].Integer64());
        }
        return holders;
    }

    void Change() {
        switch (random_.Below(9)) {
            case 0:
                return AddProcedures(static_cast<int>(random_.Below(30)), random_);
            case 1:
                ExecuteSQL(db_, "UPDATE tblCode SET code = " + Text(random_, 30) +
                                    ", codeComment = " + Text(random_, 5) +
                                    " WHERE codeID = " + OneOf("tblCode", "codeID"));
                return;
            case 2:
                ExecuteSQL(db_, "UPDATE tblCode SET codeName = " + Text(random_, 5) +
                                    " WHERE codeID = " + OneOf("tblCode", "codeID"));
                return;
            case 3:
                ExecuteSQL(db_, "UPDATE tblClass SET classDI = " + Text(random_, 80) +
                                    " WHERE classID = " + OneOf("tblClass", "classID"));
                return;
            case 4:
                return ChangeTrash();
            case 5:
                return Tend();
            case 6:
                db_.GetConnection().TendTextIndex(TendingPace::WhenIdle);
                return;
            case 7:
                if (random_.Below(10) == 0) RebuildTextIndex(db_);
                return;
            default:
                if (random_.Below(20) == 0) DropTextIndex(db_);
                return;
        }
    }

    /// Deletes a class with its procedures, or brings one back.
    void ChangeTrash() {
        const std::vector<TrashEntry> entries = ListTrash(db_);
        if (!entries.empty() && random_.Below(2) == 0) {
            RestoreFromTrash(db_, entries[random_.Below(entries.size())].trashID);
        } else if (const std::int32_t classID = std::stoi(OneOf("tblClass", "classID"));
                   classID > 1) {
            DeleteClass(db_, classID);
        }
    }

    void Compare(const std::string& statement) {
        ++searches_;
        int plainError = 0;
        Rows expected;
        try {
            expected = PlainRows(statement);
        } catch (const EngineError& error) {
            plainError = error.Number();
        }
        Rows found;
        const int error = ErrorNumberOf([&] { found = IndexedRows(statement); });
        EXPECT_EQ(error, plainError) << statement;
        EXPECT_EQ(found, expected) << statement;
        if (!expected.empty()) ++successes_;
    }

    void CompareNamed(const char* query, Parameter text) {
        const std::vector<Parameter> parameters = {std::move(text)};
        Rows expected;
        Rows found;
        const int plainError = ErrorNumberOf(
            [&] { expected = SortedRows(plain_.ExecuteNamedQuery(query, parameters)); });
        const int error = ErrorNumberOf(
            [&] { found = SortedRows(db_.GetConnection().ExecuteNamedSearch(query, parameters)); });
        EXPECT_EQ(error, plainError) << query;
        EXPECT_EQ(found, expected) << query;
    }

    RandomText random_ = Pieces();
    int searches_ = 0;
    int successes_ = 0;
};

TEST_F(TextIndexSearchTest, FindsTheSameRowsHoweverTheCatalogueChanges) {
    AddProcedures(200, random_);
    SearchGenerator generator(random_);
    for (int round = 0; round < 250 && !HasFailure(); ++round) {
        Change();
        for (int i = 0; i < 12; ++i) {
            const std::string condition = generator.Condition();
            const auto languageID = static_cast<std::int16_t>(1 + random_.Below(11));
            Compare(random_.Below(3) == 0 ? CodeTextStatement(condition, languageID)
                                          : CodeTextStatement(condition));
        }
        const std::string text = random_.Pieces(1 + random_.Below(3));
        CompareNamed("qryCodeClassAppRSByComment",
                     Parameter::LongText("comment", "%" + text + "%"));
        CompareNamed("qryCodeClassAppRSByName", Parameter::Text255("name", text));
    }
    EXPECT_GT(successes_, searches_ / 4);
}

TEST_F(TextIndexSearchTest, HasCandidatesThatHoldEveryLiteralAndLittleElse) {
    AddProcedures(300, random_);
    Tend();
    std::size_t candidates = 0;
    std::size_t holders = 0;
    std::size_t pairs = 0;
    for (int i = 0; i < 300; ++i) {
        const std::string literal = random_.Pieces(1 + random_.Below(3));
        const TextCandidates found = FindCandidates(literal, ShortTexts::MayBeMissing);
        const std::vector<std::int64_t> expected = HoldersOf(literal);
        if (CharacterCount(literal) < 3) {
            if (!found) continue;
            EXPECT_EQ(literal.size(), 2U) << "two characters of ASCII";
            ++pairs;
        } else {
            ASSERT_TRUE(found) << literal;
            candidates += found->size();
            holders += expected.size();
        }
        EXPECT_TRUE(std::ranges::includes(*found, expected)) << literal;
    }
    EXPECT_LT(candidates, holders + holders / 10);
    EXPECT_GT(pairs, 5U);
}

TEST_F(TextIndexSearchTest, FindsTextsOfTwoLettersOrCannotTell) {
    const auto add = [this](std::string_view code) {
        ExecuteSQL(db_, "INSERT INTO tblCode (codeName, code, classID) VALUES ('n', '" +
                            std::string(code) + "', 1)");
    };
    const auto candidates = [this] {
        return FindCandidates("hn", ShortTexts::AreFound).value_or(std::vector<std::int64_t>{-1});
    };
    using IDs = std::vector<std::int64_t>;
    for (int i = 0; i < 100; ++i)
        add("Sub a\r\nEnd Sub");
    add("\r\nHN");
    add("hn\r\n");
    Tend();
    EXPECT_EQ(candidates(), (IDs{101, 102})) << "all texts have line breaks";
    ExecuteSQL(db_, "UPDATE tblCode SET code = 'hn' WHERE codeID = 7");
    EXPECT_EQ(candidates(), (IDs{7, 101, 102})) << "a row that waits is looked at";
    Tend();
    EXPECT_EQ(candidates(), IDs{-1});
    ExecuteSQL(db_, "UPDATE tblCode SET code = 'Sub b\r\nEnd Sub' WHERE codeID = 7");
    Tend();
    EXPECT_EQ(candidates(), IDs{-1}) << "the segment of the short text is still there";
}

TEST_F(TextIndexSearchTest, LooksUpATextThatIsLongerThanAPatternMayBe) {
    AddProcedures(20, random_);
    const std::string text(LikePattern::kMaxPatternLength + 1, '%');
    ExecuteSQL(db_, "UPDATE tblCode SET code = '" + text + "' WHERE codeID = 7");
    Tend();
    TextScan scan({"tblCode", "code"}, TextComparison::Equal, text);
    while (db_.GetConnection().Advance(scan)) {
    }
    EXPECT_EQ(scan.Candidates(), TextCandidates(std::vector<std::int64_t>{7}));
}

TEST_F(TextIndexSearchTest, ScansAnIndexThatChangesBetweenThePieces) {
    AddProcedures(200, random_);
    Tend();
    for (int i = 0; i < 40; ++i) {
        const std::string literal = random_.Pieces(2 + random_.Below(3));
        const std::vector<std::int64_t> expected = HoldersOf(literal);
        TextScan scan({"tblCode", "code"}, literal, ShortTexts::AreFound, 1);
        int pieces = 0;
        while (db_.GetConnection().Advance(scan)) {
            if (++pieces % 2 == 0) AddProcedures(5, random_);
            db_.GetConnection().TendTextIndex(TendingPace::ToTheEnd);
        }
        EXPECT_LT(pieces, 100) << "a scan comes to its end";
        const TextCandidates found = scan.Candidates();
        EXPECT_TRUE(!found || std::ranges::includes(*found, expected)) << literal;
    }
}

TEST_F(TextIndexSearchTest, LooksAtRowsThatWaitPieceByPiece) {
    const auto expectHolders = [this](int fewestPieces) {
        TextScan scan({"tblCode", "code"}, "grid", ShortTexts::AreFound);
        int pieces = 1;
        while (db_.GetConnection().Advance(scan))
            ++pieces;
        EXPECT_GE(pieces, fewestPieces) << "so that who types is not kept waiting";
        EXPECT_EQ(scan.Candidates(), HoldersOf("grid"));
    };
    AddProcedures(300, random_);
    ExecuteSQL(db_,
               "INSERT INTO tblCode (codeID, codeName, code, classID) VALUES (2000000000, "
               "'far', 'A GRID behind a gap', 1)");
    expectHolders(5);
    Tend();
    expectHolders(1);
    ExecuteSQL(db_, "UPDATE tblCode SET code = 'grid' WHERE codeID BETWEEN 20 AND 220");
    EXPECT_GT(WaitingRows(), 200);
    expectHolders(4);
}

}  // namespace
}  // namespace snippetarium::test
