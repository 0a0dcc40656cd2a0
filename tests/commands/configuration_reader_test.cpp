// How the configuration file is read.
#include "commands/configuration_reader.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <random>

#include "commands/rule_line.h"
#include "tests/commands/configuration_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ConfigurationReaderTest : public ConfigurationFixture {};

TEST_F(ConfigurationReaderTest, TakesAFileWithoutHeaderForGeneralOptions) {
    EXPECT_TRUE(Read("Hidden=on\nTabWidth=4\n"));
    EXPECT_TRUE(settings.hidden);
    EXPECT_EQ(settings.tabWidth, 4);
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationReaderTest, ReadsValuesInTheirForms) {
    const struct {
        const char* line;
        std::function<bool()> holds;
    } rows[] = {
        {"TimeMode=12", [] { return settings.timeMode == 12; }},
        {"TimeMode=abc", [] { return settings.timeMode == 12; }},
        {"TimeMode=24", [] { return settings.timeMode == 24; }},
        {"Hidden=ON", [] { return settings.hidden; }},
        {"Hidden=yes", [] { return !settings.hidden; }},
        {"Shadows = on", [] { return settings.shadows; }},
        {"Shadows = off", [] { return !settings.shadows; }},
        {"\t  shadows\t=\toff  \r", [] { return !settings.shadows; }},
        {"Editor=a=b", [] { return settings.editor == L"a=b"; }},
        {"Editor=a:b", [] { return settings.editor == L"a:b"; }},
        {"Editor=\xC3\xA4\xE2\x82\xAC", [] { return settings.editor == L"ä€"; }},
        {"Editor=", [] { return settings.editor.IsEmpty(); }},
        {"Background=", [] { return settings.background.IsEmpty(); }},
        {"Manual=x", [] { return true; }},
        {"Use132=x", [] { return true; }},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(Read(row.line)) << row.line;
        EXPECT_TRUE(row.holds()) << row.line;
    }
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationReaderTest, StoresDirectoriesUnderTheirDigits) {
    EXPECT_TRUE(Read("d5=/tmp\nD0 = /a b\nd9=/caf\xE9\n"));
    EXPECT_THAT(host_.messages, IsEmpty());
    EXPECT_STREQ(settings.storedPaths[5].c_str(), L"/tmp");
    EXPECT_STREQ(settings.storedPaths[0].c_str(), L"/a b");
    EXPECT_STREQ(NameToBytes(settings.storedPaths[9]).c_str(), "/caf\xE9");
}

TEST_F(ConfigurationReaderTest, ReportsUnknownKeysWithTheirLines) {
    EXPECT_TRUE(
        Read("Hidden=on\n\n; a comment\nd55=x\n[General Options]\n Bad Key = 7\nd=x\n=x\n"
             "TabWidth=2\n"));
    EXPECT_THAT(host_.messages, ElementsAre("Bad directive (d55) in zt.ini, line 4",
                                            "Bad directive (Bad Key) in zt.ini, line 6",
                                            "Bad directive (d) in zt.ini, line 7",
                                            "Bad directive () in zt.ini, line 8"));
    EXPECT_EQ(settings.tabWidth, 2);
}

TEST_F(ConfigurationReaderTest, CutsTheReportOfALongKey) {
    EXPECT_TRUE(Read(std::string(2000, 'k') + "=1\n"));
    ASSERT_THAT(host_.messages, SizeIs(1));
    EXPECT_EQ(host_.messages[0], "Bad directive (" + std::string(79 - 15, 'k'));
}

TEST_F(ConfigurationReaderTest, SkipsLinesWithoutSeparator) {
    EXPECT_TRUE(
        Read("\n   \nHidden\n# nothing\n[Unknown]\n[general options]\n"
             "[Environment]\nno separator\na:b\n[Archiver:ZIP]\nExtract\nExtract:x\n"
             "[Associations]\n*.c=x\n"));
    EXPECT_THAT(host_.messages, IsEmpty());
    EXPECT_EQ(configuration.environment.Count(), 0);
    EXPECT_STREQ(configuration.archivers[0].extract.c_str(), "unzip --z");
    EXPECT_EQ(Rules(kRunRules), "");
}

