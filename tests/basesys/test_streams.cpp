#include "basesys/FileStreamDataStream.h"
#include "basesys/MemoryDataStream.h"
#include "basesys/StringUtil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <unistd.h>

namespace {

// A stream that hides its size, as a network or pipe source would.
class SizelessStream : public DataStream {
public:
    explicit SizelessStream(std::string text) : m_text(std::move(text)) {}
    size_t read(void* buffer, size_t count) override {
        size_t n = std::min(count, m_text.size() - std::min(m_pos, m_text.size()));
        memcpy(buffer, m_text.data() + m_pos, n);
        m_pos += n;
        return n;
    }
    void skip(long count) override { m_pos += count; }
    void seek(size_t position) override { m_pos = position; }
    size_t tell() const override { return m_pos; }
    bool eof() const override { return m_pos >= m_text.size(); }
    void close() override {}

private:
    std::string m_text;
    size_t m_pos = 0;
};

std::string longLine(size_t length) {
    std::string line;
    for (size_t i = 0; i < length; ++i) line += static_cast<char>('a' + i % 26);
    return line;
}

} // namespace

// --- MemoryDataStream: bounds of read, write, skip and seek ----------------

TEST(MemoryDataStream, ReadStopsAtTheEnd) {
    char data[] = "0123456789AB"; // 12 bytes before the terminator
    MemoryDataStream stream(data, 12, false, true);
    char out[16];
    ASSERT_EQ(stream.read(out, 8), 8u);
    EXPECT_EQ(memcmp(out, "01234567", 8), 0);
    EXPECT_EQ(stream.read(out, 10), 4u);
    EXPECT_EQ(memcmp(out, "89AB", 4), 0);
    EXPECT_EQ(stream.read(out, 10), 0u);
    EXPECT_TRUE(stream.eof());
}

TEST(MemoryDataStream, PositionsPastEitherEndReadNothing) {
    char data[] = "abcdef";
    MemoryDataStream stream(data, 6, false, false);
    char out[8] = {};

    stream.seek(100);
    EXPECT_TRUE(stream.eof());
    EXPECT_EQ(stream.tell(), 100u);
    EXPECT_EQ(stream.read(out, 4), 0u);
    EXPECT_EQ(stream.write("zz", 2), 0u);
    EXPECT_EQ(stream.readLine(out, 4), 0u);
    EXPECT_EQ(stream.skipLine(), 0u);
    EXPECT_EQ(stream.getCurrentPtr(), stream.getPtr() + 6);

    // A skip back before the start stops at the start.
    stream.seek(2);
    stream.skip(-50);
    EXPECT_EQ(stream.tell(), 0u);
    stream.skip(LONG_MIN);
    EXPECT_EQ(stream.tell(), 0u);
    stream.skip(LONG_MAX);
    stream.skip(LONG_MAX);
    stream.skip(LONG_MAX);
    EXPECT_TRUE(stream.eof());
    EXPECT_EQ(stream.read(out, 4), 0u);

    // And back inside, reading works again.
    stream.seek(4);
    EXPECT_EQ(stream.read(out, 8), 2u);
    EXPECT_EQ(memcmp(out, "ef", 2), 0);
    EXPECT_STREQ(data, "abcdef");
}

TEST(MemoryDataStream, WritesOnlyWhenWriteableAndWithinTheBlock) {
    char data[] = "abcdef";
    MemoryDataStream readOnly(data, 6, false, true);
    EXPECT_TRUE(readOnly.isReadable());
    EXPECT_FALSE(readOnly.isWriteable());
    EXPECT_EQ(readOnly.write("XY", 2), 0u);
    EXPECT_EQ(readOnly.tell(), 0u);
    EXPECT_STREQ(data, "abcdef");

    MemoryDataStream writable(data, 6, false, false);
    EXPECT_TRUE(writable.isWriteable());
    writable.seek(4);
    EXPECT_EQ(writable.write("XYZW", 4), 2u);
    EXPECT_STREQ(data, "abcdXY");
    EXPECT_TRUE(writable.eof());
}

