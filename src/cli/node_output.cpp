#include "cli/node_output.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/command_context.h"
#include "cli/node_argument.h"
#include "cli/text_table.h"

namespace snippetarium {

Json NodeDocument(Database& db, const NodeIDs& node) {
    return {{"key", KeyOf(node)}, {"kind", KindName(KindOf(node))}, {"name", NameOfNode(db, node)}};
}

void ReportNode(CommandContext& context, Database& db, std::string_view done, const NodeIDs& node) {
    if (context.WantsJson()) return context.SetDocument(NodeDocument(db, node));
    context.Output() << done << ": " << KeyOf(node) << "  " << OneLine(NameOfNode(db, node))
                     << '\n';
}

}  // namespace snippetarium
