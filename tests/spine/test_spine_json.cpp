// The runtime's own JSON reader.
#include "SpineTestSupport.h"

#include <climits>
#include <cmath>
#include <string>

using namespace spinetest;

TEST(SpineJson, ReadsValuesWithAllViews) {
    AllocationCounter counter;
    Json* root = Json_create(R"({
      "int": -42, "float": 2.5e-1, "big": 1e40, "huge": 5e9,
      "text": "a\"b\\c\/\n\u00e9\ud83d\ude00", "yes": true, "no": false, "nothing": null,
      "list": [1, [2, 3], {}], "Mixed": {"Inner": "x"}
    })");
    ASSERT_NE(root, nullptr) << Json_getError();
    EXPECT_EQ(root->type, Json_Object);
    EXPECT_EQ(root->size, 10);
    EXPECT_EQ(Json_getInt(root, "int", 0), -42);
    EXPECT_FLOAT_EQ(Json_getFloat(root, "int", 0), -42);
    EXPECT_FLOAT_EQ(Json_getFloat(root, "float", 0), 0.25f);
    EXPECT_EQ(Json_getInt(root, "float", 9), 0);
    EXPECT_TRUE(std::isinf(Json_getFloat(root, "big", 0)));
    EXPECT_EQ(Json_getInt(root, "huge", 0), INT_MAX);  // saturates
    // Escapes, a two-byte character and a surrogate pair as UTF-8.
    EXPECT_STREQ(Json_getString(root, "text", nullptr), "a\"b\\c/\n\xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_EQ(Json_getInt(root, "yes", 7), 1);
    EXPECT_EQ(Json_getInt(root, "no", 7), 0);
    EXPECT_EQ(Json_getItem(root, "nothing")->type, Json_NULL);
    // Wrong types and missing members give the default.
    EXPECT_STREQ(Json_getString(root, "int", "dflt"), "dflt");
    EXPECT_FLOAT_EQ(Json_getFloat(root, "text", 3), 3);
    EXPECT_EQ(Json_getInt(root, "absent", 11), 11);
    EXPECT_EQ(Json_getItem(nullptr, "x"), nullptr);

    Json* list = Json_getItem(root, "list");
    ASSERT_EQ(list->type, Json_Array);
    EXPECT_EQ(list->size, 3);
    EXPECT_EQ(list->child->name, nullptr);
    EXPECT_EQ(list->child->next->type, Json_Array);
    EXPECT_EQ(list->child->next->child->next->valueInt, 3);
    EXPECT_EQ(list->child->next->next->type, Json_Object);
    EXPECT_EQ(list->child->next->next->size, 0);
    // Member names compare without regard to case.
    EXPECT_STREQ(Json_getString(Json_getItem(root, "mixed"), "INNER", nullptr), "x");
    Json_dispose(root);
    EXPECT_EQ(counter.live(), 0);
}

TEST(SpineJson, RefusesMalformedTextWithAReason) {
    const char* cases[] = {
        "",          "   ",          "{",           "[1,]",       "{\"a\":1,}", "{\"a\" 1}",  "{a: 1}",
        "[1 2]",     "\"abc",        "\"\\x\"",     "\"\\u12\"",  "01.",        "-",          "1e",
        "nul",       "{} x",         "[\"a\\",     "{\"a\":}",   "[-]",        "{\"k\":[1,{\"m\":]}]}",
    };
    for (const char* text : cases) {
        AllocationCounter counter;
        EXPECT_EQ(Json_create(text), nullptr) << text;
        EXPECT_STRNE(Json_getError(), "") << text;
        EXPECT_EQ(counter.live(), 0) << text;
    }
    EXPECT_EQ(Json_create(nullptr), nullptr);
}

TEST(SpineJson, LimitsNesting) {
    std::string deep(100, '[');
    deep += std::string(100, ']');
    Json* ok = Json_create(deep.c_str());
    EXPECT_NE(ok, nullptr);
    Json_dispose(ok);

    std::string tooDeep(5000, '[');
    tooDeep += std::string(5000, ']');
    EXPECT_EQ(Json_create(tooDeep.c_str()), nullptr);
    EXPECT_NE(std::string(Json_getError()).find("Nesting too deep"), std::string::npos);
}

TEST(SpineJson, ReadsOnlyTheGivenLength) {
    // The text continues past the length; only the prefix counts.
    const char text[] = "{\"a\": 1}garbage";
    Json* root = Json_createWithLength(text, 8);
    ASSERT_NE(root, nullptr) << Json_getError();
    EXPECT_EQ(Json_getInt(root, "a", 0), 1);
    Json_dispose(root);
    EXPECT_EQ(Json_createWithLength(text, 7), nullptr);
    // A byte-order mark is skipped.
    Json* bom = Json_create("\xEF\xBB\xBF[true]");
    ASSERT_NE(bom, nullptr);
    EXPECT_EQ(bom->child->type, Json_True);
    Json_dispose(bom);
}

TEST(SpineJson, NumbersMatchTheirText) {
    struct Case {
        const char* text;
        double value;
    } cases[] = {{"0", 0},          {"-0.5", -0.5},   {"123456789", 123456789}, {"1.25E+2", 125},
                 {"7e-3", 0.007},   {"3.14159", 3.14159}, {"1e-400", 0},       {"12345678901234567890123", 1.2345678901234568e22}};
    for (const Case& c : cases) {
        std::string doc = std::string("[") + c.text + "]";
        Json* root = Json_create(doc.c_str());
        ASSERT_NE(root, nullptr) << c.text;
        EXPECT_FLOAT_EQ(root->child->valueFloat, (float)c.value) << c.text;
        Json_dispose(root);
    }
}
