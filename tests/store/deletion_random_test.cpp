#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <set>

#include "store/deletion.h"
#include "tests/store/write_fixture.h"

// Deletions in random catalogues, compared with a slow model that knows the rows alone.
// Applications, classes and procedures have the same small IDs, so that taking one kind's ID for
// another's shows.

namespace snippetarium::test {
namespace {

/// The fields of a row that are IDs; 0 is null.
using IDRow = std::vector<int>;
using Table = std::set<IDRow>;

/// A table of the catalogue and the columns that the model knows, null as 0.
struct ModelTable {
    std::string name;
    std::vector<std::string> columns;
};

// clang-format off
const std::vector<ModelTable> kTables = {
    {"tblApplication", {"appID", "keywordID"}},
    {"tblClass", {"classID", "appID", "keywordID"}},
    {"tblCode", {"codeID", "classID", "keywordID"}},
    {"tblKeyword", {"keywordID"}},
    {"tblSearchWord", {"searchWordID"}},
    {"tblKeyword_link_searchWord", {"keywordID", "searchWordID"}},
    {"tblAuthor", {"authorID"}},
    {"tbl_Author_Link", {"ownerID", "authorID", "ownerTableID"}},
    {"tblDate", {"dateID"}},
    {"tbl_date_link", {"ownerID", "dateID", "ownerTableID"}},
    {"tblCode_Link_Language", {"codeID", "languageID"}},
    {"tblFavorite", {"appID", "classID", "codeID"}},
    {"tblSourceForm", {"classID"}},
    {"tblOverlong", {"ownerID", "ownerTableID"}},
};
// clang-format on

/// Texts that a row needs, by its table.
const std::map<std::string, std::pair<std::string, std::string>> kTexts = {
    {"tblApplication", {", appName", ", 'a'"}}, {"tblClass", {", className", ", 'c'"}},
    {"tblCode", {", codeName", ", 'p'"}},       {"tblSearchWord", {", searchWord", ", 'w'"}},
    {"tblSourceForm", {", form", ", 'f'"}},     {"tblOverlong", {", part, text", ", 'p', 't'"}}};

class Model {
  public:
    explicit Model(unsigned seed) : random_(seed) {
        MakeOwners();
        MakeRest();
    }

    std::map<std::string, Table> tables;

    void DeleteCode(int codeID) { Delete({{3, codeID}}); }
    void DeleteClass(int classID) { Delete(ClassWithCodes(classID)); }
    void DeleteApplication(int appID) {
        std::set<IDRow> owners = {{1, appID}};
        for (const IDRow& row : tables["tblClass"]) {
            if (row[1] == appID) owners.merge(ClassWithCodes(row[0]));
        }
        Delete(owners);
    }
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    std::string Script() const {
        std::string script = "DELETE FROM tblClass; DELETE FROM tblApplication;";
        for (const auto& [table, columns] : kTables) {
            const auto texts = kTexts.find(table);
            const auto [names, values] =
                texts == kTexts.end() ? std::pair<std::string, std::string>() : texts->second;
            for (const IDRow& row : tables.at(table))
                script += "INSERT INTO " + table + "(" + List(columns) + names + ") VALUES (" +
                          List(row) + values + ");";
        }
        return script;
    }

  private:
    static std::string List(const std::vector<std::string>& columns) {
        std::string list;
        for (const std::string& column : columns)
            list += (list.empty() ? "" : ", ") + column;
        return list;
    }
    static std::string List(const IDRow& row) {
        std::string list;
        for (const int id : row)
            list += (list.empty() ? "" : ", ") + (id == 0 ? "NULL" : std::to_string(id));
        return list;
    }

    /// A keyword string of its own for two owners of three, now and then another's.
    int Keyword() {
        if (Below(3) == 0) return 0;
        if (keywords_ > 0 && Below(12) == 0) return 1 + Below(keywords_);
        return ++keywords_;
    }
    void MakeOwners() {
        const int applications = 1 + Below(3);
        const int classes = 1 + Below(5);
        const int codes = Below(9);
        for (int id = 1; id <= applications; ++id)
            AddOwner("tblApplication", 1, {id, Keyword()});
        for (int id = 1; id <= classes; ++id)
            AddOwner("tblClass", 2, {id, id == 1 ? 1 : 1 + Below(applications), Keyword()});
        for (int id = 1; id <= codes; ++id)
            AddOwner("tblCode", 3, {id, 1 + Below(classes), Keyword()});
    }
    void AddOwner(const std::string& table, int kind, const IDRow& row) {
        tables[table].insert(row);
        const int id = row[0];
        for (int times = Below(3); times > 0; --times)
            tables["tbl_Author_Link"].insert({id, 1 + Below(5), kind});
        for (int times = Below(3); times > 0; --times)
            tables["tbl_date_link"].insert({id, 1 + Below(5), kind});
        if (Below(2) == 0) tables["tblOverlong"].insert({id, kind});
        if (kind == 2 && Below(2) == 0) tables["tblSourceForm"].insert({id});
        if (kind == 2 && Below(2) == 0) tables["tblFavorite"].insert({row[1], id, 0});
        if (kind == 3 && Below(2) == 0) tables["tblCode_Link_Language"].insert({id, 1 + Below(11)});
        if (kind == 3 && Below(2) == 0) tables["tblFavorite"].insert({AppOf(row[1]), row[1], id});
    }
    int AppOf(int classID) {
        const Table& classes = tables["tblClass"];
        return (*std::ranges::find(classes, classID, [](const IDRow& row) { return row[0]; }))[1];
    }
    void MakeRest() {
        for (int id = 1; id <= 6; ++id) {
            tables["tblSearchWord"].insert({id});
            tables["tblAuthor"].insert({id});
            tables["tblDate"].insert({id});
        }
        for (int id = 1; id <= keywords_; ++id) {
            tables["tblKeyword"].insert({id});
            for (int times = Below(4); times > 0; --times)
                tables["tblKeyword_link_searchWord"].insert({id, 1 + Below(6)});
        }
        for (const ModelTable& table : kTables)
            tables.try_emplace(table.name);
    }

