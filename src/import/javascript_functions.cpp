#include "import/javascript_functions.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "import/qualified_name.h"
#include "import/source_words.h"

namespace snippetarium {

namespace {

constexpr int kDeepestWalk = 500;

// clang-format off
/// What may hold definitions and has no name itself.
constexpr std::string_view kContainers[] = {
    "program", "statement_block", "class_body", "class_static_block", "expression_statement",
    "sequence_expression", "parenthesized_expression", "unary_expression", "return_statement",
    "await_expression", "if_statement", "else_clause", "try_statement", "catch_clause",
    "finally_clause", "labeled_statement", "ERROR",
};
constexpr std::string_view kFunctionDeclarations[] = {
    "function_declaration", "generator_function_declaration",
};
constexpr std::string_view kFunctionValues[] = {
    "function_expression", "generator_function", "arrow_function",
};
// clang-format on

bool IsFunctionValue(const SyntaxNode& node) {
    return IsOneOf(node.Kind(), kFunctionValues);
}

/// What round brackets hold.
SyntaxNode WithoutBrackets(SyntaxNode node) {
    while (node.Kind() == "parenthesized_expression") {
        SyntaxNode inner;
        for (const SyntaxNode& child : node.Children()) {
            if (child.Kind() != "(" && child.Kind() != ")" && child.Kind() != "comment")
                inner = child;
        }
        node = inner;
    }
    return node;
}

/// Where a definition stands: the names around it, and the stretch that would be cut for it.
struct Place {
    std::string scope = {};
    TextRange code = {};
    int depth = 0;

    Place Inside(const std::string& name, const SyntaxNode& node) const {
        return {QualifiedName(scope, name), node.Range(), depth + 1};
    }
    Place At(const SyntaxNode& node) const { return {scope, node.Range(), depth + 1}; }
    /// In a part of the same statement.
    Place Deeper() const { return {scope, code, depth + 1}; }
};

class FunctionFinder {
  public:
    explicit FunctionFinder(std::string_view text) : text_(text) {}

    /// A statement, an expression that is one, or a member of a class. `place.code` may reach
    /// further than the node, as from an "export" in front of it.
    void Walk(const SyntaxNode& node, const Place& place) {
        if (place.depth > kDeepestWalk) return;
        const std::string_view kind = node.Kind();
        if (IsOneOf(kind, kFunctionDeclarations) || kind == "method_definition") {
            Take(NameOf(node), node, place);
        } else if (kind == "class_declaration" || kind == "class") {
            WalkChildren(node.Field("body"), place.Inside(Text(node.Field("name")), node));
        } else if (kind == "field_definition") {
            WalkValue(node.Field("value"), Text(node.Field("property")), place);
        } else if (kind == "lexical_declaration" || kind == "variable_declaration") {
            WalkDeclaration(node, place);
        } else if (kind == "export_statement") {
            WalkExport(node, place);
        } else if (kind == "expression_statement") {
            // With its semicolon, but for what is one of several in it.
            for (const SyntaxNode& child : node.Children())
                Walk(child,
                     child.Kind() == "sequence_expression" ? place.At(child) : place.Deeper());
        } else if (kind == "assignment_expression") {
            WalkValue(node.Field("right"), Text(node.Field("left")), place);
        } else if (kind == "call_expression") {
            WalkCall(node, place);
        } else if (kind == "object") {
            WalkObject(node, place);
        } else if (IsFunctionValue(node)) {
            WalkWrapper(node, place);
        } else if (IsOneOf(kind, kContainers)) {
            WalkChildren(node, place);
        }
    }

    std::vector<SourceUnit> Finish() { return std::move(units_); }

  private:
    std::string Text(const SyntaxNode& node) const { return TextOnOneLine(node, text_); }

    void WalkChildren(const SyntaxNode& node, const Place& place) {
        for (const SyntaxNode& child : node.Children())
            Walk(child, place.At(child));
    }

    void Take(const std::string& name, const SyntaxNode& function, const Place& place) {
        const std::string full = name + ParametersOf(function);
        units_.push_back({QualifiedName(place.scope, full), place.code});
    }

    std::string ParametersOf(const SyntaxNode& function) const {
        const SyntaxNode list = function.Field("parameters");
        if (!list.IsNull()) return Text(list);
        return "(" + Text(function.Field("parameter")) + ")";
    }

