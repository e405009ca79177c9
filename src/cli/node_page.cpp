#include "cli/node_page.h"

#include <ostream>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "cli/contents_walk.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "cli/text_table.h"
#include "editors/application_record.h"
#include "editors/class_record.h"
#include "editors/code_record.h"
#include "editors/overlong.h"
#include "navigator/page_heading.h"
#include "support/text.h"

namespace snippetarium {

namespace {

constexpr std::size_t kLabelWidth = 13;

/// Prints one page; the kinds of node differ in their lines and texts.
class Page {
  public:
    Page(std::ostream& output, Database& db, const NodeIDs& node)
        : output_(output), db_(db), node_(node) {}

    void Print() {
        output_ << OneLine(NameOfNode(db_, node_)) << '\n';
        Line("Key", KeyOf(node_));
        switch (KindOf(node_)) {
            case NodeKind::Application:
                return PrintRecord(LoadApplicationRecord(db_, node_.appID).value());
            case NodeKind::Class:
                return PrintRecord(LoadClassRecord(db_, node_.classID).value());
            default:
                return PrintRecord(LoadCodeRecord(db_, node_.codeID).value());
        }
    }

  private:
    void PrintRecord(const ApplicationRecord& record) {
        Heading(HeadingOf(db_, node_, record));
        Text(record.comment, "appComment");
        Children("Classes");
    }

    void PrintRecord(const ClassRecord& record) {
        Heading(HeadingOf(db_, node_, record));
        Text(record.comment, "classComment");
        Text(record.declarations, "classDI");
        Children("Procedures");
    }

    void PrintRecord(const CodeRecord& record) {
        Heading(HeadingOf(db_, node_, record));
        Text(record.comment, "codeComment");
        Text(record.code, "code");
    }

    void Heading(const std::vector<HeadingLine>& lines) {
        for (const auto& [label, text, targetKey] : lines)
            Line(label, targetKey.empty() ? text : text + "  (" + targetKey + ")");
    }

    void Line(std::string_view label, std::string_view value) {
        std::string start = std::string(label) + ":";
        start.resize(kLabelWidth, ' ');
        output_ << start << OneLine(value) << '\n';
    }

    /// With what an import had to cut off it. An empty text takes no room.
    void Text(const std::string& stored, std::string_view part) {
        std::string text = TerminalText(stored + OverlongRest(db_, OwnerOf(node_), part));
        if (text.empty()) return;
        output_ << '\n' << text << (text.ends_with('\n') ? "" : "\n");
    }

    void Children(std::string_view heading) {
        bool isFirst = true;
        WalkContentsFrom(db_, node_, 2, [&](const ContentsNode& child) {
            if (child.depth == 0) return;
            if (isFirst) output_ << '\n' << heading << ":\n";
            isFirst = false;
            output_ << "  " << child.Key() << "  " << OneLine(child.name);
            if (child.Kind() == NodeKind::Class) {
                output_ << "  ("
                        << Counted(static_cast<std::size_t>(child.childCount), "procedure",
                                   "procedures")
                        << ")";
            }
            output_ << '\n';
        });
    }

    std::ostream& output_;
    Database& db_;
    NodeIDs node_;
};

}  // namespace

void PrintNodePage(std::ostream& output, Database& db, const NodeIDs& node) {
    Page(output, db, node).Print();
}

}  // namespace snippetarium
