#include "search/topic_list.h"

#include <stdexcept>
#include <utility>

#include "search/queries.h"
#include "store/database.h"
#include "store/owner_place.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

ListedTopic ReadTopic(const Recordset& row) {
    ListedTopic topic;
    topic.ids = {row["appID"].Long(), row["classID"].Long(), row["codeID"].Long()};
    topic.appName = row["appName"].Text();
    if (topic.ids.classID > 0) topic.className = row["className"].Text();
    if (topic.ids.codeID > 0) topic.procedureName = row["codeName"].Text();
    return topic;
}

OwnerKind KindOf(TopicLevel level) {
    switch (level) {
        case TopicLevel::Application:
            return OwnerKind::Application;
        case TopicLevel::Class:
            return OwnerKind::Class;
        case TopicLevel::Procedure:
            break;
    }
    return OwnerKind::Procedure;
}

}  // namespace

Topic TopicOf(const ListedTopic& topic) {
    if (topic.ids.codeID > 0) return {TopicLevel::Procedure, topic.ids.codeID};
    if (topic.ids.classID > 0) return {TopicLevel::Class, topic.ids.classID};
    return {TopicLevel::Application, topic.ids.appID};
}

void TopicList::Replace(std::vector<ListedTopic> topics) {
    topics_ = std::move(topics);
    selected_.reset();
}

void TopicList::Select(std::size_t index) {
    if (index >= topics_.size()) throw std::out_of_range("There is no such topic in the list.");
    selected_ = index;
}

bool ListSearchResults(Database& db, Recordset found, TopicList& list) {
    return Guarded(db.Reporter(), Procedure::ListSearchResults, [&] {
        if (found.EndOfFile()) return false;
        std::vector<ListedTopic> topics;
        topics.reserve(found.RowCount());
        for (; !found.EndOfFile(); found.MoveNext())
            topics.push_back(ReadTopic(found));
        list.Replace(std::move(topics));
        return true;
    });
}

bool ListTopicsOfWord(Database& db, std::string_view word, TopicList& list) {
    return Guarded(db.Reporter(), Procedure::ListTopicsOfWord,
                   [&] { return ListSearchResults(db, IndexWordSearch(db, word), list); });
}

NodeIDs TopicNode(Database& db, std::string_view key) {
    return Guarded(db.Reporter(), Procedure::TopicNode, [&] {
        const Topic topic = ParseTopicKey(key);
        return topic.id == 0 ? NodeIDs() : PlaceOf(db, {KindOf(topic.level), topic.id});
    });
}

}  // namespace snippetarium
