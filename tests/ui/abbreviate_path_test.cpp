// Paths made short: what stays and what goes.
#include "ui/abbreviate_path.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zt {
namespace {

struct Row {
    const char* path;
    int maxWidth;
    const char* expected;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.path << " to " << row.maxWidth;
}

class AbbreviatePathTest : public testing::TestWithParam<Row> {};

TEST_P(AbbreviatePathTest, KeepsRootAndTail) {
    Westring path = GetParam().path;
    AbbreviatePath(path, GetParam().maxWidth);
    EXPECT_STREQ(path.ToUtf8().c_str(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Paths, AbbreviatePathTest,
                         testing::Values(Row{"/usr/share/doc", 14, "/usr/share/doc"},  // fits
                                         Row{"/usr/share/doc/zanthe", 16, "/usr/...c/zanthe"},
                                         Row{"/usr/share/doc/zanthe", 9, "/usr/...e"},
                                         Row{"/usr/share/doc/zanthe", 8,
                                             "/usr/sh\u25BA"},  // no room for a tail
                                         Row{"usr/share/doc/zanthe", 12, "usr/...anthe"},
                                         Row{"a_name_without_directory", 10, "a_name_wi\u25BA"},
                                         Row{"/a_name_in_the_root", 10, "/a_name_i\u25BA"},
                                         Row{"//host/share/directory/file", 12, "//...ry/file"},
                                         Row{"/usr/share", 1, "\u25BA"}, Row{"/usr/share", 0, ""},
                                         Row{"/usr/share", -3, ""}, Row{"", 5, ""}));

TEST(AbbreviatePath, CountsCharactersNotBytes) {
    Westring path = "/\u00E4\u00F6/\u00FC\u00FC\u00FC\u00FC\u00FC\u00FC\u00FC\u00FC";
    AbbreviatePath(path, 10);
    EXPECT_STREQ(path.ToUtf8().c_str(), "/\u00E4\u00F6/...\u00FC\u00FC\u00FC");
    EXPECT_EQ(path.Length(), 10);
}

}  // namespace
}  // namespace zt
