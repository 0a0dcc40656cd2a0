// The commands on attributes, dates and letter case while the user interrupts them, with the keys
// waiting before they are asked for.
#include <gtest/gtest.h>

#include "fileops/change_case_command.h"
#include "fileops/change_case_entry.h"
#include "fileops/change_date_command.h"
#include "fileops/file_attributes_command.h"
#include "fileops/file_information.h"
#include "tests/panels/panel_fixture.h"

namespace zt {
namespace {

class InterruptedCommands : public PanelFixture {
protected:
    void Key(int code) { screen->PushKey(code); }
    void Quit() {
        screen->PushEvent(TEvent{static_cast<int32_t>(EventKind::kQuit), 0, 0, 0, 0, 0});
    }
    bool Exists(const std::string& name) {
        struct stat data;
        return lstat(tree.PathOf(name).c_str(), &data) == 0;
    }
    void TagFiles(std::initializer_list<const char*> names) {
        Start();
        for (const char* name : names)
            Tag(left, name);
    }
};

TEST_F(InterruptedCommands, EndAtTheQuitEvent) {
    tree.File("A");
    tree.Time("A", 1000);
    TagFiles({"A"});
    Quit();
    FileAttributesCommand(left);
    ChangeDateCommand(left);
    ChangeCaseCommand(left);
    FileInfoCommand(tree.Wide("A"));
    struct stat data;
    ASSERT_EQ(0, stat(tree.PathOf("A").c_str(), &data));
    EXPECT_EQ(1000, data.st_mtim.tv_sec);
    EXPECT_EQ(0644u, data.st_mode & 07777);
}

TEST_F(InterruptedCommands, OfLetterCaseStopAtEscBetweenEntries) {
    tree.File("A");
    tree.File("B");
    TagFiles({"A", "B"});
    Key(kKeyEnter);
    Key(kKeyEsc);
    ChangeCaseCommand(left);
    EXPECT_TRUE(Exists("a"));
    EXPECT_TRUE(Exists("B"));
}

TEST_F(InterruptedCommands, OfLetterCaseStopAtTheQuitEventBetweenEntries) {
    tree.File("A");
    tree.File("B");
    TagFiles({"A", "B"});
    Key(kKeyEnter);
    Quit();
    ChangeCaseCommand(left);
    EXPECT_TRUE(Exists("a"));
    EXPECT_TRUE(Exists("B"));
}

// Any other key is taken, and changes nothing.
TEST_F(InterruptedCommands, OfLetterCaseGoOnAtOtherKeys) {
    tree.File("A");
    tree.File("B");
    TagFiles({"A", "B"});
    Key(kKeyEnter);
    Key('x');
    ChangeCaseCommand(left);
    EXPECT_TRUE(Exists("a"));
    EXPECT_TRUE(Exists("b"));
}

TEST_F(InterruptedCommands, OfLetterCaseStopAtAnEscBehindOtherKeys) {
    tree.File("A");
    tree.File("B");
    TagFiles({"A", "B"});
    Key(kKeyEnter);
    Key('x');
    Key(kKeyEsc);
    ChangeCaseCommand(left);
    EXPECT_TRUE(Exists("a"));
    EXPECT_TRUE(Exists("B"));
}

TEST_F(InterruptedCommands, OfLetterCaseStopAtEscInsideADirectory) {
    tree.Folder("d");
    tree.File("d/A");
    tree.File("d/B");
    tree.File("E");
    settings.caseModRecurse = true;
    TagFiles({"d", "E"});
    Key(kKeyEnter);
    Key(kKeyEsc);
    ChangeCaseCommand(left);
    EXPECT_EQ(1, Exists("d/a") + Exists("d/b"));
    EXPECT_TRUE(Exists("E"));
}

TEST_F(InterruptedCommands, ChangeCaseGivesWhetherToGoOn) {
    tree.File("A");
    tree.File("a");
    Start();
    const entry& item = *Find(left, "A");
    Key('s');
    EXPECT_EQ(0, ChangeCaseEntry(left.path, item, 'l', 'l'));
    Key(kKeyEsc);
    EXPECT_GT(0, ChangeCaseEntry(left.path, item, 'l', 'l'));
    settings.caseModFiles = false;
    EXPECT_EQ(0, ChangeCaseEntry(left.path, item, 'l', 'l'));
}

TEST_F(InterruptedCommands, OfAnEmptyListEndAtOnce) {
    Start();
    left.entries.Clear();
    FileAttributesCommand(left);
    ChangeDateCommand(left);
    ChangeCaseCommand(left);
    FileInfoCommand(tree.Wide("none"));
    EXPECT_EQ(0, left.Count());
}

// Each level has a window of its own.
TEST_F(InterruptedCommands, OfLetterCaseReachAThousandDirectoriesDown) {
    std::string path = "d";
    tree.Folder(path);
    while (path.size() < 2000) {
        path += "/d";
        tree.Folder(path);
    }
    tree.File(path + "/X");
    settings.caseModRecurse = true;
    TagFiles({"d"});
    Key(kKeyEnter);
    ChangeCaseCommand(left);
    EXPECT_TRUE(Exists(path + "/x"));
}

}  // namespace
}  // namespace zt