TEST(MemoryDataStream, OwnBlockStartsZeroedAndIsFreedOnClose) {
    MemoryDataStream stream("block", 5); // freeOnClose by default: ASan sees a leak otherwise
    EXPECT_EQ(stream.getName(), "block");
    EXPECT_EQ(stream.getSize(), 5u);
    unsigned char out[5] = {1, 1, 1, 1, 1};
    EXPECT_EQ(stream.read(out, 5), 5u);
    for (unsigned char c : out) EXPECT_EQ(c, 0);

    stream.close();
    EXPECT_EQ(stream.getPtr(), nullptr);
    stream.seek(0);
    EXPECT_EQ(stream.read(out, 5), 0u);
    EXPECT_TRUE(stream.eof());
    stream.close(); // twice is harmless
}

TEST(MemoryDataStream, WrapsMallocMemoryAndFreesItWhenAsked) {
    char* block = static_cast<char*>(malloc(4));
    memcpy(block, "wxyz", 4);
    MemoryDataStream stream(block, 4, true, true);
    EXPECT_EQ(stream.getAsString(), "wxyz");
    // The destructor frees the block; ASan reports a leak if it does not.
}

TEST(MemoryDataStream, CopiesAnotherStream) {
    std::istringstream text("first\nsecond\n");
    FileStreamDataStream file("text", &text, false);
    ASSERT_EQ(file.getSize(), 13u);
    MemoryDataStream copy("copy", file);
    EXPECT_EQ(copy.getSize(), 13u);
    EXPECT_EQ(copy.getLine(), "first");
    EXPECT_EQ(copy.getLine(), "second");
    EXPECT_TRUE(copy.eof());

    // A source that does not know its size is read whole to learn it.
    SizelessStream sizeless("no size here");
    MemoryDataStream learned(sizeless);
    EXPECT_EQ(learned.getSize(), 12u);
    EXPECT_EQ(learned.getAsString(), "no size here");

    // A source that claims more than it has gives only what it has.
    std::istringstream shortText("abc");
    DataStreamPtr liar = std::make_shared<FileStreamDataStream>("liar", &shortText, 10, false);
    MemoryDataStream partial(liar);
    EXPECT_EQ(partial.getSize(), 3u);
    EXPECT_EQ(partial.getAsString(), "abc");

    DataStreamPtr none;
    MemoryDataStream empty(none);
    EXPECT_EQ(empty.getSize(), 0u);
    EXPECT_TRUE(empty.eof());
}

// --- Line reading, on memory (byte by byte) and on a standard stream -------
// The standard stream runs the base class's chunked reading.

class LineReading : public ::testing::TestWithParam<bool> {
protected:
    // A stream over text, in memory or through a standard stream.
    std::unique_ptr<DataStream> open(const std::string& text) {
        m_text = text;
        if (GetParam())
            return std::make_unique<MemoryDataStream>(&m_text[0], m_text.size(), false, true);
        m_input = std::make_unique<std::istringstream>(m_text);
        return std::make_unique<FileStreamDataStream>(m_input.get(), false);
    }

private:
    std::string m_text;
    std::unique_ptr<std::istringstream> m_input;
};

INSTANTIATE_TEST_SUITE_P(Streams, LineReading, ::testing::Values(true, false),
                         [](const ::testing::TestParamInfo<bool>& info) {
                             return info.param ? "Memory" : "StdStream";
                         });

TEST_P(LineReading, CarriageReturnAndLineFeedAreBothDropped) {
    auto stream = open("one\r\ntwo\nthree\r\n");
    char line[64];
    EXPECT_EQ(stream->readLine(line, 63), 3u);
    EXPECT_STREQ(line, "one");
    EXPECT_EQ(stream->readLine(line, 63), 3u);
    EXPECT_STREQ(line, "two");
    EXPECT_EQ(stream->getLine(false), "three");
    EXPECT_EQ(stream->readLine(line, 63), 0u);
    EXPECT_STREQ(line, "");
}

