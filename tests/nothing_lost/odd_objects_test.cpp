// What is no plain file, and what is reached by more than one name: FIFOs, sockets, devices, hard
// links, links to folders; and paths that are too long.
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>
#include <cstring>

#include "tests/nothing_lost/two_folders.h"

namespace zt::headless {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

mode_t TypeOf(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0 ? info.st_mode & S_IFMT : 0;
}

class OddObjects : public TwoFolders {
protected:
    void MakeFifo(const std::string& name) {
        ASSERT_EQ(0, mkfifo(tree.PathOf(name).c_str(), 0644)) << strerror(errno);
    }

    void MakeSocket(const std::string& name) {
        const int fd = socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        ASSERT_LT(tree.PathOf(name).size(), sizeof address.sun_path);
        strcpy(address.sun_path, tree.PathOf(name).c_str());
        EXPECT_EQ(0, bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address));
        close(fd);
    }

    // A device that is always at its end.
    void MakeDevice(const std::string& name) {
        if (mknod(tree.PathOf(name).c_str(), S_IFCHR | 0666, makedev(1, 3)) != 0) {
            GTEST_SKIP() << "no device can be made: " << strerror(errno);
        }
    }

    // Answers what comes up; Esc gets out of a wait for the other end of a FIFO, which the program
    // notices a little later.
    void Finish() {
        for (int i = 0; i < 30 && !Screen().AtPrompt(); i++) {
            if (ScreenHas("Skip") || ScreenHas("[ ")) {
                Screen().Press(ScreenHas("Skip") ? "Alt-s" : "Enter");
                continue;
            }
            Screen().Press("Esc");
            ASSERT_TRUE(Screen().WaitFor([&] { return Screen().AtPrompt() || ScreenHas("[ "); },
                                         "the end of the wait for a FIFO"));
        }
        ExpectTidyEnd();
    }
};

TEST_F(OddObjects, FifosAsSourceCanBeLeft) {
    for (const char* key : {"F5", "F6"}) {
        place.Clear();
        MakeFifo("from/fifo");
        tree.File("from/plain", "plain");
        Open();
        work->GoTo(1);
        Screen().Press({key, "Enter"});
        Finish();
        // A move on one file system is a new name.
        EXPECT_TRUE(TypeOf(tree.PathOf("from/fifo")) == S_IFIFO ||
                    TypeOf(tree.PathOf("to/fifo")) == S_IFIFO);
        EXPECT_EQ("plain", tree.Content("from/plain"));
    }
}

class OddObjectsAcross : public OddObjects {
protected:
    OddObjectsAcross() : one(place.From(), 1 << 20), other(place.To(), 1 << 20) {}

    void SetUp() override {
        if (!other.IsMounted()) GTEST_SKIP() << other.Reason();
    }

    SmallFileSystem one, other;
};

TEST_F(OddObjectsAcross, FifosAndSocketsAreNotLost) {
    MakeFifo("from/fifo");
    MakeSocket("from/socket");
    tree.File("from/plain", "plain");
    Open();
    Begin("F6", 3);
    Screen().Press("Enter");
    Finish();
    EXPECT_EQ(S_IFIFO, TypeOf(tree.PathOf("from/fifo")));
    EXPECT_EQ(S_IFSOCK, TypeOf(tree.PathOf("from/socket")));
    const bool there = tree.Exists("to/plain");
    EXPECT_EQ("plain", tree.Content(there ? "to/plain" : "from/plain"));
}

