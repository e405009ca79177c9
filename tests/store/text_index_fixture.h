#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "engine/command.h"
#include "engine/text_index.h"
#include "store/text_index.h"
#include "tests/engine/random_text.h"
#include "tests/engine/test_catalogue.h"
#include "tests/store/catalogue_fixture.h"

namespace snippetarium::test {

using Rows = std::vector<std::string>;

inline Rows SortedRows(Recordset found) {
    Rows rows;
    for (; !found.EndOfFile(); found.MoveNext()) {
        std::string row;
        for (std::size_t i = 0; i < found.ColumnCount(); ++i)
            row += found[i].Text() + "|";
        rows.push_back(std::move(row));
    }
    std::ranges::sort(rows);
    return rows;
}

/// A catalogue with an index, and a second look at it that knows of none.
class TextIndexFixture : public OpenCatalogueFixture {
  protected:
    TextIndexFixture() : plain_(CatalogueProviders()) {
        plain_.SetConnectionString(ConnectionStringOf(CataloguePath()));
        plain_.SetMode(AccessMode::Read);
        plain_.Open();
    }
    void TearDown() override {
        plain_.Close();
        OpenCatalogueFixture::TearDown();
    }

    /// Classes 2, 3 ... of twenty procedures each, with texts of these pieces.
    void AddProcedures(int count, RandomText& random) {
        for (int i = 0; i < count; ++i) {
            const std::int32_t classID = MaxIDValue(db_, "classID", "tblClass");
            if (classID == 1 || i % 20 == 0) {
                ExecuteSQL(db_,
                           "INSERT INTO tblClass (className, appID, languageID, classDI, "
                           "classComment) VALUES (" +
                               Text(random, 3) + ", 1, " + std::to_string(1 + random.Below(11)) +
                               ", " + Text(random, 60) + ", " + Text(random, 6) + ")");
            }
            ExecuteSQL(db_, "INSERT INTO tblCode (codeName, code, codeComment, classID) VALUES (" +
                                Text(random, 4) + ", " + Text(random, 40) + ", " + Text(random, 6) +
                                ", (SELECT max(classID) FROM tblClass))");
        }
    }
    /// A literal.
    static std::string Text(RandomText& random, std::size_t mostPieces) {
        std::string text = random.Pieces(random.Below(mostPieces + 1));
        std::string literal = "'";
        for (const char character : text)
            literal.append(character == '\'' ? "''" : std::string(1, character));
        return literal + "'";
    }

    void Tend() {
        while (db_.GetConnection().TendTextIndex(TendingPace::ToTheEnd)) {
        }
    }
    std::int64_t WaitingRows() {
        std::int64_t waiting = 0;
        for (const TextIndexState& state : ReadTextIndexState(db_))
            waiting += state.waitingRows;
        return waiting;
    }
    Rows PlainRows(const std::string& statement) {
        return SortedRows(plain_.ExecuteSearch(statement));
    }
    Rows IndexedRows(const std::string& statement) {
        return SortedRows(db_.GetConnection().ExecuteSearch(statement));
    }
    Rows CodeLike(const std::string& pattern) {
        return IndexedRows("SELECT cd.codeID FROM tblCode cd WHERE cd.code LIKE '" + pattern + "'");
    }

    /// The procedures whose code may hold the literal.
    TextCandidates FindCandidates(std::string_view literal,
                                  ShortTexts shortTexts = ShortTexts::AreFound) {
        TextScan scan = ScanFor(TextKind::Code, literal, shortTexts);
        while (db_.GetConnection().Advance(scan)) {
        }
        return scan.Candidates();
    }

    Connection plain_;
};

}  // namespace snippetarium::test