TEST_F(ConfigurationReaderTest, KnowsItsTwentyOneHeaders) {
    const char* const headers[] = {
        "[Archiver:ZIP]",        "[Archiver:RAR]",        "[Archiver:LHARC]",
        "[Archiver:ARJ]",        "[Archiver:ACE]",        "[Archiver:HA]",
        "[Archiver:GZIP]",       "[Archiver:TAR]",        "[Archiver:7ZIP]",
        "[Archiver:BZIP2]",      "[Archiver:XZ]",         "[Archiver:TAR/GZIP]",
        "[Archiver:TAR/BZIP2]",  "[Archiver:TAR/XZ]",     "[Associations]",
        "[Viewer Associations]", "[Editor Associations]", "[Colours]",
        "[Directory Colours]",   "[Environment]",         "[General Options]"};
    ASSERT_EQ(std::size(headers), static_cast<size_t>(kSectionCount));
    for (int i = 0; i < kSectionCount; i++)
        EXPECT_STREQ(SectionHeader(i).c_str(), headers[i]);
}

TEST_F(ConfigurationReaderTest, MatchesHeadersExactly) {
    // The last header that counts is [Environment]; the others leave it standing.
    EXPECT_TRUE(Read("  [Environment]\t\n[associations]\n[Associations ]\n[Archiver:zip]\nA=1\n"));
    EXPECT_STREQ(configuration.environment.Get("A"), "1");
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationReaderTest, TakesWhatStandsUnderAnUnknownHeaderIntoTheSectionBefore) {
    EXPECT_TRUE(Read("[Associations]\n[Archiver:NEW]\n*.c: cc !\n[Odd]\n*.h: hh !\n"));
    EXPECT_EQ(Rules(kRunRules), "*.c:cc !\n*.h:hh !\n");
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationReaderTest, FillsTheFiveListsOfRules) {
    EXPECT_TRUE(
        Read("*.old: general\n[Associations]\n*.a: run !\n*.a :: also !\n[Viewer Associations]\n"
             "*.b:: view !\n[Editor Associations]\n*.c: edit !\n[Colours]\n*.d: red on black\n"
             "*.e:: x\n[Directory Colours]\nd*: blue\nd*::y\n[General Options]\n*.z=1:2\n"
             "*.f:: last=1\n"));
    EXPECT_EQ(Rules(kRunRules), "*.old:general\n*.a:run !\n*.a::also !\n*.f::last=1\n");
    EXPECT_EQ(Rules(kViewerRules), "*.b::view !\n");
    EXPECT_EQ(Rules(kEditorRules), "*.c:edit !\n");
    EXPECT_EQ(Rules(kFileColourRules), "*.d:red on black\n*.e:: x\n");
    EXPECT_EQ(Rules(kDirectoryColourRules), "d*:blue\nd*::y\n");
    // In the general options the first of both separators counts.
    EXPECT_THAT(host_.messages, ElementsAre("Bad directive (*.z) in zt.ini, line 16"));
}

TEST_F(ConfigurationReaderTest, ReportsABadRuleAndGoesOn) {
    EXPECT_TRUE(Read("[Colours]\n  %size<: red  \n*.c: blue\n"));
    EXPECT_THAT(host_.messages, ElementsAre("Error in association|%size<: red:bad mask"));
    EXPECT_EQ(Rules(kFileColourRules), "*.c:blue\n");
}

TEST_F(ConfigurationReaderTest, ReadsTheEnvironmentWithItsVariablesReplaced) {
    EXPECT_TRUE(Read("[Environment]\nPLACE = $HERE/x \nEMPTY=\nEQUALS=a=b\nplace=second\n"));
    EXPECT_STREQ(configuration.environment.Get("PLACE"), "second");
    EXPECT_STREQ(configuration.environment.Get("EMPTY"), "");
    EXPECT_STREQ(configuration.environment.Get("EQUALS"), "a=b");
    EXPECT_TRUE(Read("[Environment]\nPLACE = $HERE/x \n"));
    EXPECT_STREQ(configuration.environment.Get("PLACE"), "/here/x");
    EXPECT_EQ(configuration.environment.Count(), 1);
}

