#include "support/node_key.h"

#include <gtest/gtest.h>

namespace snippetarium {

void PrintTo(const NodeIDs& ids, std::ostream* out) {
    *out << ids.appID << '/' << ids.classID << '/' << ids.codeID;
}

namespace {

TEST(NodeKeys, GiveBackKindAndIDs) {
    for (const std::int32_t id : {1, 9, 10, 123456, INT32_MAX}) {
        const std::string application = ApplicationNodeKey(id);
        EXPECT_EQ(KindOfNodeKey(application), NodeKind::Application);
        EXPECT_EQ(ParseNodeKey(application), (NodeIDs{id, 0, 0}));

        const std::string ofClass = ClassNodeKey(7, id);
        EXPECT_EQ(KindOfNodeKey(ofClass), NodeKind::Class);
        EXPECT_EQ(ParseNodeKey(ofClass), (NodeIDs{7, id, 0}));

        const std::string procedure = ProcedureNodeKey({7, 8, id});
        EXPECT_EQ(KindOfNodeKey(procedure), NodeKind::Procedure);
        EXPECT_EQ(ParseNodeKey(procedure), (NodeIDs{7, 8, id}));

        const std::string placeholder = PlaceholderNodeKey(ofClass);
        EXPECT_EQ(KindOfNodeKey(placeholder), NodeKind::Placeholder);
        EXPECT_EQ(ParseNodeKey(placeholder), (NodeIDs{7, id, 0}));
    }
    EXPECT_EQ(ProcedureNodeKey({12, 34, 56}), "a12f34c56");
    EXPECT_EQ(PlaceholderNodeKey("a12"), "ka12");
}

TEST(NodeKeys, ReadWhatIsNoNumberAsZero) {
    const struct {
        std::string_view key;
        NodeIDs expected;
    } cases[] = {
        {"", {}},
        {"a", {}},
        {"12", {}},
        {"a1f0", {1, 0, 0}},
        {"a1f2147483648c3", {1, 0, 3}},
        {"a99999999999999999999999f2", {0, 2, 0}},
        {"a-1f+2c 3", {}},
        {"a1x", {}},
        {"a1f2c3c4", {1, 2, 0}},
        {"f2", {0, 2, 0}},
        {"c3", {0, 0, 3}},
        {"c3a1f2", {1, 2, 0}},
        {"a007", {7, 0, 0}},
        {std::string_view("a1f2c3\0", 7), {1, 2, 0}},
    };
    for (const auto& [key, expected] : cases)
        EXPECT_EQ(ParseNodeKey(key), expected) << key;
}

TEST(TopicKeys, NameAClassWithCAndAProcedureWithF) {
    const struct {
        std::string_view key;
        Topic topic;
    } cases[] = {
        {"a12", {TopicLevel::Application, 12}},
        {"c34", {TopicLevel::Class, 34}},
        {"f56", {TopicLevel::Procedure, 56}},
    };
    for (const auto& [key, topic] : cases) {
        EXPECT_EQ(TopicKey(topic), key);
        EXPECT_EQ(ParseTopicKey(key), topic) << key;
    }
    for (const std::string_view key : {"", "c", "12", "k12", "a12f34", "f-1", "c2147483648"}) {
        EXPECT_EQ(ParseTopicKey(key).id, 0) << key;
    }
}

}  // namespace
}  // namespace snippetarium