    /// A getter and a setter of one name are told apart.
    std::string NameOf(const SyntaxNode& function) const {
        const SyntaxNode name = function.Field("name");
        std::string prefix;
        if (function.Kind() == "method_definition") {
            for (const SyntaxNode& child : function.Children()) {
                if (child.Range() == name.Range()) break;
                if (child.Kind() == "get" || child.Kind() == "set")
                    prefix = std::string(child.Kind()) + " ";
            }
        }
        return prefix + (name.IsNull() ? "default" : Text(name));
    }

    /// Something that bears a name.
    void WalkValue(const SyntaxNode& bracketed, const std::string& name, const Place& place) {
        if (place.depth > kDeepestWalk) return;
        const SyntaxNode value = WithoutBrackets(bracketed);
        if (IsFunctionValue(value)) {
            Take(name, value, place);
        } else if (value.Kind() == "class") {
            WalkChildren(value.Field("body"), place.Inside(name, value));
        } else if (value.Kind() == "object") {
            WalkObject(value, place.Inside(name, value));
        } else if (value.Kind() == "call_expression") {
            WalkCall(value, place.Inside(name, value));
        } else if (value.Kind() == "assignment_expression") {
            // a = b = function () {}
            WalkValue(value.Field("right"), name, place.Deeper());
        }
    }

    void WalkDeclaration(const SyntaxNode& declaration, const Place& place) {
        std::vector<SyntaxNode> variables = declaration.Children();
        std::erase_if(variables, [](const SyntaxNode& child) {
            return child.Kind() != "variable_declarator";
        });
        for (const SyntaxNode& variable : variables) {
            // One of several is cut without the "var" that they share.
            const Place own = variables.size() == 1 ? place.Deeper() : place.At(variable);
            WalkValue(variable.Field("value"), Text(variable.Field("name")), own);
        }
    }

    void WalkExport(const SyntaxNode& statement, const Place& place) {
        const SyntaxNode declaration = statement.Field("declaration");
        if (!declaration.IsNull()) {
            Walk(declaration, place.Deeper());
        } else {
            WalkValue(statement.Field("value"), "default", place.Deeper());
        }
    }

    void WalkObject(const SyntaxNode& object, const Place& place) {
        for (const SyntaxNode& child : object.Children()) {
            if (child.Kind() == "pair") {
                WalkValue(child.Field("value"), Text(child.Field("key")), place.At(child));
            } else if (child.Kind() == "method_definition") {
                Walk(child, place.At(child));
            }
        }
    }

    /// A function that is called where it stands, and what is handed to a call.
    void WalkCall(const SyntaxNode& call, const Place& place) {
        if (place.depth > kDeepestWalk) return;
        WalkCalled(call.Field("function"), place.Deeper());
        for (const SyntaxNode& argument : call.Field("arguments").Children()) {
            const bool isLookedInto = IsFunctionValue(argument) || argument.Kind() == "object" ||
                                      argument.Kind() == "call_expression";
            if (isLookedInto) Walk(argument, place.At(argument));
        }
    }

    /// function () {}      function () {}.call      define(...)
    void WalkCalled(const SyntaxNode& bracketed, const Place& place) {
        const SyntaxNode called = WithoutBrackets(bracketed);
        if (called.Kind() == "member_expression") {
            if (place.depth <= kDeepestWalk) WalkCalled(called.Field("object"), place.Deeper());
        } else if (IsFunctionValue(called) || called.Kind() == "call_expression") {
            Walk(called, place.At(called));
        }
    }

    /// A function that only holds others together.
    void WalkWrapper(const SyntaxNode& function, const Place& place) {
        const SyntaxNode body = WithoutBrackets(function.Field("body"));
        if (body.Kind() == "statement_block" || body.Kind() == "object" ||
            body.Kind() == "call_expression") {
            Walk(body, place.At(body));
        }
    }

    std::string_view text_;
    std::vector<SourceUnit> units_;
};

}  // namespace

std::vector<SourceUnit> FindJavaScriptFunctions(const SyntaxNode& root, std::string_view text) {
    FunctionFinder finder(text);
    finder.Walk(root, {.code = root.Range()});
    return finder.Finish();
}

}  // namespace snippetarium