TEST_P(LineReading, OtherDelimitersKeepTheCarriageReturn) {
    auto stream = open("a\r,b;c");
    char part[8];
    EXPECT_EQ(stream->readLine(part, 7, ",;"), 2u);
    EXPECT_STREQ(part, "a\r");
    EXPECT_EQ(stream->readLine(part, 7, ",;"), 1u);
    EXPECT_STREQ(part, "b");
    EXPECT_EQ(stream->readLine(part, 7, ",;"), 1u);
    EXPECT_STREQ(part, "c");
    EXPECT_EQ(stream->read(part, 1), 0u);
}

TEST_P(LineReading, LongLinesComeBackWhole) {
    const std::string first = longLine(300);
    const std::string second = longLine(130);
    auto stream = open(first + "\r\n" + second + "\nend");
    EXPECT_EQ(stream->getLine(), first);

    std::vector<char> buffer(400);
    EXPECT_EQ(stream->readLine(buffer.data(), 399), 130u);
    EXPECT_EQ(std::string(buffer.data()), second);
    EXPECT_EQ(stream->getLine(), "end");
}

TEST_P(LineReading, ReadLineStopsAtMaxAndLeavesTheRest) {
    auto stream = open("abcdefgh\nxy");
    char part[5];
    EXPECT_EQ(stream->readLine(part, 4), 4u);
    EXPECT_STREQ(part, "abcd");
    EXPECT_EQ(stream->readLine(part, 4), 4u);
    EXPECT_STREQ(part, "efgh");
    // The delimiter comes next: an empty line.
    EXPECT_EQ(stream->readLine(part, 4), 0u);
    EXPECT_EQ(stream->readLine(part, 4), 2u);
    EXPECT_STREQ(part, "xy");
}

TEST_P(LineReading, NullBufferSkipsTheLine) {
    auto stream = open("skip me\nkeep\n");
    EXPECT_EQ(stream->readLine(nullptr, 100), 7u);
    EXPECT_EQ(stream->getLine(), "keep");
}

TEST_P(LineReading, SkipLineCountsTheDelimiter) {
    auto stream = open("12345\n" + longLine(200) + "\nlast");
    EXPECT_EQ(stream->skipLine(), 6u);
    EXPECT_EQ(stream->skipLine(), 201u);
    EXPECT_EQ(stream->tell(), 207u);
    EXPECT_EQ(stream->skipLine(), 4u); // to the end, no delimiter
    EXPECT_EQ(stream->skipLine(), 0u);
}

TEST_P(LineReading, ZeroBytesAreDataNotDelimiters) {
    auto stream = open(std::string("a\0b\nc", 5));
    char line[8];
    EXPECT_EQ(stream->readLine(line, 7), 3u);
    EXPECT_EQ(memcmp(line, "a\0b", 4), 0);
    EXPECT_EQ(stream->getLine(), "c");
}

TEST_P(LineReading, GetLineTrimsOnlyWhenAsked) {
    auto stream = open(" \t padded \t\r\n padded \n");
    EXPECT_EQ(stream->getLine(false), " \t padded \t");
    EXPECT_EQ(stream->getLine(true), "padded");
}

TEST_P(LineReading, GetAsStringReadsFromTheStart) {
    const std::string text = longLine(5000);
    auto stream = open(text);
    stream->seek(4000);
    EXPECT_EQ(stream->getAsString(), text);
}

// --- FileStreamDataStream ----------------------------------------------------

TEST(FileStreamDataStream, MeasuresTheStreamAndKeepsItsPosition) {
    std::istringstream text("0123456789");
    text.seekg(3);
    FileStreamDataStream stream(&text, false);
    EXPECT_EQ(stream.getSize(), 10u);
    EXPECT_EQ(stream.tell(), 3u);
    EXPECT_TRUE(stream.isReadable());
    EXPECT_FALSE(stream.isWriteable());

    std::istringstream other("xyz");
    FileStreamDataStream given("given", &other, 99, false);
    EXPECT_EQ(given.getSize(), 99u); // a given size is taken as is
}

