#include "import/type_members.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "import/qualified_name.h"
#include "import/source_words.h"

namespace snippetarium {

namespace {

constexpr int kDeepestWalk = 500;

// clang-format off
constexpr std::string_view kTypes[] = {
    "class_declaration", "interface_declaration", "enum_declaration", "record_declaration",
    "annotation_type_declaration", "struct_declaration", "record_struct_declaration",
};
/// What holds types or members and has no name that matters.
constexpr std::string_view kContainers[] = {
    "program", "compilation_unit", "namespace_declaration", "file_scoped_namespace_declaration",
    "declaration_list", "class_body", "interface_body", "enum_body", "enum_body_declarations",
    "annotation_type_body", "global_statement", "ERROR",
};
constexpr std::string_view kMembers[] = {
    "method_declaration", "constructor_declaration", "compact_constructor_declaration",
    "destructor_declaration", "operator_declaration", "conversion_operator_declaration",
    "indexer_declaration", "property_declaration", "event_declaration",
    "local_function_statement",
};
// clang-format on

bool HasBody(const SyntaxNode& member) {
    if (!member.Field("body").IsNull()) return true;
    // A property, indexer or event: "=> value;", or an accessor that has a body.
    if (member.Field("value").Kind() == "arrow_expression_clause") return true;
    const std::vector<SyntaxNode> accessors = member.Field("accessors").Children();
    return std::any_of(accessors.begin(), accessors.end(),
                       [](const SyntaxNode& accessor) { return !accessor.Field("body").IsNull(); });
}

class MemberFinder {
  public:
    explicit MemberFinder(std::string_view text) : text_(text) {}

    void Walk(const SyntaxNode& node, const std::string& scope, int depth) {
        const std::string_view kind = node.Kind();
        if (depth > kDeepestWalk) return;
        if (IsOneOf(kind, kMembers)) {
            Take(node, scope);
        } else if (IsOneOf(kind, kTypes)) {
            const std::string type = QualifiedName(scope, Text(node.Field("name")));
            if (members_.firstType.empty()) members_.firstType = type;
            WalkChildren(node.Field("body"), type, depth);
        } else if (kind == "enum_constant") {
            const SyntaxNode body = node.Field("body");
            if (body.IsNull()) return;
            WalkChildren(body, QualifiedName(scope, Text(node.Field("name"))), depth);
        } else if (IsOneOf(kind, kContainers)) {
            WalkChildren(node, scope, depth);
        }
    }

    TypeMembers Finish() { return std::move(members_); }

  private:
    void WalkChildren(const SyntaxNode& node, const std::string& scope, int depth) {
        for (const SyntaxNode& child : node.Children())
            Walk(child, scope, depth + 1);
    }

    std::string Text(const SyntaxNode& node) const { return TextOnOneLine(node, text_); }

    void Take(const SyntaxNode& member, const std::string& scope) {
        if (!HasBody(member)) return;
        members_.units.push_back({QualifiedName(scope, NameOf(member)), member.Range()});
    }

    std::string NameOf(const SyntaxNode& member) const {
        const std::string interface = Text(member.ChildOfKind("explicit_interface_specifier"));
        return interface + OwnName(member) + ParametersOf(member);
    }

    std::string OwnName(const SyntaxNode& member) const {
        const std::string_view kind = member.Kind();
        if (kind == "operator_declaration") return "operator " + Text(member.Field("operator"));
        if (kind == "conversion_operator_declaration")
            return "operator " + Text(member.Field("type"));
        if (kind == "indexer_declaration") return "this";
        const std::string name = Text(member.Field("name"));
        if (kind == "destructor_declaration") return "~" + name;
        // In Java they stand in front of the result's type and do not tell methods apart.
        const SyntaxNode typeParameters = member.ChildOfKind("type_parameter_list");
        return name + Text(typeParameters);
    }

    std::string ParametersOf(const SyntaxNode& member) const {
        const std::string parameters = Text(member.Field("parameters"));
        const std::string_view kind = member.Kind();
        const bool hasNone =
            kind == "compact_constructor_declaration" || kind == "destructor_declaration";
        return parameters.empty() && hasNone ? "()" : parameters;
    }

    std::string_view text_;
    TypeMembers members_;
};

}  // namespace

TypeMembers FindTypeMembers(const SyntaxNode& root, std::string_view text) {
    MemberFinder finder(text);
    finder.Walk(root, {}, 0);
    return finder.Finish();
}

}  // namespace snippetarium
