// How the configuration file is written, and that nothing is lost when it cannot be.
#include "commands/configuration_writer.h"

#include <gmock/gmock.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstring>

#include "commands/rule_line.h"
#include "commands/settings_table.h"
#include "tests/commands/configuration_fixture.h"

namespace zt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class ConfigurationWriterTest : public ConfigurationFixture {
protected:
    std::string Saved() {
        EXPECT_TRUE(WriteConfiguration(host_));
        EXPECT_FALSE(std::filesystem::exists(temporary_));
        return Get(file_);
    }
};

TEST_F(ConfigurationWriterTest, WritesSectionsInTheirOrder) {
    settings.storedPaths[0] = "/tmp";
    settings.storedPaths[7] = "/a b";
    const std::string text = Saved();
    EXPECT_THAT(host_.messages, IsEmpty());
    EXPECT_THAT(text, StartsWith("[Associations]\n\n[Viewer Associations]\n\n"
                                 "[Editor Associations]\n\n[Colours]\n\n[Directory Colours]\n\n"
                                 "[Environment]\n\n"
                                 "[Archiver:ZIP]\nCompress=zip -r\n"
                                 "CompressListfileSwitch=-@ <\x20\nExtract=unzip --z\n"
                                 "ExtractListfileSwitch=\nDelete=zip -d\nCompressDirSpec=!\n"
                                 "ExtractDirSpec=!/*\n\n[Archiver:RAR]\n"));
    EXPECT_THAT(text, HasSubstr("\n\n[Archiver:TAR/GZIP]\nCompress=tar -czf\n"
                                "CompressUpdate=zttar -u %a %f\n"));
    EXPECT_THAT(text, HasSubstr("\n\n[General Options]\nAutoIndent=off\nAutoSave=off\n"
                                "Background=gnome-terminal -x ! &\n"));
    EXPECT_THAT(text, HasSubstr("\nCmdChar=!\n"));
    EXPECT_THAT(text, HasSubstr("\nWaitDOS=off\nColours=27 48 30 62 26 32 7 112 79 48 3 63 48 15 "
                                "14 7 27 48 62 58 62 \n\nd0=/tmp\nd7=/a b\n"));
    EXPECT_TRUE(text.ends_with("\nd7=/a b\n"));
    EXPECT_THAT(text, Not(HasSubstr("Manual")));
    EXPECT_THAT(text, Not(HasSubstr("Use132")));
    EXPECT_THAT(text, Not(HasSubstr("\r")));
}

TEST_F(ConfigurationWriterTest, WritesRulesAndVariables) {
    Put(file_,
        "[Associations]\n*.c:cc !\n*.h   ::   hh !\n[Colours]\n*.d : red\n"
        "[Environment]\nB = 2\nA = $HERE\n");
    const std::string text = Saved();
    EXPECT_THAT(text, StartsWith("[Associations]\n*.c: cc !\n*.h:: hh !\n\n"));
    EXPECT_THAT(text, HasSubstr("\n[Colours]\n*.d: red\n\n"));
    EXPECT_THAT(text, HasSubstr("\n[Environment]\nA=/here\nB=2\n\n"));
}

// A value other than the default for a row.
std::string OtherValue(const SettingRow& row) {
    const std::string before = SettingText(row).c_str();
    switch (row.type) {
        case SettingType::kString:
            return std::string(row.key) + " \xC3\xA4 = : \xE9 text";
        case SettingType::kWideString:
            return std::string(row.key) + " \xE2\x82\xAC = : \xE9 text";
        case SettingType::kInteger:
            return "7";
        case SettingType::kOnOff:
            return before == "on" ? "off" : "on";
        case SettingType::kCharacter:
            return "R";
        case SettingType::kTimeMode:
            return "24";
        case SettingType::kSort:
            return "rextension";
        case SettingType::kStyle:
            return "briefwide";
        case SettingType::kPanelType:
            return "info";
        case SettingType::kPanelWidth:
            return "forcedhalf";
        case SettingType::kColours: {
            std::string numbers;
            for (int i = 0; i < kColourClassCount; i++)
                numbers += std::to_string(200 + i) + " ";
            return numbers;
        }
    }
    return "";
}

