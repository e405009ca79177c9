#include "support/text_stream.h"

#include <gtest/gtest.h>

#include "support/error.h"
#include "tests/fake_file_system.h"

namespace snippetarium {
namespace {

using test::FakeFileSystem;

class TextStreamTest : public ::testing::Test {
  protected:
    TextStreamTest() { files_.AddFolder("/src"); }

    std::vector<std::string> LinesOf(std::string_view bytes) {
        files_.AddFile("/src/x.bas", bytes);
        TextStream stream = TextStream::ForReading(files_, "/src\\x.bas");
        std::vector<std::string> lines;
        while (!stream.AtEnd())
            lines.push_back(stream.ReadLine());
        EXPECT_THROW(stream.ReadLine(), Error);
        stream.Close();
        return lines;
    }

    void Append(std::string_view path, std::string_view text) {
        TextStream stream = TextStream::ForAppending(files_, path);
        stream.WriteLine(text);
        stream.Close();
    }

    FakeFileSystem files_;
};

TEST_F(TextStreamTest, ReadsLinesWhateverEndsThem) {
    using namespace std::string_literals;
    using Lines = std::vector<std::string>;
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\r\n", {"a"}},
        {"\n\n", {"", ""}},
        {"a\nb\r\n\r\nc", {"a", "b", "", "c"}},
        {"a\rb\r\r\n", {"a\rb\r"}},
        {"Gr\xF6\xDF"
         "e",
         {"Größe"}},
        {"\xFF\xFE"
         "a\0\n\0b\0"s,
         {"a", "b"}},
        {"a\0b\nc"s, {"a\U0010FE00b", "c"}},
    };
    for (const auto& [bytes, lines] : cases)
        EXPECT_EQ(LinesOf(bytes), lines);
}

TEST_F(TextStreamTest, AppendsBehindWhatIsThereInTheFilesOwnForm) {
    struct Case {
        std::string before;
        std::string text;
        std::string after;
    };
    using namespace std::string_literals;
    const Case cases[] = {
        {"a\r\n", "é", "a\r\né\r\n"},
        {"a\n", "b\r\nc", "a\nb\nc\n"},
        {"\xF6\r\n", "é", "\xF6\r\n\xE9\r\n"},
        {"\xEF\xBB\xBF", "é", "\xEF\xBB\xBFé\r\n"},
        {"\xFF\xFE"
         "a\0\n\0"s,
         "b",
         "\xFF\xFE"
         "a\0\n\0b\0\n\0"s},
    };
    for (const Case& row : cases) {
        files_.AddFile("/src/x.bas", row.before);
        Append("/src\\x.bas", row.text);
        EXPECT_EQ(files_.ReadFile("/src/x.bas"), row.after);
    }
    Append("/src\\new.bas", "é");
    EXPECT_EQ(files_.ReadFile("/src/new.bas"), "é\r\n");
}

TEST_F(TextStreamTest, NothingIsWrittenBeforeCloseAndAllOfItThen) {
    TextStream stream = TextStream::ForAppending(files_, "/src/x.bas");
    stream.WriteLine("a");
    stream.WriteLine("");
    stream.WriteLine("b");
    EXPECT_TRUE(files_.written.empty());
    stream.Close();
    stream.Close();
    const std::vector<FakeFileSystem::WrittenFile> written{{"/src/x.bas", "a\r\n\r\nb\r\n"}};
    EXPECT_EQ(files_.written, written);
    EXPECT_THROW(stream.WriteLine("c"), Error);
}

TEST_F(TextStreamTest, CloseReportsAFullDisk) {
    TextStream stream = TextStream::ForAppending(files_, "/src/x.bas");
    stream.WriteLine("more than fits");
    files_.freeBytes = 4;
    try {
        stream.Close();
        ADD_FAILURE() << "the failure was not reported";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), error_number::kDiskFull);
    }
    EXPECT_TRUE(files_.written.empty());
    files_.freeBytes = 100;
    stream.Close();
    EXPECT_EQ(files_.ReadFile("/src/x.bas"), "more than fits\r\n");
}

TEST_F(TextStreamTest, TextThatTheFilesEncodingLacksIsRefusedWhole) {
    files_.AddFile("/src/x.bas", "\xF6\r\n");
    TextStream stream = TextStream::ForAppending(files_, "/src/x.bas");
    stream.WriteLine("fine");
    stream.WriteLine("中");
    try {
        stream.Close();
        ADD_FAILURE() << "the text was written";
    } catch (const Error& error) {
        EXPECT_NE(error.Description().find("windows-1252"), std::string::npos);
    }
    EXPECT_EQ(files_.ReadFile("/src/x.bas"), "\xF6\r\n");
}

TEST_F(TextStreamTest, AStreamDoesOnlyWhatItWasOpenedFor) {
    files_.AddFile("/src/x.bas", "a");
    TextStream reading = TextStream::ForReading(files_, "/src/x.bas");
    EXPECT_THROW(reading.WriteLine("b"), Error);
    TextStream appending = TextStream::ForAppending(files_, "/src/x.bas");
    EXPECT_THROW(appending.ReadLine(), Error);
    EXPECT_THROW(appending.AtEnd(), Error);
    EXPECT_THROW(TextStream::ForReading(files_, "/src/no.bas"), Error);
}

}  // namespace
}  // namespace snippetarium
