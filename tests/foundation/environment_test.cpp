// Environment variables, one set leaning on another.
#include "foundation/environment.h"

#include <gtest/gtest.h>

#include <string>

namespace zt {
namespace {

std::string Listed(Environment& set) {
    std::string text;
    for (const KeyedValue* item = set.First(); item; item = set.Next()) {
        text += std::string(item->key.c_str()) + "=" + item->value.c_str() + " ";
    }
    return text;
}

TEST(Environment, SetsReplacesAndDeletes) {
    Environment set;
    EXPECT_EQ(set.Get("X"), nullptr);
    set.Set("X", "1");
    set.Set("Y", "");
    EXPECT_STREQ(set.Get("X"), "1");
    EXPECT_STREQ(set.Get("Y"), "");
    set.Set("x", "2");
    EXPECT_STREQ(set.Get("X"), "2");
    EXPECT_EQ(set.Count(), 2);
    set.Set("X", nullptr);
    EXPECT_EQ(set.Get("X"), nullptr);
    set.Set("X", nullptr);
    EXPECT_EQ(set.Count(), 1);
}

TEST(Environment, LooksAlongItsParents) {
    Environment outer, middle(&outer), inner(&middle);
    outer.Set("A", "outer");
    outer.Set("B", "outer");
    middle.Set("B", "middle");
    inner.Set("C", "inner");
    EXPECT_STREQ(inner.Get("A"), "outer");
    EXPECT_STREQ(inner.Get("B"), "middle");
    EXPECT_STREQ(inner.Get("C"), "inner");
    EXPECT_EQ(middle.Get("C"), nullptr);
    middle.Set("B", nullptr);  // shows the parent's again
    EXPECT_STREQ(inner.Get("B"), "outer");
}

TEST(Environment, FlattensFromTheOutsideIn) {
    Environment outer, inner(&outer), all;
    outer.Set("A", "outer");
    outer.Set("B", "outer");
    inner.Set("B", "inner");
    inner.Set("C", "inner");
    inner.Flatten(all);
    EXPECT_EQ(Listed(all), "A=outer B=inner C=inner ");
}

}  // namespace
}  // namespace zt
