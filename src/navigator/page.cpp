#include "navigator/page.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "editors/application_record.h"
#include "editors/class_record.h"
#include "editors/code_record.h"
#include "editors/overlong.h"
#include "export/markers.h"
#include "navigator/contents_loading.h"
#include "navigator/node.h"
#include "navigator/shown_path.h"
#include "store/database.h"
#include "store/reads_classes.h"
#include "store/reads_languages.h"
#include "support/case_fold.h"
#include "support/guard.h"
#include "support/header_labels.h"
#include "support/text.h"

namespace snippetarium {

namespace {

bool IsBlank(char character) {
    return static_cast<unsigned char>(character) <= ' ';
}

/// Grows the text of a page, whose lines end in LF.
class PageText {
  public:
    void Append(std::string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] != '\r') {
                text_ += text[i];
            } else if (text.substr(i, 2) != "\r\n") {
                text_ += '\n';
            }
        }
    }

    /// A procedure's code behind its comment. Where the comment was cut out of a file with the
    /// blanks behind it, these lead to the code, else a line break does.
    void AppendCode(std::string_view code) {
        if (!text_.empty() && !IsBlank(text_.back())) text_ += '\n';
        Append(code);
    }

    void AppendLink(std::string_view text, std::string targetKey) {
        const std::size_t begin = text_.size();
        Append(text);
        links_.push_back({{begin, text_.size()}, std::move(targetKey)});
    }

    void EndLine() {
        if (!text_.empty() && !text_.ends_with('\n')) text_ += '\n';
    }
    bool IsEmpty() const { return text_.empty(); }

    void MoveInto(Page& page) {
        page.text = std::move(text_);
        page.links = std::move(links_);
    }

  private:
    std::string text_;
    std::vector<PageLink> links_;
};

std::string OneLine(std::string name) {
    std::ranges::replace_if(
        name, [](char character) { return static_cast<unsigned char>(character) < ' '; }, ' ');
    return name;
}

/// Where a text was too long for its column, with the rest.
std::string Whole(Database& db, const NodeIDs& node, const std::string& stored,
                  std::string_view part) {
    return stored + OverlongRest(db, OwnerOf(node), part);
}

/// A comment without the lines that the heading repeats, where it is one of Basic.
std::string ShownComment(const std::string& comment) {
    const std::size_t first = comment.find_first_not_of(" \t\r\n");
    const bool isBasic = first != std::string::npos && comment[first] == '\'';
    return isBasic ? RemoveTaggedCommentLines(comment) : comment;
}

/// The rows stand in the order of their names.
bool HasNamesake(const std::vector<ContentsRow>& rows, std::size_t at) {
    const auto isNamesake = [&](std::size_t other) {
        return other < rows.size() && EqualFolded(rows[other].text, rows[at].text);
    };
    return isNamesake(at + 1) || (at > 0 && isNamesake(at - 1));
}

void AppendClasses(Database& db, const NodeIDs& application, PageText& text) {
    const std::vector<ContentsRow> classes = ReadClassRows(db, application.appID);
    if (classes.empty()) return;
    if (!text.IsEmpty()) {
        text.EndLine();
        text.Append("\n");
    }
    text.Append("Classes:\n");
    for (std::size_t i = 0; i < classes.size(); ++i) {
        const ContentsRow& row = classes[i];
        text.Append("  ");
        text.AppendLink(OneLine(row.text), KeyOf(row.ids));
        const auto count = static_cast<std::size_t>(row.childCount);
        text.Append("  (" + Counted(count, "procedure", "procedures") + ")");
        const std::string path =
            HasNamesake(classes, i) ? ClassPathInAppByClassID(db, row.ids.classID) : std::string();
        if (!path.empty()) text.Append("  " + OneLine(ShownPath(path)));
        text.Append("\n");
    }
}

/// The text of a class, each marker a link to its procedure.
void AppendDeclarations(Database& db, const ClassRecord& record, const NodeIDs& node,
                        PageText& text) {
    const std::string declarations = Whole(db, node, record.declarations, "classDI");
    const std::vector<ContentsRow> procedures = ReadProcedureRows(db, node);
    MarkedProcedures marked{.family = MarkerFamilyOf(record.languageID), .codeNames = {}};
    marked.codeNames.reserve(procedures.size());
    for (const ContentsRow& row : procedures)
        marked.codeNames.push_back(row.text);
    const std::string_view all = declarations;
    std::size_t copied = 0;
    text.EndLine();
    for (const MarkerPlace& place : FindMarkers(declarations, marked)) {
        const std::size_t begin = place.position - 1;
        text.Append(all.substr(copied, begin - copied));
        const ContentsRow& procedure = procedures[place.procedure];
        const std::size_t length = MarkerText(marked.family, procedure.text).size();
        text.AppendLink(all.substr(begin, length), KeyOf(procedure.ids));
        copied = begin + length;
    }
    text.Append(all.substr(copied));
}

void FillPage(Database& db, const ApplicationRecord& record, Page& page) {
    page.heading = HeadingOf(db, page.node, record);
    PageText text;
    text.Append(Whole(db, page.node, record.comment, "appComment"));
    AppendClasses(db, page.node, text);
    text.MoveInto(page);
}

void FillPage(Database& db, const ClassRecord& record, Page& page) {
    page.heading = HeadingOf(db, page.node, record);
    page.languageID = record.languageID;
    PageText text;
    text.Append(ShownComment(Whole(db, page.node, record.comment, "classComment")));
    AppendDeclarations(db, record, page.node, text);
    text.MoveInto(page);
}

std::int32_t LanguageOf(Database& db, const CodeRecord& record) {
    return record.languageID != 0 ? record.languageID : LanguageIDByClassID(db, record.classID);
}

void FillPage(Database& db, const CodeRecord& record, Page& page) {
    page.heading = HeadingOf(db, page.node, record);
    page.languageID = LanguageOf(db, record);
    PageText text;
    text.Append(ShownComment(Whole(db, page.node, record.comment, "codeComment")));
    text.AppendCode(Whole(db, page.node, record.code, "code"));
    text.MoveInto(page);
}

template <typename Record>
Page PageOf(Database& db, const NodeIDs& node, const std::optional<Record>& record) {
    Page page;
    if (!record) return page;
    page.node = node;
    page.name = OneLine(node == NodeIDs{.appID = kUndefinedApplicationID}
                            ? std::string(kUndefinedApplicationText)
                            : record->name);
    FillPage(db, *record, page);
    return page;
}

}  // namespace

Page ReadPage(Database& db, const NodeIDs& node) {
    return Guarded(db.Reporter(), Procedure::ReadPage, [&] {
        if (node.codeID != 0) return PageOf(db, node, LoadCodeRecord(db, node.codeID));
        if (node.classID != 0) return PageOf(db, node, LoadClassRecord(db, node.classID));
        return PageOf(db, node, LoadApplicationRecord(db, node.appID));
    });
}

std::string TextToCopy(Database& db, const NodeIDs& node) {
    return Guarded(db.Reporter(), Procedure::TextToCopy, [&] {
        if (node.codeID == 0) return ReadPage(db, node).text;
        Page page;
        const std::optional<CodeRecord> record = LoadCodeRecord(db, node.codeID);
        if (!record) return page.text;
        PageText text;
        text.Append(Whole(db, node, record->comment, "codeComment"));
        text.AppendCode(Whole(db, node, record->code, "code"));
        text.MoveInto(page);
        return page.text;
    });
}

}  // namespace snippetarium
