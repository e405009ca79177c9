#include "support/node_key.h"

#include <charconv>
#include <cstddef>
#include <system_error>

namespace snippetarium {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kTopicLetters = "acf";  // in the order of TopicLevel

/// The ID that the digits spell, 0 when they do not spell one.
std::int32_t ParseID(std::string_view digits) {
    if (digits.starts_with('-')) return 0;
    std::int32_t id = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, id);
    return error == std::errc() && stop == end ? id : 0;
}

/// What follows the first `letter`; empty without it.
std::string_view Behind(std::string_view key, char letter) {
    const std::size_t position = key.find(letter);
    return position == kNone ? std::string_view() : key.substr(position + 1);
}

std::string_view UpTo(std::string_view key, char letter) {
    return key.substr(0, key.find(letter));
}

}  // namespace

std::string ApplicationNodeKey(std::int32_t appID) {
    return "a" + std::to_string(appID);
}

std::string ClassNodeKey(std::int32_t appID, std::int32_t classID) {
    return ApplicationNodeKey(appID) + "f" + std::to_string(classID);
}

std::string ProcedureNodeKey(const NodeIDs& ids) {
    return ClassNodeKey(ids.appID, ids.classID) + "c" + std::to_string(ids.codeID);
}

std::string PlaceholderNodeKey(std::string_view parentKey) {
    return std::string("k").append(parentKey);
}

NodeKind KindOfNodeKey(std::string_view key) {
    if (key.find('k') != kNone) return NodeKind::Placeholder;
    if (key.find('c') != kNone) return NodeKind::Procedure;
    if (key.find('f') != kNone) return NodeKind::Class;
    return NodeKind::Application;
}

NodeIDs ParseNodeKey(std::string_view key) {
    return {.appID = ParseID(UpTo(Behind(key, 'a'), 'f')),
            .classID = ParseID(UpTo(Behind(key, 'f'), 'c')),
            .codeID = ParseID(Behind(key, 'c'))};
}

std::string TopicKey(const Topic& topic) {
    return kTopicLetters[static_cast<std::size_t>(topic.level)] + std::to_string(topic.id);
}

Topic ParseTopicKey(std::string_view key) {
    if (key.empty()) return {};
    const std::size_t level = kTopicLetters.find(key.front());
    if (level == kNone) return {};
    return {static_cast<TopicLevel>(level), ParseID(key.substr(1))};
}

}  // namespace snippetarium
