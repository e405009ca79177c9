#include "bench/catalogue_generator.h"

#include <array>
#include <fstream>
#include <random>
#include <string_view>

#include "bench/prepared_write.h"
#include "engine/create_database.h"
#include "engine/inspection.h"
#include "engine/sqlite_handle.h"
#include "store/catalogue_content.h"

namespace snippetarium::bench {

namespace {

constexpr std::int32_t kProceduresPerClass = 20;
constexpr std::int32_t kClassesPerApplication = 25;
constexpr std::int32_t kLanguages = 11;
constexpr std::int32_t kSearchWords = 20'000;
constexpr std::int32_t kAuthors = 100;
constexpr std::int32_t kDates = 1'000;

constexpr std::array<std::string_view, 24> kVerbs = {
    "Load", "Save",  "Draw",   "Find",  "Open",  "Close",   "Update", "Insert",
    "Sort", "Merge", "Split",  "Parse", "Write", "Read",    "Count",  "Check",
    "Move", "Copy",  "Resize", "Print", "Fill",  "Convert", "Select", "Refresh"};
constexpr std::array<std::string_view, 24> kNouns = {
    "Grid",  "Form",   "Record", "Table",   "Column", "Customer", "Invoice", "Report",
    "Query", "Buffer", "Stream", "Cursor",  "Window", "Menu",     "Printer", "Index",
    "Field", "Date",   "List",   "Picture", "Socket", "Registry", "Folder",  "Message"};
constexpr std::array<std::string_view, 8> kLines = {
    "    If Not rs.EOF Then rs.MoveNext\r\n",
    "    For i = 0 To UBound(values)\r\n        total = total + values(i)\r\n    Next i\r\n",
    "    Set ctl = Me.Controls(name)\r\n    ctl.Visible = True\r\n",
    "    On Error GoTo HandleError\r\n",
    "    strSQL = \"SELECT * FROM Orders WHERE OrderID = \" & lngID\r\n",
    "    Select Case kind\r\n    Case 1: result = \"first\"\r\n    Case Else: result = \"\"\r\n    "
    "End Select\r\n",
    "    ' walk the list until the entry is found\r\n    Do While Not found\r\n        pos = pos + "
    "1\r\n    Loop\r\n",
    "    Debug.Print Format$(Now, \"hh:nn:ss\") & \" \" & message\r\n"};

class Generator {
  public:
    explicit Generator(sqlite3* database) : database_(database) {}

    void AddShared() {
        PreparedWrite word(database_, "INSERT INTO tblSearchWord VALUES (?, ?)");
        for (std::int32_t i = 1; i <= kSearchWords; ++i)
            word.Number(i).Text(Name() + std::to_string(i)).Run();
        PreparedWrite author(database_, "INSERT INTO tblAuthor VALUES (?, ?, '', ?)");
        for (std::int32_t i = 1; i <= kAuthors; ++i) {
            author.Number(i).Text(Pick(kVerbs)).Text(Pick(kNouns) + std::to_string(i)).Run();
        }
        PreparedWrite date(
            database_, "INSERT INTO tblDate VALUES (?, date('1998-01-01', '+' || ? || ' days'))");
        for (std::int32_t i = 1; i <= kDates; ++i)
            date.Number(i).Number(i).Run();
    }

    void AddProcedures(std::int32_t count) {
        PreparedWrite application(database_,
                                  "INSERT INTO tblApplication VALUES (?, ?, ?, null, null, null)");
        PreparedWrite classRow(database_,
                               "INSERT INTO tblClass VALUES (?, ?, ?, ?, ?, ?, null, null)");
        for (std::int32_t i = 0; i < count; ++i) {
            const std::int32_t classID = 2 + i / kProceduresPerClass;
            const std::int32_t appID = 2 + i / (kProceduresPerClass * kClassesPerApplication);
            if (i % (kProceduresPerClass * kClassesPerApplication) == 0) {
                const std::string name = Name() + " " + std::to_string(appID);
                application.Number(appID).Text(name).Text("C:\\src\\" + name).Run();
            }
            if (i % kProceduresPerClass == 0) {
                const std::string name = "cls" + Name();
                classRow.Number(classID).Text(name).Number(appID).Number(1 + classID % kLanguages);
                classRow.Text(name + ".cls").Text("Option Explicit\r\n").Run();
            }
            AddProcedure(i + 1, classID);
        }
    }

