#include "cli/topic_output.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/text_table.h"

namespace snippetarium {

void PrintTopics(CommandContext& context, const TopicList& list) {
    TextTable table({"key", "procedure", "class", "application"});
    for (const ListedTopic& topic : list.Topics()) {
        table.AddRow(
            {{KeyOf(topic.ids)}, {topic.procedureName}, {topic.className}, {topic.appName}});
    }
    table.Print(context.Output());
}

Json TopicsDocument(const TopicList& list) {
    Json topics = Json::array();
    for (const ListedTopic& topic : list.Topics()) {
        Json row = {{"key", KeyOf(topic.ids)},
                    {"kind", KindName(KindOf(topic.ids))},
                    {"application", topic.appName}};
        if (topic.ids.classID > 0) row["class"] = topic.className;
        if (topic.ids.codeID > 0) row["procedure"] = topic.procedureName;
        topics.push_back(std::move(row));
    }
    return topics;
}

}  // namespace snippetarium
