#pragma once

#include "cli/json.h"
#include "search/topic_list.h"

namespace snippetarium {

class CommandContext;

/// Prints topics as a table, each with its key in the contents tree.
void PrintTopics(CommandContext& context, const TopicList& list);

/// The same as a list of objects.
Json TopicsDocument(const TopicList& list);

}  // namespace snippetarium
