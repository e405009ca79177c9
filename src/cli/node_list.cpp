#include "cli/node_list.h"

#include <optional>
#include <string>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/usage_error.h"

namespace snippetarium {

void RunNodeList(CommandContext& context, const NodeList& list, bool changes) {
    const std::optional<std::string> key = context.Given().Value("KEY");
    if (!key && !changes) return list.listAll(context);
    if (!key) throw UsageError("What is changed is a node's: its KEY is missing.");
    const NodeIDs node = ReadNodeKey(*key);
    Database& db = context.Catalogue(changes ? CatalogueUse::Change : CatalogueUse::Read);
    RequireNode(db, node);
    if (changes) list.change(context, db, node);
    list.listOf(context, db, node);
}

}  // namespace snippetarium
