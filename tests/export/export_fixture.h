#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "export/writer.h"
#include "store/sql_text.h"
#include "store/writes_applications.h"
#include "store/writes_classes.h"
#include "store/writes_codes.h"
#include "support/disk_file_system.h"
#include "support/source_form.h"
#include "tests/store/catalogue_fixture.h"

namespace snippetarium::test {

inline constexpr std::int32_t kVisualBasic = 1;
inline constexpr std::int32_t kJava = 2;
inline constexpr std::int32_t kC = 5;
inline constexpr std::int32_t kAsp = 6;

/// A test on an open catalogue that writes to the real disk, into a folder of its own.
class ExportFixture : public OpenCatalogueFixture {
  protected:
    std::string Path(std::string_view name) const { return disk_.File(name); }
    std::string Read(std::string_view name) const { return ReadBytes(Path(name)); }

    /// The class in the application, with a row for the file that it came from where there is one.
    std::int32_t MakeClass(const ClassFields& fields) {
        const std::int32_t classID = AddClass(db_, fields);
        EXPECT_GT(classID, 1);
        return classID;
    }
    void SetForm(std::int32_t classID, std::string_view form) {
        ExecuteSQL(db_,
                   Sql("INSERT INTO tblSourceForm VALUES(", classID, ", ", SqlText(form), ")"));
    }
    void AddRest(const Owner& owner, std::string_view part, std::string_view rest) {
        ExecuteSQL(db_, Sql("INSERT INTO tblOverlong VALUES(", owner.id, ", ", owner.kind, ", ",
                            SqlText(part), ", ", SqlText(rest), ")"));
    }
    Remarks Put(std::int32_t classID, std::string_view name,
                OutputMode mode = OutputMode::Replace) {
        const WriteResult result =
            WriteClassFile(db_, files_, Path(name), ReadClassFile(db_, classID), mode);
        EXPECT_TRUE(result.isWritten);
        return result.remarks;
    }
    void ExpectInformation(std::string_view text) {
        EXPECT_EQ(TakeBox(),
                  (ShownBox{BoxKind::Information, "Snippetarium Information", std::string(text)}));
    }
    /// Expects the error message of a procedure, with a part of its description.
    void ExpectError(Procedure procedure, std::string_view part) {
        const ShownBox box = TakeBox();
        EXPECT_EQ(box.kind, BoxKind::Error);
        const std::string code = "QRT Error Code: " + std::to_string(ErrorCode(procedure)) + "\r\n";
        EXPECT_NE(box.text.find(code), box.text.npos) << box.text;
        EXPECT_NE(box.text.find(part), box.text.npos) << box.text;
    }

    TemporaryFolder disk_;
    DiskFileSystem files_;
};

}  // namespace snippetarium::test
