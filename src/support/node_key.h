#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace snippetarium {

// Two kinds of key name an application, a class or a procedure. They use the same letters for
// different things, so each has types of its own here and neither is ever parsed as the other.
//
//                  node key (a place in the contents tree)    topic key (a row of a list of topics)
//   application    a12                                        a12
//   class          a12f34                                     c34
//   procedure      a12f34c56                                  f56
//   placeholder    k and its parent's key: ka12, ka12f34      -
//
// IDs are positive, and 0 stands for none. A number in a key consists of digits only; a number that
// is missing, malformed or beyond 32 bits (signed) reads as 0.

/// The kind of a node of the contents tree.
enum class NodeKind : std::uint8_t { Application, Class, Procedure, Placeholder };

/// What a node key names: the ID of the node itself and those of its ancestors.
struct NodeIDs {
    std::int32_t appID = 0;
    std::int32_t classID = 0;
    std::int32_t codeID = 0;
    bool operator==(const NodeIDs&) const = default;
};

std::string ApplicationNodeKey(std::int32_t appID);
std::string ClassNodeKey(std::int32_t appID, std::int32_t classID);
std::string ProcedureNodeKey(const NodeIDs& ids);
/// The key of the "Loading..." child that stands for the children of a node not yet expanded.
std::string PlaceholderNodeKey(std::string_view parentKey);

/// The kind by the letters in the key: "k" makes a placeholder, else "c" a procedure, else "f" a
/// class, else it is an application.
NodeKind KindOfNodeKey(std::string_view key);

/// appID is the number from "a" to "f" or the end, classID from "f" to "c" or the end, codeID from
/// "c" to the end; 0 without the letter. "a12f34" gives {12, 34, 0}. A placeholder's key gives its
/// parent's.
NodeIDs ParseNodeKey(std::string_view key);

/// Declared in the order of depth.
enum class TopicLevel : std::uint8_t { Application, Class, Procedure };

/// A found topic: the deepest level that its row names, and the ID there.
struct Topic {
    TopicLevel level = TopicLevel::Application;
    std::int32_t id = 0;
    bool operator==(const Topic&) const = default;
};

std::string TopicKey(const Topic& topic);

/// The topic of a key; id 0 when it is no topic key.
Topic ParseTopicKey(std::string_view key);

}  // namespace snippetarium
