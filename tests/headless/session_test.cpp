// The session library against programs that are a few lines of shell: what it waits for, what it
// notices, what it cleans up.
#include "tests/support/session.h"

#include <gtest/gtest-spi.h>

#include <sys/stat.h>
#include <filesystem>
#include <fstream>

namespace zt::headless {
namespace {

// Shell words that send frames. The reply to the handshake has 12 bytes, an event 52.
constexpr const char* kShellWords = R"sh(
greet() { printf '\277\373\0\0\1\0\0\0\4\0\1\0\0\0'; head -c 12 >/dev/null; }
title() { printf '\277\373\13\0\1\0\1\0\1\0%s' "$1"; }
event() { head -c 52 | od -An -v -tx1 -w52 | tr -d ' \n'; }
)sh";

SessionOptions Shell(const std::string& script) {
    SessionOptions options;
    options.program = "/bin/sh";
    options.arguments = {"-c", kShellWords + script};
    return options;
}

TEST(SessionLibrary, AnswersTheHandshakeAndComesBackWhenTheProgramWaits) {
    Session session(Shell("greet; title a; title b; cat >/dev/null"));
    EXPECT_EQ("b", session.Title());
    EXPECT_FALSE(session.HasEnded());
    session.CloseInput();
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_EQ(0, session.ExitStatus());
}

TEST(SessionLibrary, PressesAKeyAndWaitsForAllThatItBrings) {
    Session session(Shell("greet; event >$HOME/1; title x; event >$HOME/2; title y; cat >$HOME/3"));
    session.Press("F10");
    EXPECT_EQ("x", session.Title());
    session.Type("q");
    EXPECT_EQ("y", session.Title());
    EXPECT_EQ(1, session.LastTraffic().requests);
    EXPECT_EQ(11u, session.LastTraffic().bytes);
    std::ostringstream seen;
    seen << std::ifstream(session.Home() + "/1").rdbuf();
    EXPECT_EQ(
        "dffd0600"
        "0000040000000000"
        "0000040044000100"
        "0000040000000000"
        "0000040000000000"
        "0000040000000000"
        "0000040000000000",
        seen.str());
}

TEST(SessionLibrary, WaitsForAProgramThatWorksBetweenRequests) {
    // The loop uses the processor only: neither pipe moves meanwhile.
    Session session(
        Shell("greet; i=0; while [ $i -lt 100000 ]; do i=$((i+1)); done; title z;"
              "cat >/dev/null"));
    EXPECT_EQ("z", session.Title());
}

TEST(SessionLibrary, ReportsStatusAndStandardError) {
    SessionOptions options = Shell("echo wrong >&2; exit 3");
    options.waitForPanels = false;
    Session session(options);
    EXPECT_TRUE(session.WaitForEnd());
    EXPECT_EQ(3, session.ExitStatus());
    EXPECT_EQ("wrong\n", session.StandardError());
}

TEST(SessionLibrary, GivesAFreshHomeAPlainEnvironmentAndItsOwnFolder) {
    SessionOptions options = Shell(
        R"(greet; { echo "$HOME"; pwd; echo "$LANG $TZ $EXTRA"; ls -A; } >$HOME/out; cat >/dev/null)");
    options.environment = {{"EXTRA", "given"}};
    Session session(options);
    std::ostringstream seen;
    seen << std::ifstream(session.Home() + "/out").rdbuf();
    EXPECT_EQ(session.Home() + "\n" + session.Home() + "\nC.UTF-8 UTC given\nout\n", seen.str());
}

TEST(SessionLibrary, RunsAsAnOrdinaryUser) {
    SessionOptions options = Shell("greet; id -u >$HOME/user; cat >/dev/null");
    options.user = OrdinaryUser();
    Session session(options);
    std::ifstream file(session.Home() + "/user");
    uid_t user = 0;
    file >> user;
    EXPECT_NE(0u, user);
    EXPECT_EQ(OrdinaryUser(), user);
}

TEST(SessionLibrary, StartsInAFolderThatIsGone) {
    FileTree tree;
    tree.Folder("gone");
    SessionOptions options = Shell("greet; title \"$(ls -A | wc -l)\"; cat >/dev/null");
    options.directory = tree.PathOf("gone");
    options.removeDirectory = true;
    Session session(options);
    EXPECT_EQ("0", session.Title());
    EXPECT_FALSE(tree.Exists("gone"));
}

// Each of these fails its test, in the words given.
void CrashInSession() {
    SessionOptions options = Shell("greet; kill -SEGV $$");
    Session session(options);
}
void RubbishInSession() {
    Session session(Shell("greet; echo rubbish; cat >/dev/null"));
}
void SanitizerInSession() {
    Session session(Shell("greet; echo AddressSanitizer >&2; cat >/dev/null"));
}
void UnknownKeyInSession() {
    Session session(Shell("greet; cat >/dev/null"));
    session.Press("F99");
}

TEST(SessionLibrary, FailsATestWhoseProgramMisbehaves) {
    EXPECT_NONFATAL_FAILURE(CrashInSession(), "ended by a signal");
    EXPECT_NONFATAL_FAILURE(RubbishInSession(), "on the wire");
    EXPECT_NONFATAL_FAILURE(SanitizerInSession(), "AddressSanitizer");
    EXPECT_FATAL_FAILURE(UnknownKeyInSession(), "no such key");
}

TEST(SessionLibrary, SaysWhatItWaitedForInVain) {
    Session session(Shell("greet; exec cat >/dev/null"));
    session.CloseInput();
    const testing::AssertionResult result = session.WaitForText("never shown");
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), testing::HasSubstr("never shown"));
}

TEST(FileTreeLibrary, MakesWhatItIsAskedFor) {
    FileTree tree;
    tree.File("a/b/c.txt", "text").FileOfSize("big", 5'000'000'000).Link("l", "nowhere");
    tree.Mode("big", 0640).Time("big", UtcTime(1999, 12, 31, 23, 59, 58)).Time("l", 5);
    EXPECT_EQ("text", tree.Content("a/b/c.txt"));
    EXPECT_EQ(5'000'000'000u, std::filesystem::file_size(tree.PathOf("big")));
    EXPECT_TRUE(tree.Exists("l"));
    EXPECT_FALSE(tree.Exists("nowhere"));
    EXPECT_THAT(tree.Names(), testing::ElementsAre("a", "big", "l"));
    struct stat info;
    ASSERT_EQ(0, stat(tree.PathOf("big").c_str(), &info));
    EXPECT_EQ(0640u, info.st_mode & 07777u);
    EXPECT_EQ(946684798, info.st_mtime);
}

TEST(FileTreeLibrary, KeepsOddNamesByteForByte) {
    FileTree tree;
    std::vector<std::string> names = OddNames();
    for (const std::string& name : names)
        tree.File(name, name);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, tree.Names());
}

TEST(FileTreeLibrary, RemovesTheTreeWhateverItsRights) {
    std::string path;
    {
        FileTree tree;
        path = tree.Path();
        tree.File("shut/inner/file").Folder("shut/empty").Mode("shut/inner", 0).Mode("shut", 0);
        EXPECT_TRUE(std::filesystem::exists(path));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(FileTreeLibrary, FailsATestThatAsksForTheImpossible) {
    EXPECT_NONFATAL_FAILURE(FileTree().Mode("missing", 0), "missing");
    EXPECT_NONFATAL_FAILURE(FileTree().Content("missing"), "missing");
}

}  // namespace
}  // namespace zt::headless
