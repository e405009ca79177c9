#include "cli/record_storing.h"

#include "cli/refused_error.h"
#include "editors/field_rules.h"
#include "keywords/noise_words.h"
#include "navigator/node.h"
#include "store/database.h"
#include "store/owner_place.h"

namespace snippetarium {

namespace {

void SaveDetails(Database& db, const NodeIDs& node, const DetailChanges& details) {
    const NoiseWords noise = details.keywords ? LoadNoiseWords(db) : NoiseWords();
    SaveDetailChanges(db, noise, OwnerOf(node), details);
}

/// The last step, on the node that was stored; one without IDs was not.
NodeIDs Finish(Database& db, const NodeIDs& node, const DetailChanges& details) {
    RequireDone(node != NodeIDs{});
    SaveDetails(db, node, details);
    return node;
}

}  // namespace

NodeIDs StoreRecord(Database& db, const ApplicationRecord& record, const DetailChanges& details) {
    RequireDone(CheckApplicationRecord(db, record) && CheckDetailChanges(db, details));
    return Finish(db, {.appID = SaveApplicationRecord(db, record)}, details);
}

NodeIDs StoreRecord(Database& db, const ClassRecord& record, const DetailChanges& details) {
    RequireDone(CheckClassRecord(db, record) && CheckDetailChanges(db, details));
    return Finish(db, PlaceOf(db, {OwnerKind::Class, SaveClassRecord(db, record)}), details);
}

NodeIDs StoreRecord(Database& db, const CodeRecord& record, const DetailChanges& details) {
    RequireDone(CheckCodeRecord(db, record) && CheckDetailChanges(db, details));
    return Finish(db, PlaceOf(db, {OwnerKind::Procedure, SaveCodeRecord(db, record)}), details);
}

void StoreDetails(Database& db, const NodeIDs& node, const DetailChanges& details) {
    RequireDone(MayEditNode(db, node) && CheckDetailChanges(db, details));
    SaveDetails(db, node, details);
}

}  // namespace snippetarium