TEST(FileStreamDataStream, SkipAndSeekWorkAfterTheEnd) {
    std::istringstream text("abcdef");
    FileStreamDataStream stream(&text, false);
    char out[16];
    EXPECT_EQ(stream.read(out, 16), 6u);
    EXPECT_TRUE(stream.eof());
    EXPECT_EQ(stream.read(out, 1), 0u);

    stream.skip(-2);
    EXPECT_EQ(stream.read(out, 16), 2u);
    EXPECT_EQ(memcmp(out, "ef", 2), 0);

    stream.seek(1);
    EXPECT_EQ(stream.read(out, 2), 2u);
    EXPECT_EQ(memcmp(out, "bc", 2), 0);
}

TEST(FileStreamDataStream, WritesOnlyThroughAReadWriteStream) {
    std::istringstream text("abc");
    FileStreamDataStream readOnly(&text, false);
    EXPECT_EQ(readOnly.write("x", 1), 0u);

    auto* both = new std::fstream;
    char path[] = "/tmp/qzstream-XXXXXX";
    int fd = mkstemp(path);
    ASSERT_GE(fd, 0);
    ::close(fd);
    both->open(path, std::ios::in | std::ios::out | std::ios::binary | std::ios::trunc);
    ASSERT_TRUE(both->is_open());

    FileStreamDataStream stream("rw", both); // owns and deletes the stream on close
    EXPECT_TRUE(stream.isWriteable());
    EXPECT_EQ(stream.write("hello\nworld", 11), 11u);
    stream.seek(0);
    EXPECT_EQ(stream.getLine(), "hello");
    EXPECT_EQ(stream.getLine(), "world");
    stream.close();
    char out[4];
    EXPECT_EQ(stream.read(out, 4), 0u);
    EXPECT_FALSE(stream.isReadable());
    remove(path);
}

// --- StringUtil ---------------------------------------------------------------

TEST(StringUtil, TrimRemovesBlanksFromTheChosenEnds) {
    std::string both = " \t\rtext \r\t";
    StringUtil::trim(both);
    EXPECT_EQ(both, "text");

    std::string left = "  a b  ";
    StringUtil::trim(left, true, false);
    EXPECT_EQ(left, "a b  ");
    std::string right = "  a b  ";
    StringUtil::trim(right, false, true);
    EXPECT_EQ(right, "  a b");

    std::string blank = " \t \r";
    StringUtil::trim(blank);
    EXPECT_EQ(blank, "");
    std::string newline = "\nx\n"; // a line feed is not a blank
    StringUtil::trim(newline);
    EXPECT_EQ(newline, "\nx\n");
}

TEST(StringUtil, SplitSkipsRunsAndHonoursMaxSplits) {
    using V = std::vector<std::string>;
    EXPECT_EQ(StringUtil::split("a b c d", " ", 2), (V{"a", "b", "c d"}));
    EXPECT_EQ(StringUtil::split("  a \t\tb\nc  "), (V{"a", "b", "c"}));
    EXPECT_EQ(StringUtil::split("a,,b;;c", ",;"), (V{"a", "b", "c"}));
    EXPECT_EQ(StringUtil::split("one", ","), (V{"one"}));
    EXPECT_EQ(StringUtil::split("", ","), V{});
    EXPECT_EQ(StringUtil::split(",,,", ","), V{});
    EXPECT_EQ(StringUtil::split("a b  c", " ", 1), (V{"a", "b  c"}));
    EXPECT_EQ(StringUtil::split("a b", " ", 5), (V{"a", "b"}));
}

TEST(StringUtil, SplitCanKeepTheDelimiterRuns) {
    using V = std::vector<std::string>;
    EXPECT_EQ(StringUtil::split("a, b,c", ", ", 0, true), (V{"a", ", ", "b", ",", "c"}));
    EXPECT_EQ(StringUtil::split("a b ", " ", 0, true), (V{"a", " ", "b"}));
}