TEST_F(ConfigurationWriterTest, KeepsEveryKeyThroughARoundTrip) {
    std::vector<std::string> values;
    for (int i = 0; i < kSettingCount; i++) {
        const SettingRow& row = SettingsTable()[i];
        if (!row.variable) continue;
        const std::string before = SettingText(row).c_str();
        values.push_back(OtherValue(row));
        ASSERT_NE(values.back(), before) << row.key;
        StoreSetting(row, values.back().c_str());
        ASSERT_EQ(SettingText(row).c_str(), values.back()) << row.key;
    }
    for (int i = 0; i < 10; i++) {
        settings.storedPaths[i] = NameFromBytes(("/x\xE9/" + std::to_string(i)).c_str());
    }
    Saved();
    const std::string text = Saved();
    Forget();
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_THAT(host_.messages, IsEmpty());
    size_t next = 0;
    for (int i = 0; i < kSettingCount; i++) {
        const SettingRow& row = SettingsTable()[i];
        if (!row.variable) continue;
        EXPECT_EQ(SettingText(row).c_str(), values[next++]) << row.key;
    }
    for (int i = 0; i < 10; i++) {
        EXPECT_EQ(NameToBytes(settings.storedPaths[i]).c_str(), "/x\xE9/" + std::to_string(i));
    }
    EXPECT_EQ(Saved(), text);
}

TEST_F(ConfigurationWriterTest, KeepsListsThroughARoundTrip) {
    std::string file = "[Environment]\nX=1\n";
    for (int list = 0; list < kRuleListCount; list++) {
        file += std::string(SectionHeader(kFirstRuleSection + list).c_str()) + "\n";
        for (int i = 0; i < 50; i++) {
            file +=
                "*." + std::to_string(i) + (i % 2 ? ":: " : ": ") + "c " + std::to_string(i) + "\n";
        }
    }
    for (int i = 0; i < kArchiverCount; i++) {
        file += std::string(SectionHeader(i).c_str()) + "\nExtract=e" + std::to_string(i) +
                "\nDelete=\nCompress=c\n";
    }
    EXPECT_TRUE(Read(file));
    Saved();
    Saved();
    const Estring text = ConfigurationText();
    EXPECT_STREQ(Saved().c_str(), text.c_str());
    Forget();
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_STREQ(ConfigurationText().c_str(), text.c_str());
    EXPECT_EQ(configuration.rules[kEditorRules].Count(), 50);
    EXPECT_STREQ(configuration.archivers[4].extract.c_str(), "e4");
    EXPECT_STREQ(configuration.archivers[11].compressUpdate.c_str(), "zttar -u %a %f");
}

// Blanks at the end of a line are nothing to the reader, and an update command that is empty has
// no line: the first is dropped, the second comes back from the table, at the next reading.
TEST_F(ConfigurationWriterTest, CannotKeepWhatTheFormCannotSay) {
    EXPECT_STREQ(configuration.archivers[0].compressListSwitch.c_str(), "-@ < ");
    configuration.archivers[11].compressUpdate.Clear();
    const std::string text = Saved();
    EXPECT_THAT(text, HasSubstr("\nCompressListfileSwitch=-@ <\x20\n"));
    EXPECT_THAT(text, Not(HasSubstr("CompressUpdate=zttar -u %a")));
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_STREQ(configuration.archivers[0].compressListSwitch.c_str(), "-@ <");
    EXPECT_STREQ(configuration.archivers[11].compressUpdate.c_str(), "zttar -u %a %f");
}

TEST_F(ConfigurationWriterTest, KeepsRulesEditedByHandAndItsOwnOptions) {
    Put(file_, "Hidden=on\n[Associations]\n*.a: a\n[Archiver:ZIP]\nExtract=mine\n");
    EXPECT_TRUE(ReadConfiguration(false, host_));
    settings.tabWidth = 3;
    Put(file_,
        "Hidden=off\nTabWidth=5\n[Associations]\n*.a: a\n*.b: b\n[Environment]\nV=1\n"
        "[Archiver:ZIP]\nExtract=yours\n");
    const std::string text = Saved();
    EXPECT_THAT(text, StartsWith("[Associations]\n*.a: a\n*.b: b\n\n"));
    EXPECT_THAT(text, HasSubstr("\nV=1\n"));
    EXPECT_THAT(text, HasSubstr("\nExtract=yours\n"));
    EXPECT_THAT(text, HasSubstr("\nHidden=on\n"));
    EXPECT_THAT(text, HasSubstr("\nTabWidth=3\n"));
}

TEST_F(ConfigurationWriterTest, LosesABadRuleAfterReportingIt) {
    Put(file_, "[Associations]\n<: a\n*.b: b\n");
    EXPECT_THAT(Saved(), StartsWith("[Associations]\n*.b: b\n\n"));
    EXPECT_THAT(host_.messages, ElementsAre("Error in association|<: a:bad mask"));
}

TEST_F(ConfigurationWriterTest, TakesTheRowsOfTheScreenWhereLinesIsSet) {
    host_.rows = 50;
    EXPECT_THAT(Saved(), HasSubstr("\nLines=0\n"));
    settings.lines = 30;
    EXPECT_THAT(Saved(), HasSubstr("\nLines=50\n"));
    EXPECT_EQ(settings.lines, 50);
}