TEST_F(ConfigurationReaderTest, ReplacesOnlyTheArchiverKeysThatAreGiven) {
    EXPECT_TRUE(
        Read("[Archiver:TAR/XZ]\nEXTRACT = my tar \nDelete=\nOther=x\nCompressDirSpec=!/\n"
             "[Archiver:HA]\nExtractListfileSwitch=@\nCompressUpdate=upd\n"
             "CompressListfileSwitch=-@\nExtractDirSpec=!/.\nCompress=c\n"));
    const ArchiverRecord& xz = configuration.archivers[13];
    EXPECT_STREQ(xz.extract.c_str(), "my tar");
    EXPECT_STREQ(xz.remove.c_str(), "");
    EXPECT_STREQ(xz.compressDirectory.c_str(), "!/");
    EXPECT_STREQ(xz.compress.c_str(), "tar --xz -cf");
    const ArchiverRecord& ha = configuration.archivers[5];
    EXPECT_STREQ(ha.extractListSwitch.c_str(), "@");
    EXPECT_STREQ(ha.compressUpdate.c_str(), "upd");
    EXPECT_STREQ(ha.compressListSwitch.c_str(), "-@");
    EXPECT_STREQ(ha.extractDirectory.c_str(), "!/.");
    EXPECT_STREQ(ha.compress.c_str(), "c");
    EXPECT_STREQ(ha.extract.c_str(), "ha x");
    EXPECT_STREQ(configuration.archivers[0].extract.c_str(), "unzip --z");
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationReaderTest, SetsTheDefaultsFirst) {
    settings.hidden = true;
    settings.storedPaths[3] = "/x";
    configuration.archivers[0].extract = "x";
    configuration.environment.Set("A", "1");
    EXPECT_TRUE(Read("Lines=30\n"));
    EXPECT_FALSE(settings.hidden);
    EXPECT_TRUE(settings.storedPaths[3].IsEmpty());
    EXPECT_STREQ(configuration.archivers[0].extract.c_str(), "unzip --z");
    EXPECT_EQ(configuration.environment.Get("A"), nullptr);
}

TEST_F(ConfigurationReaderTest, ReloadsTheListsAlone) {
    EXPECT_TRUE(Read("Hidden=on\n[Associations]\n*.a: a\n[Archiver:ZIP]\nExtract=x\n"));
    settings.tabWidth = 3;
    configuration.archivers[1].extract = "kept";
    Put(file_,
        "Hidden=off\nTabWidth=7\nd1=/x\nBad=1\n*.b: b\n[Environment]\nA=1\n"
        "[Archiver:ZIP]\nDelete=y\n");
    EXPECT_TRUE(ReadConfiguration(true, host_));
    EXPECT_THAT(host_.messages, IsEmpty());
    EXPECT_TRUE(settings.hidden);
    EXPECT_EQ(settings.tabWidth, 3);
    EXPECT_TRUE(settings.storedPaths[1].IsEmpty());
    EXPECT_EQ(Rules(kRunRules), "*.b:b\n");
    EXPECT_STREQ(configuration.environment.Get("A"), "1");
    EXPECT_STREQ(configuration.archivers[0].extract.c_str(), "x");
    EXPECT_STREQ(configuration.archivers[0].remove.c_str(), "y");
    EXPECT_STREQ(configuration.archivers[1].extract.c_str(), "kept");
}

