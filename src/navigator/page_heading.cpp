#include "navigator/page_heading.h"

#include <utility>

#include "editors/application_record.h"
#include "editors/author_text.h"
#include "editors/class_record.h"
#include "editors/code_record.h"
#include "editors/comment_text.h"
#include "editors/owner_details.h"
#include "navigator/node.h"
#include "navigator/shown_path.h"
#include "store/reads_languages.h"

namespace snippetarium {

namespace {

class Heading {
  public:
    Heading(Database& db, const NodeIDs& node) : db_(db), node_(node) {
        Add("Kind", std::string(KindName(KindOf(node))));
    }

    /// Nothing for an empty text.
    void Add(std::string_view label, std::string text) {
        if (!text.empty()) lines_.push_back({label, std::move(text)});
    }

    void AddParent(std::string_view label, const NodeIDs& parent) {
        Add(label, NameOfNode(db_, parent));
        if (lines_.back().label == label) lines_.back().targetKey = KeyOf(parent);
    }

    void AddDetails(const std::string& comment) {
        const OwnerDetails details = LoadOwnerDetails(db_, OwnerOf(node_));
        std::string authors;
        for (const LinkedAuthor& author : details.authors)
            authors += (authors.empty() ? "" : "; ") + AuthorText(author.name);
        std::string dates;
        for (const std::string& date : details.dates)
            dates += (dates.empty() ? "" : "; ") + date;
        Add("Authors", authors);
        Add("Dates", dates);
        if (details.keywords) Add("Keywords", details.keywords->entry.text);
        Add("Comment", FirstCommentLine(comment));
    }

    std::vector<HeadingLine> Take() { return std::move(lines_); }

  private:
    Database& db_;
    NodeIDs node_;
    std::vector<HeadingLine> lines_;
};

}  // namespace

std::vector<HeadingLine> HeadingOf(Database& db, const NodeIDs& node,
                                   const ApplicationRecord& record) {
    Heading heading(db, node);
    heading.Add("Version", record.version);
    heading.Add("Path", ShownPath(record.path));
    heading.AddDetails(record.comment);
    return heading.Take();
}

std::vector<HeadingLine> HeadingOf(Database& db, const NodeIDs& node, const ClassRecord& record) {
    Heading heading(db, node);
    heading.AddParent("Application", {.appID = node.appID});
    heading.Add("Language", LanguageByClassID(db, record.classID));
    heading.Add("Path", ShownPath(record.pathInApp));
    heading.AddDetails(record.comment);
    return heading.Take();
}

std::vector<HeadingLine> HeadingOf(Database& db, const NodeIDs& node, const CodeRecord& record) {
    Heading heading(db, node);
    heading.AddParent("Application", {.appID = node.appID});
    heading.AddParent("Class", {.appID = node.appID, .classID = node.classID});
    heading.Add("Language", LanguageByCodeID(db, record.codeID));
    heading.AddDetails(record.comment);
    return heading.Take();
}

}  // namespace snippetarium