TEST_F(ConfigurationWriterTest, WritesWhatThePanelsShow) {
    host_.panelState = [] {
        settings.sides[0].style = 4;
        settings.sides[0].sort = 8;
        settings.sides[1].type = 1;
        settings.sides[1].width = 2;
        settings.sides[1].showing = false;
        settings.sides[1].filter = "*.c";
    };
    const std::string text = Saved();
    for (const char* line : {"LeftStyle=unix", "LeftSort=rsize", "RightType=info",
                             "RightWidth=full", "RightShowing=off", "RightFilter=*.c"}) {
        EXPECT_THAT(text, HasSubstr(std::string("\n") + line + "\n"));
    }
}

TEST_F(ConfigurationWriterTest, LeavesOutWhatALineCannotHold) {
    settings.storedPaths[1] = "/a\nHidden=on";
    settings.editor = "x\ny";
    settings.storedPaths[2] = Westring::Repeat('p', 4092);
    settings.storedPaths[3] = Westring::Repeat('q', 4093);
    const std::string text = Saved();
    EXPECT_THAT(text, Not(HasSubstr("d1=")));
    EXPECT_THAT(text, Not(HasSubstr("\nEditor=")));
    EXPECT_THAT(text, Not(HasSubstr("Hidden=on")));
    EXPECT_THAT(text, HasSubstr("\nd2=p"));
    EXPECT_THAT(text, Not(HasSubstr("d3=")));
    EXPECT_TRUE(ReadConfiguration(false, host_));
    EXPECT_EQ(settings.storedPaths[2].Length(), 4092);
}

TEST_F(ConfigurationWriterTest, MakesThePersonalDirectory) {
    std::filesystem::remove_all(directory_);
    EXPECT_THAT(Saved(), HasSubstr("[General Options]"));
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationWriterTest, WritesTheFileFromTheCommandLineAsItIsNamed) {
    const std::string other = home_ + "/my.conf";
    Put(other, "[Associations]\n*.a: a\n");
    SetConfigurationFile(other.c_str());
    EXPECT_TRUE(WriteConfiguration(host_));
    EXPECT_THAT(Get(other), StartsWith("[Associations]\n*.a: a\n\n"));
    EXPECT_FALSE(std::filesystem::exists(file_));
    EXPECT_FALSE(std::filesystem::exists(home_ + "/my.ini"));
    // Without its directory there is nowhere to write; that is silent, as for a missing file.
    SetConfigurationFile((home_ + "/gone/my.conf").c_str());
    EXPECT_FALSE(WriteConfiguration(host_));
    EXPECT_THAT(host_.messages, IsEmpty());
}

TEST_F(ConfigurationWriterTest, KeepsModeAndOwnerOfTheFile) {
    Put(file_, "");
    ASSERT_EQ(chmod(file_.c_str(), 0600), 0);
    Saved();
    struct stat now = {};
    ASSERT_EQ(stat(file_.c_str(), &now), 0);
    EXPECT_EQ(now.st_mode & 07777, 0600u);
    if (geteuid() == 0) {
        ASSERT_EQ(chown(file_.c_str(), kOrdinaryUser, kOrdinaryUser), 0);
        Saved();
        ASSERT_EQ(stat(file_.c_str(), &now), 0);
        EXPECT_EQ(now.st_uid, kOrdinaryUser);
        EXPECT_EQ(now.st_mode & 07777, 0600u);
    }
}