    /// As {kind, ID} pairs.
    std::set<IDRow> ClassWithCodes(int classID) {
        std::set<IDRow> owners = {{2, classID}};
        for (const IDRow& row : tables["tblCode"]) {
            if (row[1] == classID) owners.insert({3, row[0]});
        }
        return owners;
    }

    void Delete(const std::set<IDRow>& owners) {
        DeleteKeywords(owners);
        DeleteShared("tbl_Author_Link", "tblAuthor", 1, [&](const IDRow& link) {
            return owners.contains({link[2], link[0]});
        });
        DeleteShared("tbl_date_link", "tblDate", 1, [&](const IDRow& link) {
            return owners.contains({link[2], link[0]});
        });
        const auto isGone = [&](int kind, int id) {
            return owners.contains({kind, id}) && (kind == 3 || id > 1);
        };
        std::erase_if(tables["tblApplication"], [&](const auto& row) { return isGone(1, row[0]); });
        std::erase_if(tables["tblClass"], [&](const auto& row) { return isGone(2, row[0]); });
        std::erase_if(tables["tblCode"], [&](const auto& row) { return isGone(3, row[0]); });
        std::erase_if(tables["tblCode_Link_Language"],
                      [&](const auto& row) { return isGone(3, row[0]); });
        std::erase_if(tables["tblFavorite"],
                      [&](const auto& row) { return isGone(2, row[1]) || isGone(3, row[2]); });
        std::erase_if(tables["tblSourceForm"], [&](const auto& row) { return isGone(2, row[0]); });
        std::erase_if(tables["tblOverlong"],
                      [&](const auto& row) { return isGone(row[1], row[0]); });
    }

    void DeleteKeywords(const std::set<IDRow>& owners) {
        static const std::map<int, std::string> kOwners = {
            {1, "tblApplication"}, {2, "tblClass"}, {3, "tblCode"}};
        std::set<int> keywords;
        for (const IDRow& owner : owners) {
            for (const IDRow& row : tables[kOwners.at(owner[0])]) {
                if (row[0] == owner[1]) keywords.insert(row.back());
            }
        }
        DeleteShared("tblKeyword_link_searchWord", "tblSearchWord", 1,
                     [&](const IDRow& link) { return keywords.contains(link[0]); });
        std::erase_if(tables["tblKeyword"],
                      [&](const auto& row) { return keywords.contains(row[0]); });
        for (const auto& [kind, table] : kOwners) {
            Table rows;
            for (IDRow row : tables[table]) {
                if (keywords.contains(row.back())) row.back() = 0;
                rows.insert(row);
            }
            tables[table] = rows;
        }
    }

    /// Deletes links, and of what they led to, which stands at `place`, that to which none leads
    /// any more.
    void DeleteShared(const std::string& linkTable, const std::string& table, std::size_t place,
                      const std::function<bool(const IDRow&)>& isGone) {
        std::set<int> candidates;
        for (const IDRow& link : tables[linkTable]) {
            if (isGone(link)) candidates.insert(link[place]);
        }
        std::erase_if(tables[linkTable], isGone);
        for (const IDRow& link : tables[linkTable])
            candidates.erase(link[place]);
        std::erase_if(tables[table], [&](const auto& row) { return candidates.contains(row[0]); });
    }

    std::mt19937 random_;
    int keywords_ = 0;
};

class RandomDeletions : public WriteFixture {
  protected:
    std::map<std::string, Table> Stored() {
        std::map<std::string, Table> tables;
        for (const auto& [table, columns] : kTables) {
            Table& rows = tables[table];
            Recordset row = db_.GetConnection().Execute("SELECT * FROM " + table);
            for (; !row.EndOfFile(); row.MoveNext()) {
                IDRow ids;
                for (const std::string& column : columns)
                    ids.push_back(row[column].Long());
                rows.insert(ids);
            }
        }
        return tables;
    }
    void ReplaceCatalogue(const Model& model) {
        std::string script;
        for (const auto& [table, columns] : kTables)
            script += "DELETE FROM " + table + ";";
        db_.GetConnection().RunScript(script + model.Script());
    }
};

TEST_F(RandomDeletions, RemoveWhatTheModelRemovesAndNothingElse) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        Model model(seed);
        ReplaceCatalogue(model);
        ASSERT_EQ(Stored(), model.tables) << "seed " << seed;
        for (int deletions = 0; deletions < 3; ++deletions) {
            const int id = 1 + model.Below(5);
            const int kind = model.Below(4);
            SCOPED_TRACE("seed " + std::to_string(seed) + ", kind " + std::to_string(kind) +
                         ", ID " + std::to_string(id));
            if (kind == 0) {
                model.DeleteCode(id);
                DeleteCode(db_, id);
            } else if (kind == 1) {
                model.DeleteClass(id);
                DeleteClass(db_, id);
            } else if (kind == 2) {
                model.DeleteClass(id);
                EXPECT_TRUE(DeleteClassQuietly(db_, id));
            } else {
                model.DeleteApplication(id);
                DeleteApplication(db_, id);
            }
            ASSERT_EQ(Stored(), model.tables);
            ASSERT_TRUE(Select("SELECT * FROM tblIDsToDelete").empty());
            ASSERT_TRUE(Select("SELECT * FROM tblClassesToEmpty").empty());
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