  private:
    template <std::size_t Count>
    std::string Pick(const std::array<std::string_view, Count>& texts) {
        return std::string(texts[random_() % Count]);
    }
    std::string Name() { return Pick(kVerbs) + Pick(kNouns); }

    std::string Source(const std::string& name) {
        std::string source = "Public Function " + name + "(ByVal lngID As Long) As Boolean\r\n";
        while (source.size() < 850)
            source += Pick(kLines);
        return source + "    " + name + " = True\r\nEnd Function";
    }

    void AddProcedure(std::int32_t codeID, std::int32_t classID) {
        const std::string name = Name() + std::to_string(codeID % 9973);
        const bool hasKeyword = codeID % 3 == 0;
        code_.Number(codeID).Text(name).Text(Source(name));
        code_.Text("' " + Name() + " for the " + Pick(kNouns)).Number(classID);
        code_.NumberOrNull(hasKeyword ? codeID : 0).Run();
        language_.Number(codeID).Number(1 + classID % kLanguages).Run();
        if (hasKeyword) AddKeyword(codeID);
        if (codeID % 4 == 0) author_.Number(codeID).Number(1 + random_() % kAuthors).Run();
        if (codeID % 2 == 0) date_.Number(codeID).Number(1 + random_() % kDates).Run();
    }

    void AddKeyword(std::int32_t keywordID) {
        keyword_.Number(keywordID).Text(Name() + " " + Name()).Run();
        for (int i = 0; i < 4; ++i)
            link_.Number(keywordID).Number(1 + random_() % kSearchWords).Run();
    }

    sqlite3* database_;
    std::minstd_rand random_{7};
    PreparedWrite code_{database_, "INSERT INTO tblCode VALUES (?, ?, ?, ?, ?, ?)"};
    PreparedWrite language_{database_, "INSERT INTO tblCode_Link_Language VALUES (?, ?)"};
    PreparedWrite keyword_{database_, "INSERT INTO tblKeyword VALUES (?, ?, 1)"};
    PreparedWrite link_{database_, "INSERT INTO tblKeyword_link_searchWord VALUES (?, ?)"};
    PreparedWrite author_{database_, "INSERT INTO tbl_Author_Link VALUES (?, ?, 3)"};
    PreparedWrite date_{database_, "INSERT INTO tbl_date_link VALUES (?, ?, 3)"};
};

}  // namespace

void GenerateCatalogue(const std::string& path, std::int32_t procedures) {
    std::filesystem::remove(path);
    CreateDatabase(path, CreationScript());
    const DatabaseHandle database = OpenDatabase(path, OpenFlag::ReadWrite);
    RunStatements(
        database.get(),
        "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = -500000; "
        "BEGIN");
    {
        Generator generator(database.get());
        generator.AddShared();
        generator.AddProcedures(procedures);
    }
    RunStatements(database.get(), "COMMIT; PRAGMA journal_mode = DELETE");
}

void WriteSources(const std::filesystem::path& catalogue, const std::filesystem::path& folder,
                  const std::string& text) {
    const Inspection inspection(catalogue.string());
    const std::int64_t lastClass = inspection.ReadNumber("SELECT max(classID) FROM tblClass");
    for (std::int64_t classID = 2; classID <= lastClass; ++classID) {
        const std::filesystem::path part = folder / std::to_string(classID / 500);
        std::filesystem::create_directories(part);
        std::ofstream file(part / (std::to_string(classID) + ".cls"), std::ios::binary);
        Recordset row = inspection.Read("SELECT " + text +
                                        " FROM tblCode WHERE classID = " + std::to_string(classID));
        for (; !row.EndOfFile(); row.MoveNext())
            file << row[std::size_t{0}].Text() << "\r\n\r\n";
    }
}

}  // namespace snippetarium::bench
