#include "basesys/qzString.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

TEST(QzString, ConstructionAndNullText) {
    qz::string empty;
    EXPECT_EQ(empty.size(), 0u);
    EXPECT_TRUE(empty.empty());
    ASSERT_NE(empty.c_str(), nullptr);
    EXPECT_STREQ(empty.c_str(), "");

    qz::string s("x");
    EXPECT_EQ(s.size(), 1u);
    s = static_cast<const char*>(nullptr);
    EXPECT_EQ(s.size(), 0u);
    ASSERT_NE(s.c_str(), nullptr);
    EXPECT_STREQ(s.c_str(), "");
    qz::string fromNull(static_cast<const char*>(nullptr));
    EXPECT_TRUE(fromNull.empty());

    qz::string bounded("abcdef", 3);
    EXPECT_EQ(bounded, "abc");
    qz::string stopsAtTerminator("ab\0cd", 5);
    EXPECT_EQ(stopsAtTerminator.size(), 2u);
}

TEST(QzString, IntegerConstructorsRenderDecimal) {
    EXPECT_EQ(qz::string(0), "0");
    EXPECT_EQ(qz::string(-17), "-17");
    EXPECT_EQ(qz::string(INT_MAX), "2147483647");
    EXPECT_EQ(qz::string(INT_MIN), "-2147483648");
    EXPECT_EQ(qz::string(4294967295u), "4294967295");
    EXPECT_EQ(qz::string(static_cast<long long>(LLONG_MIN)), "-9223372036854775808");
    EXPECT_EQ(qz::string(18446744073709551615ull), "18446744073709551615");
    EXPECT_EQ(qz::string(static_cast<size_t>(12)), "12");
}

TEST(QzString, AssignmentFromOwnText) {
    qz::string s("hello world");
    s = s.c_str();  // own text: nothing changes
    EXPECT_EQ(s, "hello world");
    s = s.c_str() + 6;  // overlapping tail of the own buffer
    EXPECT_EQ(s, "world");
    const qz::string& alias = s;
    s = alias;
    EXPECT_EQ(s, "world");
    qz::string longer("a much longer text than before");
    s = longer;
    EXPECT_EQ(s, longer);
}

TEST(QzString, AppendAndConcatenate) {
    qz::string s("ab");
    s.append("");
    s.append(qz::string());
    s.append(static_cast<const char*>(nullptr));
    EXPECT_EQ(s, "ab");
    s += "cd";
    s += qz::string("ef");
    s += 'g';
    s.append("hijk", 2);
    EXPECT_EQ(s, "abcdefghi");
    s.append(s);  // self-append doubles
    EXPECT_EQ(s, "abcdefghiabcdefghi");
    s = "xy";
    s.append(s.c_str() + 1);  // text inside the own buffer
    EXPECT_EQ(s, "xyy");

    const qz::string a("path/");
    EXPECT_EQ(a + "file.png", "path/file.png");
    EXPECT_EQ(a + qz::string("x"), "path/x");
    EXPECT_EQ("/" + a, "/path/");
    EXPECT_EQ(a, "path/");  // operands untouched
}

TEST(QzString, EqualityAndOrdering) {
    EXPECT_TRUE(qz::string("abc") == "abc");
    EXPECT_TRUE("abc" == qz::string("abc"));
    EXPECT_FALSE(qz::string("abc") == "abcd");
    EXPECT_FALSE(qz::string("abcd") == "abc");
    EXPECT_TRUE(qz::string("abc") != qz::string("abd"));
    EXPECT_TRUE(qz::string() == "");
    EXPECT_TRUE(qz::string() == static_cast<const char*>(nullptr));

    EXPECT_TRUE(qz::string("abc") < qz::string("abcd"));
    EXPECT_FALSE(qz::string("abcd") < qz::string("abc"));
    EXPECT_FALSE(qz::string("b") < qz::string("abcd"));
    EXPECT_TRUE(qz::string("abcd") < qz::string("b"));
    EXPECT_FALSE(qz::string("same") < qz::string("same"));
    EXPECT_TRUE(qz::string() < qz::string("a"));
    // Bytes compare unsigned: a high byte sorts after ASCII.
    EXPECT_TRUE(qz::string("z") < qz::string("\xC3\xA9"));
}