TEST_F(ConfigurationWriterTest, RefusesToReplaceWhatIsNoFile) {
    std::filesystem::create_directory(file_);
    EXPECT_FALSE(WriteConfiguration(host_));
    EXPECT_THAT(host_.messages, ElementsAre("Is a directory|" + file_));
    SetConfigurationFile("/dev/null");
    host_.messages.clear();
    EXPECT_FALSE(WriteConfiguration(host_));
    EXPECT_THAT(host_.messages, ElementsAre("Operation not supported|/dev/null"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_FALSE(std::filesystem::exists("/dev/n!!!"));
}

// What must hold after every failed attempt: the old file is whole, and nothing lies beside it.
class FailingWrite : public ConfigurationFixture {
protected:
    void SetUp() override {
        ConfigurationFixture::SetUp();
        Put(file_, kOld);
        EXPECT_TRUE(ReadConfiguration(false, host_));
        settings.tabWidth = 3;
    }
    static constexpr char kOld[] = "TabWidth=5\n[Associations]\n*.a: a\n";
};

TEST_F(FailingWrite, LeavesTheOldFileInAnUnwritableDirectory) {
    ASSERT_EQ(chmod(directory_.c_str(), 0555), 0);
    EXPECT_EQ(AsOrdinaryUser([&] {
                  if (WriteConfiguration(host_)) return 1;
                  const std::vector<std::string> expected = {"Permission denied|" + file_};
                  return host_.messages == expected ? 0 : 2;
              }),
              0);
    ASSERT_EQ(chmod(directory_.c_str(), 0755), 0);
    EXPECT_EQ(Get(file_), kOld);
    EXPECT_FALSE(std::filesystem::exists(temporary_));
}

TEST_F(FailingWrite, LeavesAFileThatCannotBeRead) {
    ASSERT_EQ(chmod(file_.c_str(), 0), 0);
    EXPECT_EQ(AsOrdinaryUser([&] {
                  if (WriteConfiguration(host_)) return 1;
                  const std::vector<std::string> expected = {"Permission denied|" + file_};
                  return host_.messages == expected && Rules(kRunRules) == "*.a:a\n" ? 0 : 2;
              }),
              0);
    ASSERT_EQ(chmod(file_.c_str(), 0644), 0);
    EXPECT_EQ(Get(file_), kOld);
}

TEST_F(FailingWrite, TellsThatThePersonalDirectoryCannotBeMade) {
    std::filesystem::remove_all(directory_);
    ASSERT_EQ(chmod(home_.c_str(), 0555), 0);
    EXPECT_EQ(AsOrdinaryUser([&] {
                  if (WriteConfiguration(host_)) return 1;
                  const std::vector<std::string> expected = {"Permission denied|" + file_};
                  return host_.messages == expected ? 0 : 2;
              }),
              0);
    ASSERT_EQ(chmod(home_.c_str(), 0755), 0);
}

// A limit on the size of files stops the writing at any byte, as a full disk would.
TEST_F(FailingWrite, LeavesTheOldFileWhereverTheWritingStops) {
    const auto whole = static_cast<rlim_t>(ConfigurationText().Length());
    for (rlim_t limit = 0; limit < whole; limit += limit < 10 ? 1 : whole / 7) {
        EXPECT_EQ(InChild([&] {
                      signal(SIGXFSZ, SIG_IGN);
                      const rlimit most = {limit, limit};
                      if (setrlimit(RLIMIT_FSIZE, &most) != 0) return 1;
                      if (WriteConfiguration(host_)) return 2;
                      const std::vector<std::string> expected = {"File too large|" + file_};
                      return host_.messages == expected ? 0 : 3;
                  }),
                  0)
            << limit;
        EXPECT_EQ(Get(file_), kOld);
        EXPECT_FALSE(std::filesystem::exists(temporary_));
    }
}

TEST_F(FailingWrite, LeavesTheOldFileOnAFullDisk) {
    constexpr int kNoMount = 77;
    const int result = InChild([&] {
        if (unshare(CLONE_NEWNS) != 0 || mount("", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) ||
            mount("tmpfs", directory_.c_str(), "tmpfs", 0, "size=8k")) {
            return kNoMount;
        }
        Put(file_, kOld);                                     // one page
        Put(directory_ + "/filler", std::string(4096, 'x'));  // the other
        if (WriteConfiguration(host_)) return 1;
        const std::vector<std::string> expected = {"No space left on device|" + file_};
        if (host_.messages != expected) return 2;
        return Get(file_) == kOld && !std::filesystem::exists(temporary_) ? 0 : 3;
    });
    if (result == kNoMount) GTEST_SKIP() << "no right to mount a small disk here";
    EXPECT_EQ(result, 0);
}

// Killed at any moment, the program leaves one of the two files that it was writing in turn.
TEST_F(FailingWrite, LeavesAWholeFileWhenKilled) {
    EXPECT_TRUE(WriteConfiguration(host_));
    EXPECT_TRUE(WriteConfiguration(host_));
    std::string texts[2];
    for (int i = 0; i < 2; i++) {
        settings.tabWidth = i + 1;
        settings.storedPaths[0] = Westring::Repeat('p', 2000 * i);
        texts[i] = ConfigurationText().c_str();
    }
    for (unsigned round = 0; round < 40; round++) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        const pid_t child = fork();
        if (child == 0) {
            for (int i = 0;; i = 1 - i) {
                settings.tabWidth = i + 1;
                settings.storedPaths[0] = Westring::Repeat('p', 2000 * i);
                WriteConfiguration(host_);
                if (write(ends[1], "x", 1) != 1) _exit(1);
            }
        }
        close(ends[1]);
        char byte = 0;
        ASSERT_EQ(read(ends[0], &byte, 1), 1);
        for (unsigned spin = 0; spin < round * 20000; spin++)
            asm volatile("");
        ASSERT_EQ(kill(child, SIGKILL), 0);
        ASSERT_EQ(waitpid(child, nullptr, 0), child);
        close(ends[0]);
        const std::string found = Get(file_);
        ASSERT_TRUE(found == texts[0] || found == texts[1]) << found.size() << " bytes";
    }
    // And what it left behind does not stop the next one.
    host_.messages.clear();
    EXPECT_TRUE(WriteConfiguration(host_));
    EXPECT_THAT(host_.messages, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(temporary_));
}

}  // namespace
}  // namespace zt
