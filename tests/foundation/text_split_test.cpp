// Cutting at separators, keys and values, and comma lists.
#include "foundation/text_split.h"

#include <vector>

namespace zt {
namespace {

using Pieces = std::vector<std::string>;

Pieces PiecesOf(const char* text, char separator, char quote) {
    EstringStore store;
    Split(store, text, separator, quote);
    Pieces pieces;
    for (int i = 0; i < store.Count(); i++)
        pieces.push_back(store.Peek(i)->c_str());
    return pieces;
}

TEST(SplitText, CutsOutsideQuotes) {
    struct {
        const char* text;
        Pieces expected;
    } rows[] = {
        {"a,b,c", {"a", "b", "c"}},
        {"", {""}},
        {",", {"", ""}},
        {"a,", {"a", ""}},
        {"\"a,b\",c", {"a,b", "c"}},
        {"\"a\"\"b\"", {"a\"b"}},
        {"\"\"", {""}},
        {"\"\"\"\"", {"\""}},
        {"\"\",\"\"", {"", ""}},
        {"x\"y,z\"w", {"xy,zw"}},
        {"\"open, to the end", {"open, to the end"}},
        {"a\"\"b", {"ab"}},
        {"\"a\"b\"c\"", {"abc"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PiecesOf(row.text, ',', '"'), row.expected) << row.text;
}

TEST(SplitText, TakesAnySeparatorAndQuote) {
    EXPECT_EQ(PiecesOf("a;'b;c'", ';', '\''), (Pieces{"a", "b;c"}));
    EXPECT_EQ(PiecesOf(nullptr, ';', '\''), (Pieces{""}));
}

TEST(SplitText, AppendsToWhatIsThere) {
    EstringStore store;
    store.Append(new Estring("first"));
    Split(store, "a,b", ',');
    ASSERT_EQ(store.Count(), 3);
    EXPECT_STREQ(store.Peek(0)->c_str(), "first");
}

TEST(KeyValueLine, IsCutAtTheFirstSeparator) {
    struct {
        const char* line;
        bool found;
        const char* key;
        const char* value;
    } rows[] = {
        {"Key=Value", true, "Key", "Value"},
        {"  Key  =  some value  ; remark", true, "Key", "some value"},
        {"Key==x=y", true, "Key", "=x=y"},
        {"Key=", true, "Key", ""},
        {"=x", true, "", "x"},
        {"Key=;x", true, "Key", ""},
        {"; Key=Value", false, "; Key=Value", ""},
        {"Key ;=Value", false, "Key ;=Value", ""},
        {"  no separator ", false, "  no separator ", ""},
        {"", false, "", ""},
    };
    for (const auto& row : rows) {
        Estring key("before");
        Estring value("before");
        EXPECT_EQ(SplitKeyValue(row.line, '=', key, value), row.found) << row.line;
        EXPECT_STREQ(key.c_str(), row.key) << row.line;
        EXPECT_STREQ(value.c_str(), row.value) << row.line;
        char keyBuffer[64];
        char valueBuffer[64];
        EXPECT_EQ(SplitKeyValue(row.line, '=', keyBuffer, 64, valueBuffer, 64), row.found);
        EXPECT_STREQ(keyBuffer, row.key) << row.line;
        EXPECT_STREQ(valueBuffer, row.value) << row.line;
    }
}

TEST(KeyValueLine, NeverOverrunsBuffers) {
    char key[6] = {'1', '2', '3', '4', '5', '6'};
    char value[6] = {'1', '2', '3', '4', '5', '6'};
    EXPECT_TRUE(SplitKeyValue("abcdefgh=ijklmnop", '=', key, 4, value, 1));
    EXPECT_STREQ(key, "abc");
    EXPECT_EQ(key[4], '5');
    EXPECT_STREQ(value, "");
    EXPECT_EQ(value[1], '2');
    EXPECT_TRUE(SplitKeyValue("a=b", '=', key, 0, value, 0));
    EXPECT_STREQ(key, "abc") << "a buffer of no bytes is left alone";
}

TEST(CommaTokens, AreCutOff) {
    struct {
        const char* text;
        const char* token;
        const char* rest;
    } rows[] = {
        {"a,b", "a", "b"},
        {"a", "a", ""},
        {"", "", ""},
        {",b", "", "b"},
        {"\"a,b\",c", "a,b", "c"},
        {"\"a\"\"b\",c", "a\"b", "c"},
        {"\"\",c", "", "c"},
        {"\"\"\"x\",c", "\"x", "c"},
        {"\"a\"\"\",c", "a\"", "c"},
        {"a\"\"b,c", "ab", "c"},
        {"a\\,b,c", "a,b", "c"},
        {"\\65\\066x", "ABx", ""},
        {"\\0651", "A1", ""},
        {"\\300", ",", ""},  // 300 in 8 bits is 44
        {"\\9z", "\tz", ""},
        {"\\\"a,b", "\"a", "b"},
        {"\\\\", "\\", ""},
        {"a\\", "a", ""},  // nothing follows
        {"a\nb", "ab", ""},
        {"a\\\nb", "a\nb", ""},
        {"\"a\\\"b\",c", "a\"b", "c"},
        {"\"open,x", "open,x", ""},
        {"a\\0b", "ab", ""},  // a NUL cannot stand in a text
    };
    for (const auto& row : rows) {
        Estring text(row.text);
        EXPECT_STREQ(NextToken(text).c_str(), row.token) << row.text;
        EXPECT_STREQ(text.c_str(), row.rest) << row.text;
    }
}

TEST(CommaTokens, QuoteAtTheNextTokensStartOnlyOpens) {
    Estring text("\"a\",\"b,c\"");
    EXPECT_STREQ(NextToken(text).c_str(), "a");
    EXPECT_STREQ(NextToken(text).c_str(), "b,c");
}

TEST(CommaList, ParsesIntoASetAndJoins) {
    StringCollection list;
    ParseCommaList(list, "pear,Apple,\"a,b\",PEAR,");
    EXPECT_STREQ(JoinCommaList(list).c_str(), "a,b,Apple,pear");
    EXPECT_EQ(list.Count(), 3);
    ParseCommaList(list, "");
    EXPECT_EQ(list.Count(), 3);
    StringCollection empty;
    EXPECT_STREQ(JoinCommaList(empty).c_str(), "");
    ParseCommaList(empty, ",x");
    EXPECT_STREQ(JoinCommaList(empty).c_str(), ",x") << "an empty token is a token";
}

}  // namespace
}  // namespace zt
