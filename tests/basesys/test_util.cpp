#include "basesys/ZuDebug.h"
#include "basesys/ZuUtil.h"
#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

namespace {

std::string encoded(unsigned int code, int* count = nullptr) {
    std::string out;
    const int n = ZuUtil::ToUTF8(code, out);
    if (count) *count = n;
    return out;
}

// Exact-size heap copy without a terminator, so a read past the end trips ASan.
std::unique_ptr<char[]> exactCopy(const char* bytes, size_t n) {
    std::unique_ptr<char[]> p(new char[n]);
    std::memcpy(p.get(), bytes, n);
    return p;
}

}  // namespace

TEST(ZuUtilUTF8, EncodingThresholds) {
    // Byte patterns worked out by hand from the lead-byte marks
    // 0xC0/0xE0/0xF0/0xF8/0xFC and six payload bits per trail byte.
    struct Case {
        unsigned int code;
        int count;
        const char* bytes;
    };
    const Case cases[] = {
        {0x00, 1, "\x00"},
        {0x7F, 1, "\x7F"},
        {0x80, 2, "\xC2\x80"},
        {0x7FF, 2, "\xDF\xBF"},
        {0x800, 3, "\xE0\xA0\x80"},
        {0x20AC, 3, "\xE2\x82\xAC"},
        {0xFFFF, 3, "\xEF\xBF\xBF"},
        {0x10000, 4, "\xF0\x90\x80\x80"},
        {0x1FFFFF, 4, "\xF7\xBF\xBF\xBF"},
        {0x200000, 5, "\xF8\x88\x80\x80\x80"},
        {0x3FFFFFF, 5, "\xFB\xBF\xBF\xBF\xBF"},
        {0x4000000, 6, "\xFC\x84\x80\x80\x80\x80"},
        {0x7FFFFFFF, 6, "\xFD\xBF\xBF\xBF\xBF\xBF"},
    };
    for (const Case& c : cases) {
        int n = 0;
        const std::string out = encoded(c.code, &n);
        EXPECT_EQ(n, c.count) << std::hex << c.code;
        EXPECT_EQ(out, std::string(c.bytes, static_cast<size_t>(c.count))) << std::hex << c.code;
        EXPECT_EQ(ZuUtil::FromUTF8(out.data(), out.size()), static_cast<int>(c.code)) << std::hex << c.code;
    }

    std::string target = "keep";
    EXPECT_EQ(ZuUtil::ToUTF8(0x80000000u, target), -1);
    EXPECT_EQ(ZuUtil::ToUTF8(0xFFFFFFFFu, target), -1);
    EXPECT_EQ(target, "keep");
    // Appends rather than replaces.
    EXPECT_EQ(ZuUtil::ToUTF8(0x41, target), 1);
    EXPECT_EQ(target, "keepA");
}

TEST(ZuUtilUTF8, DecodingRefusesBadBytesWithoutOverreading) {
    EXPECT_EQ(ZuUtil::FromUTF8("A"), 'A');
    EXPECT_EQ(ZuUtil::FromUTF8("\xE2\x82\xAC rest"), 0x20AC);
    EXPECT_EQ(ZuUtil::FromUTF8(nullptr), -1);
    EXPECT_EQ(ZuUtil::FromUTF8("\x80"), -1);      // continuation as lead
    EXPECT_EQ(ZuUtil::FromUTF8("\xFE\x80"), -1);  // no such lead
    EXPECT_EQ(ZuUtil::FromUTF8("\xFF"), -1);
    EXPECT_EQ(ZuUtil::FromUTF8("\xC2" "A"), -1);    // trail without 10 prefix
    EXPECT_EQ(ZuUtil::FromUTF8("\xE2\x82"), -1);  // cut short by the terminator
    EXPECT_EQ(ZuUtil::FromUTF8(""), 0);

    auto cut = exactCopy("\xF0\x90\x80", 3);
    EXPECT_EQ(ZuUtil::FromUTF8(cut.get(), 3), -1);
    auto whole = exactCopy("\xF0\x90\x80\x80", 4);
    EXPECT_EQ(ZuUtil::FromUTF8(whole.get(), 4), 0x10000);
    EXPECT_EQ(ZuUtil::FromUTF8(whole.get(), 0), -1);

    EXPECT_EQ(ZuUtil::UTF8SequenceLength(0x41), 1);
    EXPECT_EQ(ZuUtil::UTF8SequenceLength(0xBF), 0);
    EXPECT_EQ(ZuUtil::UTF8SequenceLength(0xFD), 6);
}

TEST(ZuUtilUTF8, GlyphLengthCountsHighBytesAsThreeByteCharacters) {
    EXPECT_EQ(ZuUtil::GetUtf8StringLenght("a\xE4\xB8\xAD"), 2);
    EXPECT_EQ(ZuUtil::GetUtf8StringLenght("\xE4\xB8\xAD\xE6\x96\x87ok"), 4);
    EXPECT_EQ(ZuUtil::GetUtf8StringLenght(""), 0);
    EXPECT_EQ(ZuUtil::GetUtf8StringLenght(nullptr), -1);
    // A two-byte character still counts as one and swallows the next byte.
    EXPECT_EQ(ZuUtil::GetUtf8StringLenght("\xC3\xA9xy"), 2);
    // A truncated character at the end stops at the terminator.
    auto cut = exactCopy("a\xE4", 3);
    EXPECT_EQ(ZuUtil::GetUtf8StringLenght(cut.get()), 2);
}

TEST(ZuDebugTimer, LogsLabelAndCostTimeAtDebugLevel) {
    LogCapture log;
    {
        ZuDebug timer("loadPackage ");
        EXPECT_GE(timer.elapsedMs(), 0.0);
    }
    const auto lines = log.lines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].rfind("loadPackage CostTime ", 0), 0u) << lines[0];
    EXPECT_EQ(log.count("CostTime", ZU_LOG_DEBUG), 1);
    EXPECT_EQ(log.count("CostTime", ZU_LOG_INFO), 0);
}
