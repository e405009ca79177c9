#include "export/writer.h"

#include <optional>
#include <utility>

#include "export/class_layout.h"
#include "export/expand.h"
#include "store/database.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "store/reads_source_files.h"
#include "support/encoding.h"
#include "support/error.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::optional<SourceForm> ReadForm(const std::string& stored) {
    try {
        SourceForm form = SourceForm::Parse(stored);
        if (IsKnownEncoding(form.encoding)) return form;
        return std::nullopt;
    } catch (const Error&) {
        return std::nullopt;
    }
}

/// The form that the class's file had. One that cannot be read is no reason to write nothing.
SourceForm FormOfClass(Database& db, std::int32_t classID, Remarks& remarks) {
    const std::string stored = SourceFormOfClass(db, classID);
    if (auto form = ReadForm(stored)) return *std::move(form);
    remarks.push_back("What the file of the class '" + ClassNameByID(db, classID) +
                      "' looked like is not known any more ('" + stored +
                      "'), so it is written in UTF-8.");
    return {};
}

/// The class's text with its procedures in it. One that has no marker there is not in the file, and
/// nobody who looks at the file can see that it is missing.
std::string ExpandClassText(Database& db, const ClassFile& file, std::string_view classText,
                            const WholeTexts& whole, Remarks& remarks) {
    const MarkerFamily family = MarkerFamilyOf(file.languageID);
    ExpandedText expanded =
        ExpandMarkers(family, classText, ReadProcedureTexts(db, file.classID, whole, remarks));
    for (const std::string& name : expanded.leftOut) {
        remarks.push_back(
            "The procedure '" + name + "' of the class '" + ClassNameByID(db, file.classID) +
            "' is not in the file, because the class's text does not say where. Put "
            "the line " +
            MarkerText(family, name) + " into it, or export the procedure by itself.");
    }
    return std::move(expanded.text);
}

Remarks PutProcedureFile(Database& db, FileSystem& files, std::string_view path,
                         std::int32_t codeID, OutputMode mode) {
    const Recordset row = ClassCodeRSByCodeID(db, codeID);
    if (row.EndOfFile()) throw NoSuchRecord("procedure", codeID);
    Remarks remarks;
    const std::int32_t classID = row["classID"].Long();
    const MarkerFamily family = MarkerFamilyOf(row["languageID"].Long());
    const ProcedureText procedure = ProcedureTextOf(row, WholeTexts(db, classID), remarks);
    std::string text = InsertedText(family, procedure);
    if (!text.ends_with("\r\n")) text += "\r\n";

    SourceForm form = FormOfClass(db, classID, remarks);
    const LineEnds ofWholeFile = std::exchange(form.lineEnds, {});
    form.lineEnds.most = ofWholeFile.most;
    PutText(files, {path, text, form}, mode, remarks);
    return remarks;
}

}  // namespace

ClassFile ReadClassFile(Database& db, std::int32_t classID) {
    const Recordset row = ClassDICommentLanIDByID(db, classID);
    if (row.EndOfFile()) throw NoSuchRecord("class", classID);
    return {.classID = classID,
            .languageID = row["languageID"].Long(),
            .classText = row["classDI"].Text(),
            .header = row["classComment"].Text()};
}

Error NoSuchRecord(std::string_view kind, std::int32_t id) {
    return Error(error_number::kInvalidCall, "The catalogue has no " + std::string(kind) +
                                                 " with the number " + std::to_string(id) + ".");
}

Remarks PutClassFile(Database& db, FileSystem& files, std::string_view path, const ClassFile& file,
                     OutputMode mode) {
    Remarks remarks;
    const WholeTexts whole(db, file.classID);
    const Owner owner{OwnerKind::Class, file.classID};
    const std::string name = ClassNameByID(db, file.classID);
    // The line break behind the last line is the one that the writer adds. Put there beforehand, it
    // also completes a marker that ends the text.
    const std::string classText =
        whole.Whole({owner, "classDI", name, file.classText}, remarks) + "\r\n";
    const std::string header = whole.Whole({owner, "classComment", name, file.header}, remarks);
    const std::string text =
        LayOutClass(MarkerFamilyOf(file.languageID),
                    ExpandClassText(db, file, classText, whole, remarks), header);
    PutText(files, {path, text, FormOfClass(db, file.classID, remarks)}, mode, remarks);
    return remarks;
}

WriteResult WriteClassFile(Database& db, FileSystem& files, std::string_view path,
                           const ClassFile& file, OutputMode mode) {
    return Guarded(db.Reporter(), Procedure::WriteClassFile, [&] {
        return WriteResult{true, PutClassFile(db, files, path, file, mode)};
    });
}

WriteResult WriteProcedureFile(Database& db, FileSystem& files, std::string_view path,
                               std::int32_t codeID, OutputMode mode) {
    return Guarded(db.Reporter(), Procedure::WriteProcedureFile, [&] {
        return WriteResult{true, PutProcedureFile(db, files, path, codeID, mode)};
    });
}

}  // namespace snippetarium
