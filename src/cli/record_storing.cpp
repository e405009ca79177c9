#include "cli/record_storing.h"

#include "cli/node_argument.h"
#include "cli/refused_error.h"
#include "editors/field_rules.h"
#include "keywords/noise_words.h"
#include "store/database.h"

namespace snippetarium {

namespace {

void SaveDetails(Database& db, const NodeIDs& node, const DetailChanges& details) {
    const NoiseWords noise = details.keywords ? LoadNoiseWords(db) : NoiseWords();
    SaveDetailChanges(db, noise, OwnerOf(node), details);
}

}  // namespace

NodeIDs StoreRecord(Database& db, const ApplicationRecord& record, const DetailChanges& details) {
    RequireDone(CheckApplicationRecord(db, record) && CheckDetailChanges(db, details));
    const std::int32_t appID = SaveApplicationRecord(db, record);
    RequireDone(appID != 0);
    const NodeIDs node{.appID = appID};
    SaveDetails(db, node, details);
    return node;
}

NodeIDs StoreRecord(Database& db, const ClassRecord& record, const DetailChanges& details) {
    RequireDone(CheckClassRecord(db, record) && CheckDetailChanges(db, details));
    const std::int32_t classID = SaveClassRecord(db, record);
    RequireDone(classID != 0);
    const NodeIDs node = ClassNode(db, classID);
    SaveDetails(db, node, details);
    return node;
}

NodeIDs StoreRecord(Database& db, const CodeRecord& record, const DetailChanges& details) {
    RequireDone(CheckCodeRecord(db, record) && CheckDetailChanges(db, details));
    const std::int32_t codeID = SaveCodeRecord(db, record);
    RequireDone(codeID != 0);
    const NodeIDs node = ProcedureNode(db, codeID);
    SaveDetails(db, node, details);
    return node;
}

void StoreDetails(Database& db, const NodeIDs& node, const DetailChanges& details) {
    RequireDone(MayEditNode(db, node) && CheckDetailChanges(db, details));
    SaveDetails(db, node, details);
}

}  // namespace snippetarium