TEST_F(OddObjectsAcross, FifoGivesItsBytes) {
    MakeFifo("from/fifo");
    Open();
    work->GoTo(1);
    const int writer = open(tree.PathOf("from/fifo").c_str(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(writer, 0);
    ASSERT_EQ(5, write(writer, "bytes", 5));
    Screen().Press("F5");
    Screen().Send(KeyPress("Enter"));
    // The end of the writer is the end of the file.
    ASSERT_TRUE(Screen().WaitFor(
        [&] {
            int unread = 1;
            return ioctl(writer, FIONREAD, &unread) == 0 && unread == 0;
        },
        "the bytes to be read"));
    close(writer);
    ASSERT_TRUE(Screen().WaitForQuiet());
    ASSERT_TRUE(Screen().WaitFor([&] { return Screen().AtPrompt(); }, "the end"));
    EXPECT_EQ("bytes", tree.Content("to/fifo"));
    EXPECT_EQ(S_IFREG, TypeOf(tree.PathOf("to/fifo")));
    ExpectTidyEnd();
}

TEST_F(OddObjects, WhatStandsAtTheTargetIsNoFileAndStays) {
    for (const char* key : {"F5", "F6"}) {
        place.Clear();
        tree.File("from/fifo", "x").File("from/socket", "y").File("from/folder", "z");
        MakeFifo("to/fifo");
        MakeSocket("to/socket");
        tree.File("to/folder/inner", "inner");
        Open();
        Begin(key, 3);
        Screen().Press({"Alt-a", "Enter"});
        Finish();
        EXPECT_EQ("inner", tree.Content("to/folder/inner"));
        EXPECT_EQ("z", tree.Content("from/folder"));
        // No copy goes into a socket; by a new name the file may take its place.
        const bool stays = TypeOf(tree.PathOf("from/socket")) == S_IFREG;
        EXPECT_EQ("y", tree.Content(stays ? "from/socket" : "to/socket"));
    }
}

TEST_F(OddObjects, DeviceTakesTheBytesAndStays) {
    tree.File("from/null", std::string(70000, 'n'));
    MakeDevice("to/null");
    if (IsSkipped()) return;
    Open();
    Begin("F5", 1);
    Screen().Press({"Alt-a", "Enter"});
    Finish();
    EXPECT_EQ(S_IFCHR, TypeOf(tree.PathOf("to/null")));
    EXPECT_EQ(70000u, tree.Content("from/null").size());
    EXPECT_THAT(tree.Names("to"), ElementsAre("null"));
}

TEST_F(OddObjects, DeletingTakesTheNameOnly) {
    MakeFifo("from/fifo");
    MakeSocket("from/socket");
    tree.Link("from/link", place.To()).File("to/precious", "stays");
    Open("Confirmations=7\n");
    Begin("F8", 3);
    Finish();
    EXPECT_THAT(tree.Names("from"), ElementsAre());
    EXPECT_EQ("stays", tree.Content("to/precious"));
}

class HardLinks : public TwoFolders {
protected:
    void LinkTo(const std::string& name, const std::string& other) {
        ASSERT_EQ(0, link(tree.PathOf(name).c_str(), tree.PathOf(other).c_str()));
    }
};

TEST_F(HardLinks, OfOneFileDoNotEatEachOther) {
    for (const char* key : {"F5", "F6"}) {
        for (const char* choice : {"Alt-a", "Alt-k"}) {
            SCOPED_TRACE(std::string(key) + choice);
            place.Clear();
            tree.File("from/name", "content");
            LinkTo("from/name", "to/name");
            Open();
            Begin(key, 1);
            Screen().Press({choice, "Enter"});
            for (int i = 0; i < 5 && !Screen().AtPrompt(); i++)
                Screen().Press("Enter");  // yes, overwrite
            for (int i = 0; i < 5 && !Screen().AtPrompt(); i++)
                Screen().Press("Esc");
            ExpectTidyEnd();
            EXPECT_EQ("content", tree.Content("to/name"));
            if (std::string_view(key) == "F5") {
                EXPECT_EQ("content", tree.Content("from/name"));
            }
        }
    }
}

TEST_F(HardLinks, ArriveAsFilesOfTheirOwn) {
    tree.File("from/a", "content");
    LinkTo("from/a", "from/b");
    Open();
    Begin("F5", 2);
    Screen().Press("Enter");
    ExpectTidyEnd();
    EXPECT_EQ("content", tree.Content("to/a"));
    EXPECT_EQ("content", tree.Content("to/b"));
}

TEST_F(HardLinks, OverwritingOneLeavesTheOther) {
    tree.File("from/a", "new").File("to/a", "old");
    LinkTo("to/a", "to/b");
    Open();
    Begin("F5", 1);
    Screen().Press({"Alt-a", "Enter"});
    ExpectTidyEnd();
    EXPECT_EQ("new", tree.Content("to/a"));
    EXPECT_EQ("old", tree.Content("to/b"));
}

class IntoItself : public TwoFolders {};

TEST_F(IntoItself, ThroughALinkEndsAndLosesNothing) {
    for (const char* key : {"F5", "F6"}) {
        SCOPED_TRACE(key);
        place.Clear();
        tree.File("from/dir/one", "1").File("from/dir/sub/two", "2");
        tree.Link("to/into", tree.PathOf("from/dir/sub"));
        const TreeSnapshot before = TakeSnapshot(place.From());
        SessionOptions options;
        options.directory = place.From();
        options.arguments = {"-r", tree.PathOf("to/into")};
        Session session(options);
        session.Press({"Home", "Ins", "Ins", key, "Enter"});
        bool told = false;
        for (int i = 0; i < 20 && !session.AtPrompt(); i++) {
            told = true;
            session.Press("Esc");
        }
        EXPECT_TRUE(session.AtPrompt()) << session.Text();
        EXPECT_TRUE(told);
        TreeSnapshot after = TakeSnapshot(place.From());
        for (const auto& [path, state] : before) {
            EXPECT_TRUE(after.contains(path) && after[path].HoldsSameAs(state)) << path;
        }
        EXPECT_LE(after.size(), before.size() + 1) << Differences(before, after);
    }
}

TEST_F(IntoItself, OneFileOverItselfThroughALink) {
    for (const char* key : {"F5", "F6"}) {
        SCOPED_TRACE(key);
        place.Clear();
        tree.File("from/file", "content").Link("to/same", place.From());
        SessionOptions options;
        options.directory = place.From();
        options.arguments = {"-r", tree.PathOf("to/same")};
        Session session(options);
        session.Press({"Home", "Ins", "Ins", key, "Alt-a", "Enter"});
        for (int i = 0; i < 20 && !session.AtPrompt(); i++)
            session.Press("Enter");
        for (int i = 0; i < 20 && !session.AtPrompt(); i++)
            session.Press("Esc");
        EXPECT_TRUE(session.AtPrompt()) << session.Text();
        EXPECT_THAT(tree.Names("from"), ElementsAre("file"));
        EXPECT_EQ("content", tree.Content("from/file"));
    }
}

class LongPaths : public TwoFolders {
protected:
    static constexpr size_t kDepth = 40;  // times 120 bytes: beyond what the system takes

    // The folders and the file at their end, made step by step.
    void MakeDeep() {
        const std::string name(120, 'd');
        int folder = open(tree.PathOf("from").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (size_t i = 0; i < kDepth; i++) {
            ASSERT_EQ(0, mkdirat(folder, name.c_str(), 0755));
            const int next = openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            close(folder);
            folder = next;
            const int file = openat(folder, "file", O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
            EXPECT_EQ(1, write(file, "f", 1));
            close(file);
        }
        close(folder);
    }
};

TEST_F(LongPaths, AreRefusedWithABoxAndNeverCut) {
    for (const char* key : {"F5", "F6"}) {
        SCOPED_TRACE(key);
        place.Clear();
        MakeDeep();
        const TreeSnapshot before = TakeSnapshot(place.From());
        ASSERT_EQ(2 * kDepth, before.size());
        Open();
        // The way of a move across file systems is that of a copy.
        Begin(key, 1);
        Screen().Press("Enter");
        const bool told = !Screen().AtPrompt();
        EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
        ExpectTidyEnd();
        const TreeSnapshot from = TakeSnapshot(place.From());
        const TreeSnapshot to = TakeSnapshot(place.To());
        for (const auto& [path, state] : to)
            EXPECT_TRUE(before.contains(path)) << "another name: " << Shown(path).substr(0, 300);
        size_t whole = 0;
        for (const auto& [path, state] : before) {
            const bool stays = from.contains(path) && from.at(path).HoldsSameAs(state);
            const bool arrived = to.contains(path) && to.at(path).HoldsSameAs(state);
            EXPECT_TRUE(stays || arrived) << "lost: " << path.size();
            whole += arrived;
        }
        // By rename all of it may go; otherwise the user is told.
        EXPECT_TRUE(told || whole == before.size());
        if (std::string_view(key) == "F5") {
            EXPECT_TRUE(told);
            EXPECT_EQ("", Differences(before, from));
        }
    }
}

TEST_F(LongPaths, AreDeletedOrRefused) {
    MakeDeep();
    tree.File("from/z", "stays");
    Open("Confirmations=7\n");
    work->GoTo(1);
    Screen().Press("F8");
    EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kSkip));
    ExpectTidyEnd();
    EXPECT_EQ("stays", tree.Content("from/z"));
}

TEST_F(LongPaths, NameThatGrowsTooLongIsRefused) {
    const std::string name(255, 'n');
    tree.File("from/" + name, "content").File("from/" + name.substr(1), "other");
    Open();
    work->GoTo(2);
    Screen().Press({"Shift-F6", "End"});
    Screen().Type("x");
    Screen().Press("Enter");
    EXPECT_THAT(Screen().Text(), HasSubstr("Name too long"));
    EXPECT_TRUE(work->AnswerBoxes(BoxPolicy::kCancel));
    ExpectTidyEnd();
    EXPECT_EQ("content", tree.Content("from/" + name));
    EXPECT_EQ("other", tree.Content("from/" + name.substr(1)));
    EXPECT_EQ(2u, tree.Names("from").size());
}

}  // namespace
}  // namespace zt::headless
