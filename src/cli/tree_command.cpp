#include <array>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/command_context.h"
#include "cli/contents_walk.h"
#include "cli/node_argument.h"
#include "cli/text_table.h"

namespace snippetarium {

namespace {

constexpr std::int32_t kAllLevels = 3;

// clang-format off
constexpr CommandArgument kArguments[] = {
    {"KEY", Occurs::AtMostOnce, "the node to begin with; without it, all applications"},
};
constexpr CommandOption kOptions[] = {
    {"--depth", "N", "how many levels to print, 1 to 3, the first being the node to begin with"},
};
constexpr CommandExample kExamples[] = {
    {"tree --depth 1",   "The applications, each with the number of its classes."},
    {"tree a12f34",      "A class of application 12 and its procedures."},
    {"--json tree a12",  "An application, its classes and their procedures, for a script."},
};
// clang-format on

std::string CountText(const ContentsNode& node) {
    if (node.Kind() == NodeKind::Procedure) return {};
    const bool isApplication = node.Kind() == NodeKind::Application;
    const std::string one = isApplication ? "class" : "procedure";
    const std::string many = isApplication ? "classes" : "procedures";
    return "  (" + std::to_string(node.childCount) + " " + (node.childCount == 1 ? one : many) +
           ")";
}

void PrintNode(std::ostream& output, const ContentsNode& node) {
    output << std::string(static_cast<std::size_t>(2 * node.depth), ' ') << node.Key() << "  "
           << OneLine(node.name) << CountText(node) << '\n';
}

Json NodeDocument(const ContentsNode& node) {
    Json document;
    document["key"] = node.Key();
    document["kind"] = KindName(node.Kind());
    document["name"] = node.name;
    if (node.Kind() != NodeKind::Procedure) document["count"] = node.childCount;
    return document;
}

/// Builds the nested document of a walk: each node goes into the list of the last node above it.
class TreeDocument {
  public:
    void Add(const ContentsNode& node) {
        const auto depth = static_cast<std::size_t>(node.depth);
        if (depth > 0 && lists_[depth] == nullptr) {
            lists_[depth] = &(lists_[depth - 1]->back()["children"] = Json::array());
        }
        lists_[depth]->push_back(NodeDocument(node));
        for (std::size_t below = depth + 1; below < lists_.size(); ++below)
            lists_[below] = nullptr;
    }
    const Json& Document() const { return document_; }

  private:
    Json document_ = {{"nodes", Json::array()}};
    std::array<Json*, kAllLevels> lists_{&document_["nodes"]};
};

void Run(CommandContext& context) {
    const std::int32_t levels =
        context.Given().Number("--depth", 1, kAllLevels).value_or(kAllLevels);
    const std::optional<std::string> key = context.Given().Value("KEY");
    const NodeIDs top = key ? ReadNodeKey(*key) : NodeIDs{};
    Database& db = context.Catalogue(CatalogueUse::Read);

    if (key) RequireNode(db, top);
    TreeDocument document;
    const VisitNode visit = [&](const ContentsNode& node) {
        context.WantsJson() ? document.Add(node) : PrintNode(context.Output(), node);
    };
    key ? WalkContentsFrom(db, top, levels, visit) : WalkContents(db, levels, visit);
    if (context.WantsJson()) context.SetDocument(document.Document());
}

}  // namespace

constexpr CliCommand kTreeCommand = {
    .name = "tree",
    .summary = "print the applications, classes and procedures with their keys",
    .description =
        "Prints the contents tree: applications, their classes (modules, forms and pages among "
        "them) and the procedures of those, one a line behind its key. Other commands take these "
        "keys.\n\n"
        "What belongs to no application stands first, under \"Application Undefined\".",
    .arguments = kArguments,
    .options = kOptions,
    .examples = kExamples,
    .run = Run,
};

}  // namespace snippetarium
