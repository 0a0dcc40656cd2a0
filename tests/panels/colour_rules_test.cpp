// The colours of names by rules.
#include "panels/colour_rules.h"

#include "foundation/configuration.h"
#include "panels/entry_row.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

class Colours : public PanelFixture {
protected:
    Colours() {
        ForgetRules();
        panels->seams.colours = &rules;
    }
    ~Colours() override { ForgetRules(); }

    static void ForgetRules() {
        for (AssociationSet& rules : configuration.rules)
            rules.Clear();
    }

    static void Rule(RuleList list, const char* mask, const char* colour) {
        auto rule = std::make_unique<Association>();
        rule->mask = mask;
        rule->command = colour;
        configuration.rules[list].Append(rule.release());
    }
    int ColourOf(const wchar_t* name, int flags = 0, uint64_t size = 0) {
        const OwnedEntry e(NewEntry(name));
        e->flags = static_cast<uint16_t>(flags);
        e->size = size;
        return AttributeOf(left, *e);
    }

    ColourRules rules;
};

TEST_F(Colours, AreThoseOfTheClassWithoutRules) {
    EXPECT_EQ(ColourOf(L"a.c"), Colour(ColourClass::kPanel));
    EXPECT_EQ(ColourOf(L"a.c", kDirectory), Colour(ColourClass::kDirectories));
}

TEST_F(Colours, AreThoseOfTheFirstRuleThatMatches) {
    Rule(kFileColourRules, "*.c", "bri whi");
    Rule(kFileColourRules, "*.c & %size>10", "red on bla");
    Rule(kFileColourRules, "%size>10", "red on bla");
    const int background = Colour(ColourClass::kPanel) & 0xF0;
    EXPECT_EQ(ColourOf(L"a.c", 0, 100), background | 0x0F);
    EXPECT_EQ(ColourOf(L"a.h", 0, 100), 0x04);
    EXPECT_EQ(ColourOf(L"a.h", 0, 10), Colour(ColourClass::kPanel));
    EXPECT_EQ(ColourOf(L"a.c", kDirectory), Colour(ColourClass::kDirectories));
}

TEST_F(Colours, OfDirectoriesHaveRulesOfTheirOwn) {
    Rule(kDirectoryColourRules, ".git", "red");
    const int background = Colour(ColourClass::kDirectories) & 0xF0;
    EXPECT_EQ(ColourOf(L".git", kDirectory), background | 0x04);
    EXPECT_EQ(ColourOf(L".git"), Colour(ColourClass::kPanel));
}

TEST_F(Colours, AreNotChangedByARuleInError) {
    Rule(kFileColourRules, "%size~=5", "red");
    Rule(kFileColourRules, "%timestamp>@/no/such/file", "red");
    EXPECT_EQ(ColourOf(L"a", 0, 1), Colour(ColourClass::kPanel));
    EXPECT_EQ(ColourOf(L"a", 0, 1), Colour(ColourClass::kPanel)) << "nor at the second entry";
}

TEST_F(Colours, FollowTheRulesAsTheyAreReadAgain) {
    Rule(kFileColourRules, "*.c", "red");
    Rule(kFileColourRules, "*.h", "gre");
    const int background = Colour(ColourClass::kPanel) & 0xF0;
    EXPECT_EQ(ColourOf(L"a.h"), background | 0x02);
    configuration.rules[kFileColourRules].Clear();
    EXPECT_EQ(ColourOf(L"a.h"), Colour(ColourClass::kPanel));
    Rule(kFileColourRules, "*.h", "blu");
    EXPECT_EQ(ColourOf(L"a.h"), background | 0x01);
    EXPECT_EQ(ColourOf(L"a.c"), Colour(ColourClass::kPanel));
}

TEST_F(Colours, LeaveTaggedEntriesAlone) {
    Rule(kFileColourRules, "*", "red");
    const OwnedEntry e(NewEntry(L"a"));
    e->tagged = 1;
    EXPECT_EQ(AttributeOf(left, *e), Colour(ColourClass::kTagged));
}

}  // namespace
}  // namespace zt
