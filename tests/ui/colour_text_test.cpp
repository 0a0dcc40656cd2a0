// Colour words of the configuration.
#include "ui/colour_text.h"

#include <gtest/gtest.h>

#include <ostream>

namespace zt {
namespace {

struct Row {
    const char* text;
    int start;
    int expected;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << "\"" << row.text << "\" from 0x" << std::hex << row.start << std::dec;
}

class ColourTextTest : public testing::TestWithParam<Row> {};

TEST_P(ColourTextTest, GivesTheAttribute) {
    EXPECT_EQ(ParseColourText(GetParam().text, static_cast<Attribute>(GetParam().start)),
              GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Words, ColourTextTest,
    testing::Values(Row{"bri whi on blu", 0x47, 0x1F}, Row{"on red", 0x1E, 0x4E},
                    Row{"", 0x1E, 0x1E}, Row{"   ", 0x1E, 0x1E},
                    Row{"red", 0x1E, 0x14},  // the background stays
                    Row{"bright white on blue", 0x47, 0x1F}, Row{"BRI YEL ON BRI MAG", 0x00, 0xDE},
                    Row{"black on green", 0xFF, 0x20}, Row{"blu gre", 0x07, 0x03},  // words add up
                    Row{"pink red", 0x17, 0x14},  // unknown words are ignored
                    Row{"pink", 0x17, 0x17}, Row{"one red", 0x17, 0x14},
                    Row{"cyan on", 0x17, 0x03},  // nothing follows
                    Row{"\tyellow\t on  cya ", 0x17, 0x36}, Row{"re on bl", 0x17, 0x07},
                    Row{"bri", 0x17, 0x18}));

}  // namespace
}  // namespace zt