TEST_F(ConfigurationReaderTest, MendsValuesOutOfRange) {
    const struct {
        const char* line;
        int32_t Settings::*variable;
        int32_t value;
    } rows[] = {
        {"MouSpeed=0", &Settings::mouSpeed, 8},
        {"MouSpeed=1", &Settings::mouSpeed, 1},
        {"MouSpeed=1000", &Settings::mouSpeed, 1000},
        {"MouSpeed=1001", &Settings::mouSpeed, 8},
        {"Lines=250", &Settings::lines, 250},
        {"Lines=251", &Settings::lines, 25},
        {"Lines=-5", &Settings::lines, 0},
        {"Lines=0", &Settings::lines, 0},
        {"Columns=132", &Settings::columns, 132},
        {"Columns=-1", &Settings::columns, 0},
        {"Columns=2000000000", &Settings::columns, 0},
        {"TabWidth=0", &Settings::tabWidth, 8},
        {"TabWidth=1", &Settings::tabWidth, 1},
        {"TabWidth=8", &Settings::tabWidth, 8},
        {"TabWidth=9", &Settings::tabWidth, 8},
        {"FontSize=-1", &Settings::fontSize, 12},
        {"FontSize=9999", &Settings::fontSize, 12},
        {"FontSize=9", &Settings::fontSize, 9},
    };
    for (const auto& row : rows) {
        EXPECT_TRUE(Read(row.line));
        EXPECT_EQ(settings.*row.variable, row.value) << row.line;
    }
}

TEST_F(ConfigurationReaderTest, TellsOfAnotherScreenSize) {
    EXPECT_TRUE(Read("Hidden=on\nFontFamily=DejaVu Sans Mono\nFontSize=12\nLines=0\n"));
    EXPECT_EQ(host_.screenChanges, 0);
    for (const char* line : {"Lines=50", "Columns=132", "FontFamily=Terminus", "FontSize=9"}) {
        host_.screenChanges = 0;
        settings = Settings();
        EXPECT_TRUE(Read(line));
        EXPECT_EQ(host_.screenChanges, 1) << line;
    }
    host_.screenChanges = 0;
    EXPECT_TRUE(ReadConfiguration(true, host_));
    EXPECT_EQ(host_.screenChanges, 0);
}

TEST_F(ConfigurationReaderTest, LimitsColoursToTheirClasses) {
    std::string line = "Colours=";
    for (int i = 0; i < 500; i++)
        line += "99 ";
    EXPECT_TRUE(Read(line + "\n"));
    for (const uint8_t colour : settings.colours)
        EXPECT_EQ(colour, 99);
    for (const Westring& path : settings.storedPaths)
        EXPECT_TRUE(path.IsEmpty());
}

TEST_F(ConfigurationReaderTest, CutsOverlongLines) {
    const std::string head = "Editor=";
    const std::string full(4095 - head.size(), 'e');
    EXPECT_TRUE(Read(head + full + "Hidden=on\nTabWidth=5\n"));
    EXPECT_EQ(settings.editor.Length(), static_cast<int>(full.size()));
    EXPECT_TRUE(settings.hidden);  // the rest was a line of its own
    EXPECT_EQ(settings.tabWidth, 5);
}

TEST_F(ConfigurationReaderTest, TakesAMissingFileForAnEmptyOne) {
    EXPECT_TRUE(ReadConfiguration(false, host_));
    std::filesystem::remove_all(directory_);
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_THAT(host_.messages, IsEmpty());
    EXPECT_EQ(settings.tabWidth, 8);
    EXPECT_FALSE(std::filesystem::exists(directory_));
}

TEST_F(ConfigurationReaderTest, ReportsWhatIsNoFile) {
    std::filesystem::create_directory(file_);
    EXPECT_FALSE(ReadConfiguration(false, host_));
    EXPECT_THAT(host_.messages, ElementsAre("Is a directory|" + file_));
    std::filesystem::remove(file_);
    ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
    host_.messages.clear();
    EXPECT_FALSE(ReadConfiguration(false, host_));  // and does not wait for a writer
    EXPECT_THAT(host_.messages, ElementsAre(HasSubstr("|" + file_)));
    SetConfigurationFile("/dev/zero");
    host_.messages.clear();
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationReaderTest, ReportsAFileThatMayNotBeRead) {
    Put(file_, "Hidden=on\n[Associations]\n*.c: c\n");
    ASSERT_EQ(chmod(file_.c_str(), 0), 0);
    EXPECT_EQ(AsOrdinaryUser([&] {
                  settings.hidden = false;
                  AddAssociation(configuration.rules[kRunRules], {"*.kept", "k", false});
                  if (ReadConfiguration(true, host_)) return 1;
                  if (host_.messages != std::vector<std::string>{"Permission denied|" + file_}) {
                      return 2;
                  }
                  return Rules(kRunRules) == "*.kept:k\n" ? 0 : 3;
              }),
              0);
}