TEST(QzString, FindAndFindLast) {
    const qz::string s("a.b.c.png");
    EXPECT_EQ(s.find("."), 1);
    EXPECT_EQ(s.find(".", 2), 3);
    EXPECT_EQ(s.find("png"), 6);
    EXPECT_EQ(s.find("png", 7), -1);
    EXPECT_EQ(s.find("png", 100), -1);
    EXPECT_EQ(s.find(""), -1);
    EXPECT_EQ(s.find(nullptr), -1);
    EXPECT_EQ(s.find("a.b.c.png!"), -1);
    EXPECT_EQ(s.find("a.b.c.png"), 0);
    EXPECT_EQ(s.findFirst('c'), 4);
    EXPECT_EQ(s.findFirst('q'), -1);

    EXPECT_EQ(s.findLast('.'), 5);
    EXPECT_EQ(s.findLast('.', 4), 3);
    EXPECT_EQ(s.findLast('.', 1000), 5);  // clamped to the string
    EXPECT_EQ(s.findLast('a', 0), 0);
    EXPECT_EQ(s.findLast('q'), -1);
    EXPECT_EQ(qz::string().findLast('a'), -1);
    EXPECT_EQ(qz::string().findLast('a', 5), -1);
}

TEST(QzString, SubString) {
    const qz::string s("Hello.PNG");
    EXPECT_EQ(s.subString(0, 5), "Hello");
    EXPECT_EQ(s.subString(6, 100), "PNG");
    EXPECT_EQ(s.subString(6, 3, true), "png");
    EXPECT_EQ(s.subString(0, 9, true), "hello.png");
    EXPECT_TRUE(s.subString(9, 1).empty());
    EXPECT_TRUE(s.subString(3, 0).empty());
    EXPECT_TRUE(s.subString(3, -4).empty());
    // Only ASCII letters are lowered.
    EXPECT_EQ(qz::string("\xC3\x89T\xC3\x89").subString(0, 5, true), "\xC3\x89t\xC3\x89");
}

TEST(QzString, ReplaceShrinkingGrowingAndEqual) {
    qz::string s("a--b--c");
    s.replace("--", "-");
    EXPECT_EQ(s, "a-b-c");
    s.replace("-", "");
    EXPECT_EQ(s, "abc");
    s.replace("", "x");
    EXPECT_EQ(s, "abc");
    s.replace("b", "<b>");
    EXPECT_EQ(s, "a<b>c");
    s = "xxx";
    s.replace("x", "xx");  // inserted text is not searched again
    EXPECT_EQ(s, "xxxxxx");
    s = "aaa";
    s.replace("aa", "ba");  // equal length, non-overlapping left to right
    EXPECT_EQ(s, "baa");
    s = "aaaa";
    s.replace("aa", "b");
    EXPECT_EQ(s, "bb");
    s = "end.";
    s.replace(".", "...");
    EXPECT_EQ(s, "end...");
    EXPECT_EQ(s.size(), 6u);
    s = "abc";
    s.replace(s, "z");  // argument aliasing the string itself
    EXPECT_EQ(s, "z");
    s = "q";
    s.replace("q", s + s);
    EXPECT_EQ(s, "qq");
    s = "a\\b\\c";
    s.replace('\\', '/');
    EXPECT_EQ(s, "a/b/c");
    s.replace("nothing", "longer text");
    EXPECT_EQ(s, "a/b/c");
}

TEST(QzString, ReserveAndReallocate) {
    qz::string s("abc");
    s.reserve(64);
    EXPECT_EQ(s, "abc");
    s.reallocate(3);  // room for two bytes and the terminator
    EXPECT_EQ(s, "ab");
    EXPECT_EQ(s.size(), 2u);
    s.reallocate(0);
    EXPECT_TRUE(s.empty());
    EXPECT_STREQ(s.c_str(), "");
    s += "again";
    EXPECT_EQ(s, "again");
    s[0] = 'A';
    EXPECT_EQ(s[0], 'A');
    EXPECT_EQ(qz::string("MiXeD").make_lower(), "mixed");
}
