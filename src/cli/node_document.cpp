#include "cli/node_document.h"

#include <nlohmann/json.hpp>

#include "cli/contents_walk.h"
#include "cli/node_argument.h"
#include "cli/node_output.h"
#include "editors/application_record.h"
#include "editors/class_record.h"
#include "editors/code_record.h"
#include "editors/overlong.h"
#include "store/database.h"
#include "store/reads_languages.h"

namespace snippetarium {

namespace {

/// A stored text with what an import had to cut off it.
std::string Whole(Database& db, const NodeIDs& node, std::string text, std::string_view part) {
    return text += OverlongRest(db, OwnerOf(node), part);
}

void AddFields(Json& document, Database& db, const ApplicationRecord& record, const NodeIDs& node) {
    document["path"] = record.path;
    document["version"] = record.version;
    document["comment"] = Whole(db, node, record.comment, "appComment");
}

void AddFields(Json& document, Database& db, const ClassRecord& record, const NodeIDs& node) {
    document["application"] = NodeDocument(db, {.appID = node.appID});
    document["languageID"] = record.languageID;
    document["language"] = LanguageByClassID(db, record.classID);
    document["path"] = record.pathInApp;
    document["comment"] = Whole(db, node, record.comment, "classComment");
    document["text"] = Whole(db, node, record.declarations, "classDI");
}

void AddFields(Json& document, Database& db, const CodeRecord& record, const NodeIDs& node) {
    document["application"] = NodeDocument(db, {.appID = node.appID});
    document["class"] = NodeDocument(db, {.appID = node.appID, .classID = node.classID});
    document["languageID"] = record.languageID;
    document["language"] = LanguageByCodeID(db, record.codeID);
    document["comment"] = Whole(db, node, record.comment, "codeComment");
    document["code"] = Whole(db, node, record.code, "code");
}

void AddRecord(Json& document, Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Application:
            return AddFields(document, db, LoadApplicationRecord(db, node.appID).value(), node);
        case NodeKind::Class:
            return AddFields(document, db, LoadClassRecord(db, node.classID).value(), node);
        default:
            return AddFields(document, db, LoadCodeRecord(db, node.codeID).value(), node);
    }
}

void AddChildren(Json& document, Database& db, const NodeIDs& node) {
    if (KindOf(node) == NodeKind::Procedure) return;
    const bool isApplication = KindOf(node) == NodeKind::Application;
    Json& children = document[isApplication ? "classes" : "procedures"] = Json::array();
    WalkContentsFrom(db, node, 2, [&](const ContentsNode& child) {
        if (child.depth == 0) return;
        Json entry = {{"key", child.Key()}, {"name", child.name}};
        if (isApplication) entry["count"] = child.childCount;
        children.push_back(std::move(entry));
    });
}

}  // namespace

Json AuthorsDocument(const std::vector<LinkedAuthor>& authors) {
    Json document = Json::array();
    for (const auto& [authorID, name] : authors) {
        document.push_back({{"authorID", authorID},
                            {"first", name.first},
                            {"middle", name.middle},
                            {"last", name.last}});
    }
    return document;
}

Json KeywordsDocument(const std::optional<OwnerKeywords>& keywords) {
    if (!keywords) return nullptr;
    return {{"text", keywords->entry.text},
            {"separatorID", keywords->entry.separatorID},
            {"separator", keywords->separatorDescription},
            {"searchWords", keywords->searchWords}};
}

Json WholeNodeDocument(Database& db, const NodeIDs& node) {
    Json document = NodeDocument(db, node);
    AddRecord(document, db, node);
    const OwnerDetails details = LoadOwnerDetails(db, OwnerOf(node));
    document["authors"] = AuthorsDocument(details.authors);
    document["dates"] = details.dates;
    document["keywords"] = KeywordsDocument(details.keywords);
    AddChildren(document, db, node);
    return document;
}

}  // namespace snippetarium