TEST_F(ConfigurationReaderTest, ReadsTheFileFromTheCommandLine) {
    const std::string other = home_ + "/my.conf";
    Put(other, "TabWidth=2\n");
    Put(file_, "TabWidth=3\n");
    SetConfigurationFile(other.c_str());
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_EQ(settings.tabWidth, 2);
}

TEST_F(ConfigurationReaderTest, ReadsTheFileOfTheProgramsName) {
    Put(directory_ + "/xy.ini", "TabWidth=2\n");
    Put(file_, "TabWidth=3\n");
    SetProgramPath("/usr/local/bin/xy", false);
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_EQ(settings.tabWidth, 2);
    SetProgramPath("xy-remote", true);
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_EQ(settings.tabWidth, 2);
}

// Whatever is in the file: it is read to its end, and it is not touched.
class Rubbish : public ConfigurationFixture {
protected:
    void ReadAndCompare(const std::string& text) {
        Put(file_, text);
        struct stat before = {}, after = {};
        ASSERT_EQ(stat(file_.c_str(), &before), 0);
        EXPECT_TRUE(ReadConfiguration(false, host_));
        EXPECT_TRUE(ReadConfiguration(true, host_));
        ASSERT_EQ(stat(file_.c_str(), &after), 0);
        EXPECT_EQ(Get(file_), text);
        EXPECT_EQ(before.st_ino, after.st_ino);
        EXPECT_EQ(before.st_mtim.tv_sec, after.st_mtim.tv_sec);
        EXPECT_EQ(before.st_mtim.tv_nsec, after.st_mtim.tv_nsec);
        EXPECT_FALSE(std::filesystem::exists(temporary_));
    }
};

TEST_F(Rubbish, OfRandomLines) {
    std::mt19937 random(7);
    const char* const pieces[] = {"Hidden",
                                  "Colours",
                                  "d3",
                                  "d33",
                                  "=",
                                  ":",
                                  "::",
                                  " ",
                                  "\t",
                                  "[Environment]",
                                  "[Archiver:ZIP]",
                                  "[Archiver",
                                  "[Colours]",
                                  "[General Options]",
                                  "[Associations]",
                                  "Extract",
                                  "99999999999",
                                  "-1",
                                  "on",
                                  "\xE9",
                                  "\xC3\xA4",
                                  "*.c",
                                  "<",
                                  "$HERE",
                                  "\r",
                                  ";"};
    std::string text;
    for (int i = 0; i < 10000; i++) {
        for (size_t n = random() % 6; n > 0; n--)
            text += pieces[random() % std::size(pieces)];
        text += '\n';
    }
    ReadAndCompare(text + "[General Options]\nTabWidth=6\n");
    EXPECT_EQ(settings.tabWidth, 6);
    EXPECT_FALSE(host_.messages.empty());
}

TEST_F(Rubbish, OfAllBytes) {
    std::mt19937 random(8);
    std::string text(300000, ' ');
    for (char& ch : text)
        ch = static_cast<char>(random());
    ReadAndCompare(text);
    ReadAndCompare(std::string(100000, '\0'));
    ReadAndCompare(std::string(100000, '\n'));
    ReadAndCompare("\xEF\xBB\xBF[General Options]\r\nTabWidth=6\r\n");
    EXPECT_EQ(settings.tabWidth, 6);
}

TEST_F(Rubbish, OfLinesOfFourMegabytes) {
    const std::string megabytes(4 << 20, 'x');
    ReadAndCompare("Editor=" + megabytes + "\nTabWidth=6\n" + megabytes + "\nHidden=on");
    EXPECT_EQ(settings.tabWidth, 6);
    EXPECT_TRUE(settings.hidden);
    EXPECT_EQ(settings.editor.Length(), 4095 - 7);
    ReadAndCompare(std::string(4 << 20, '=') + "\n" + std::string(4 << 20, '['));
}

}  // namespace
}  // namespace zt
