// The 92 keys of the general options, and the forms of their values.
#include "commands/settings_table.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

namespace zt {
namespace {

class SettingsTableTest : public testing::Test {
protected:
    void SetUp() override { settings = Settings(); }
    void TearDown() override { settings = Settings(); }
    static void Store(const char* key, const char* value) {
        const SettingRow* row = FindSetting(key);
        ASSERT_TRUE(row) << key;
        StoreSetting(*row, value);
    }
    static std::string Text(const char* key) {
        const SettingRow* row = FindSetting(key);
        return row ? SettingText(*row).c_str() : "no such key";
    }
};

TEST_F(SettingsTableTest, NamesEachKeyAndVariableOnce) {
    std::set<std::string> keys;
    std::set<void*> variables;
    int ignored = 0;
    for (int i = 0; i < kSettingCount; i++) {
        const SettingRow& row = SettingsTable()[i];
        EXPECT_TRUE(keys.insert(Estring(row.key).c_str()).second) << row.key;
        if (row.variable) {
            EXPECT_TRUE(variables.insert(row.variable).second) << row.key;
        } else {
            ignored++;
        }
    }
    EXPECT_EQ(ignored, 2);  // Manual and Use132
    EXPECT_FALSE(FindSetting("Manual")->variable);
    EXPECT_FALSE(FindSetting("Use132")->variable);
    EXPECT_STREQ(SettingsTable()[0].key, "AutoIndent");
    EXPECT_STREQ(SettingsTable()[kSettingCount - 1].key, "Colours");
}

TEST_F(SettingsTableTest, FindsKeysWithoutRegardToCase) {
    EXPECT_EQ(FindSetting("hIdDeN"), FindSetting("Hidden"));
    EXPECT_FALSE(FindSetting("Hidde"));
    EXPECT_FALSE(FindSetting(""));
}

// As the file gives them when it has no line for a key.
TEST_F(SettingsTableTest, HasTheDefaults) {
    const struct {
        const char* key;
        const char* text;
    } rows[] = {
        {"AutoIndent", "off"},
        {"AutoSave", "off"},
        {"Background", "gnome-terminal -x ! &"},
        {"BriefWordRight", "on"},
        {"CaseFilter", ""},
        {"CaseMod", "ll"},
        {"CaseModRecurse", "off"},
        {"CaseModDirs", "on"},
        {"CaseModFiles", "on"},
        {"Clock", "off"},
        {"CmdChar", "!"},
        {"CMPContents", "off"},
        {"CMPMask", "*"},
        {"CMPSize", "0"},
        {"CMPTime", "1"},
        {"CMPUnmatched", "on"},
        {"CodePage", "0"},
        {"Confirmations", "0"},
        {"ConnectRemote", "ssh %h zt-remote"},
        {"ConsoleScrollback", "on"},
        {"CtrlRDriveChng", "off"},
        {"DisableInvert", "off"},
        {"Editor", ""},
        {"Editor2", "editor"},
        {"EscPanelSwitch", "off"},
        {"ExpandedTrees", "on"},
        {"FFRootSearch", "on"},
        {"FFRecurse", "on"},
        {"FFCase", "off"},
        {"FFWholeWord", "off"},
        {"FFMultiDrive", "off"},
        {"FFDriveList", ""},
        {"FFFollowLinks", "off"},
        {"FontFamily", "DejaVu Sans Mono"},
        {"FontSize", "12"},
        {"FullScreen", "on"},
        {"Hidden", "off"},
        {"IndentWidth", "1"},
        {"KeepExtVisible", "on"},
        {"Left", ""},
        {"Right", ""},
        {"LeftFilter", "*"},
        {"RightFilter", "*"},
        {"LeftSort", "name"},
        {"RightSort", "name"},
        {"LeftStyle", "full"},
        {"RightStyle", "full"},
        {"LeftShowing", "on"},
        {"RightShowing", "on"},
        {"LeftType", "files"},
        {"RightType", "files"},
        {"LeftWidth", "half"},
        {"RightWidth", "half"},
        {"Lines", "0"},
        {"Columns", "0"},
        {"MaxHist", "500"},
        {"MaxFieldHist", "20"},
        {"MouSpeed", "8"},
        {"NaturalSort", "off"},
        {"NumLock", "off"},
        {"OverStrike", "off"},
        {"PathAppend", ""},
        {"PathPrompt", "on"},
        {"PMClip", "on"},
        {"RelativeLinks", "off"},
        {"RetainCount", "off"},
        {"Saver", "0"},
        {"ScrollDelay", "10"},
        {"Shadows", "on"},
        {"SizeCountPause", "off"},
        {"StartupSide", "L"},
        {"StickyAlt", "on"},
        {"SyncCopyMissing", "on"},
        {"SyncDeleteExtra", "off"},
        {"SyncDirFilter", "*"},
        {"SyncFilter", "*"},
        {"SyncRevertNewer", "off"},
        {"SyncUpdateOlder", "on"},
        {"TabWidth", "8"},
        {"TagDirs", "off"},
        {"TextCodePage", "0"},
        {"TimeMode", "12"},
        {"ThousandSep", "off"},
        {"TranslateCP", ""},
        {"TreeDir", ""},
        {"Viewer", ""},
        {"Viewer2", "pager"},
        {"ViewerWrap", "on"},
        {"WaitDOS", "off"},
        {"Colours", "27 48 30 62 26 32 7 112 79 48 3 63 48 15 14 7 27 48 62 58 62 "},
    };
    EXPECT_EQ(std::size(rows), static_cast<size_t>(kSettingCount - 2));
    for (const auto& row : rows)
        EXPECT_EQ(Text(row.key), row.text) << row.key;
}

TEST_F(SettingsTableTest, KeepsTheOrderOfTheDocumentation) {
    // The keys around each place where the alphabet does not give the order.
    const char* const order[] = {"CmdChar",    "CMPContents", "FFFollowLinks", "FontFamily",
                                 "FullScreen", "Manual",      "Hidden",        "KeepExtVisible",
                                 "Left",       "Right",       "LeftFilter",    "RightFilter",
                                 "LeftSort",   "LeftWidth",   "RightWidth",    "Lines",
                                 "Columns",    "TimeMode",    "ThousandSep",   "WaitDOS"};
    int last = -1;
    for (const char* key : order) {
        const int place = static_cast<int>(FindSetting(key) - SettingsTable());
        EXPECT_GT(place, last) << key;
        last = place;
    }
}

TEST_F(SettingsTableTest, ReadsEachForm) {
    const struct {
        const char* key;
        const char* value;
        const char* text;
    } rows[] = {
        {"Hidden", "on", "on"},
        {"Hidden", "ON", "on"},
        {"Hidden", "yes", "off"},
        {"Hidden", "", "off"},
        {"Hidden", "1", "off"},
        {"Hidden", "on ", "off"},
        {"TimeMode", "24", "24"},
        {"TimeMode", "12", "12"},
        {"TimeMode", "abc", "12"},
        {"TimeMode", "024", "12"},
        {"TabWidth", "3", "3"},
        {"TabWidth", "-7", "-7"},
        {"TabWidth", "4x", "4"},
        {"TabWidth", "x", "0"},
        {"TabWidth", "0x10", "0"},
        {"TabWidth", "99999999999", "2147483647"},
        {"TabWidth", "-99999999999999999999", "-2147483648"},
        {"CmdChar", "#!", "#"},
        {"CmdChar", "", ""},
        {"LeftSort", "size", "size"},
        {"LeftSort", "RSIZE", "rsize"},
        {"LeftSort", "weight", "name"},
        {"LeftStyle", "unix", "unix"},
        {"LeftStyle", "tree", "full"},
        {"LeftStyle", "", "full"},
        {"LeftType", "info", "info"},
        {"LeftType", "tree", "files"},
        {"LeftWidth", "full", "full"},
        {"LeftWidth", "forcedhalf", "forcedhalf"},
        {"LeftWidth", "wide", "half"},
        {"Editor", "vi \xC3\xA4", "vi \xC3\xA4"},
        {"Editor", "vi \xE4", "vi \xE4"},
        {"CaseMod", "\xE4 uu", "\xE4 uu"},
    };
    for (const auto& row : rows) {
        Store(row.key, row.value);
        EXPECT_EQ(Text(row.key), row.text) << row.key << "=" << row.value;
    }
}

TEST_F(SettingsTableTest, GivesTheNearestWordForWhatHasNone) {
    settings.sides[0].sort = 9;  // unsorted, reversed
    EXPECT_EQ(Text("LeftSort"), "unsorted");
    for (const int32_t odd : {5, 1000, -1}) {
        settings.sides[1].style = odd;
        EXPECT_EQ(Text("RightStyle"), "full");
        settings.sides[1].width = odd;
        EXPECT_EQ(Text("RightWidth"), "half");
    }
}

TEST_F(SettingsTableTest, TakesOneColourForEachClass) {
    Store("Colours", "1 2  3\t255 256 -1 rest 9");
    const uint8_t expected[] = {1, 2, 3, 255, 0, 255, 0x07};
    EXPECT_EQ(memcmp(settings.colours, expected, sizeof expected), 0);
    Store("Colours", "");
    EXPECT_EQ(settings.colours[0], 1);
}

TEST_F(SettingsTableTest, DropsColoursBeyondTheLastClass) {
    // Guard bytes around the classes show a store past their end.
    struct {
        uint8_t colours[kColourClassCount];
        uint8_t guard[100];
    } record;
    memset(&record, 0xAA, sizeof record);
    std::string value;
    for (int i = 0; i < 100; i++)
        value += "17 ";
    StoreSetting({"Colours", SettingType::kColours, record.colours}, value.c_str());
    for (const uint8_t colour : record.colours)
        EXPECT_EQ(colour, 17);
    for (const uint8_t byte : record.guard)
        ASSERT_EQ(byte, 0xAA);
}

TEST_F(SettingsTableTest, IgnoresValuesWithoutAVariable) {
    Store("Manual", "anything");
    Store("Use132", "on");
    EXPECT_EQ(Text("Manual"), "");
    EXPECT_EQ(Text("Use132"), "");
}

}  // namespace
}  // namespace zt
