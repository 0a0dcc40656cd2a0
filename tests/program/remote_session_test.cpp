// The display of a remote session, with small scripts in the place of ssh. What the far end does
// with a session that stands is tested elsewhere; here it is a few bytes of a script.
#include "console/program/remote_session.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <sstream>

#include "console/program/connect_command.h"
#include "console/terminal/pseudo_terminal.h"
#include "foundation/colour_classes.h"
#include "tests/ui/ui_fixture.h"

namespace zt {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(ConnectCommand, PutsTheHostIn) {
    const struct {
        const char* setting;
        const char* host;
        const char* command;
    } rows[] = {
        {"ssh %h zt-remote", "castle", "ssh castle zt-remote"},
        {"%h%h %H %%h", "a", "aa %H %a"},
        {"ssh %h", "%h", "ssh %h"},
        {"ssh host", "other", "ssh host"},
        {"ssh %h", "\xC3\xA4", "ssh \xC3\x83\xC2\xA4"},  // a character a byte
        {"%", "a", "%"},
        {"", "a", ""},
    };
    const Westring before = settings.connectRemote;
    for (const auto& row : rows) {
        settings.connectRemote = row.setting;
        EXPECT_STREQ(row.command, BuildConnectCommand(row.host).ToUtf8().c_str()) << row.setting;
    }
    settings.connectRemote = before;
}

TEST(ConnectCommand, IsCutAtBlanksOutsideQuotes) {
    EXPECT_THAT(SplitConnectCommand("ssh castle zt-remote"),
                ElementsAre("ssh", "castle", "zt-remote"));
    EXPECT_THAT(SplitConnectCommand("  ssh   -o \"A b c\" x\"y z\"w "),
                ElementsAre("ssh", "-o", "A b c", "xy zw"));
    EXPECT_THAT(SplitConnectCommand("ssh \"\" x"), ElementsAre("ssh", "", "x"));
    EXPECT_THAT(SplitConnectCommand("one"), ElementsAre("one"));
    EXPECT_THAT(SplitConnectCommand("open \"to the end"), ElementsAre("open", "to the end"));
    EXPECT_TRUE(SplitConnectCommand("").empty());
    EXPECT_TRUE(SplitConnectCommand("   ").empty());
}

// The bytes of a handshake, for printf of the shell.
constexpr const char* kHandshake =
    R"(printf '\277\373\000\000\001\000\000\000\004\000\001\000\000\000')";
constexpr const char* kWrongHandshake =
    R"(printf '\277\373\000\000\001\000\000\000\004\000\002\000\000\000')";
// Draws "Far" at the top left, in attribute 7.
constexpr const char* kDrawFar =
    R"(printf '\277\373\017\000\004\000\000\000\004\000\000\000\000\000\000\000\004\000\000\000\000\000)"
    R"(\001\000\003\000Far\003\000\001\000\007')";

class RemoteSessionTest : public ::testing::Test {
protected:
    void SetUp() override {
        before = settings.connectRemote;
        char name[] = "/tmp/zt-session-XXXXXX";
        ASSERT_NE(mkdtemp(name), nullptr);
        folder = name;
        screen.WaitForEvents(true);
    }
    void TearDown() override {
        if (session.valid() && !HasEnded()) {
            ADD_FAILURE() << "the session goes on:\n" << Text();
            Close();
            Close();
            session.wait();
        }
        settings.connectRemote = before;
        std::filesystem::remove_all(folder);
    }

    // The session with a shell script as ssh; the host is its first argument.
    void Open(const std::string& script) {
        std::ofstream(folder + "/ssh") << "cd " << folder << "\n" << script << "\n";
        OpenCommand("sh " + folder + "/ssh %h");
    }
    void OpenCommand(const std::string& command) {
        settings.connectRemote = Westring(command.c_str());
        session = std::async(std::launch::async, [this] { OpenConnection(screen, "castle"); });
    }

    bool WaitFor(const std::function<bool()>& condition) {
        for (int i = 0; i < 4000; i++) {
            if (condition()) return true;
            usleep(5000);
        }
        return false;
    }
    std::string Text() {
        std::string text;
        for (int row = 0; row < 25; row++)
            text += screen.RowText(row) + "\n";
        return text;
    }
    ::testing::AssertionResult Shows(const std::string& text) {
        if (WaitFor([&] { return Text().find(text) != std::string::npos; }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "no \"" << text << "\" in\n" << Text();
    }
    bool HasEnded() {
        return session.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }
    bool Ends() {
        return WaitFor([this] { return HasEnded(); });
    }
    std::string Content(const char* name) {
        std::ostringstream text;
        text << std::ifstream(folder + "/" + name).rdbuf();
        return text.str();
    }
    bool Writes(const char* name, const std::string& content) {
        return WaitFor([&] { return Content(name) == content; });
    }
    // As the window does it: the terminal first, then the queue.
    void TypeKey(int32_t code) {
        if (!screen.GiveKeyToSink(code, 0, code)) screen.PushKey(code, 0, code);
    }
    void Type(const std::string& text) {
        for (const char ch : text)
            TypeKey(ch == '\n' ? kKeyEnter : ch);
    }
    void Close() { screen.PushEvent(TEvent{static_cast<int32_t>(EventKind::kQuit)}); }

    FakeConsole screen;
    std::string folder;
    Westring before;
    std::future<void> session;
};

TEST_F(RemoteSessionTest, ShowsWhatSshSaysAndTakesAPassword) {
    Open(std::string("echo Welcome to $1 >&2\nstty -echo </dev/tty\nprintf 'Password: ' >/dev/tty\n"
                     "read -r word </dev/tty\nprintf '%s' \"$word\" >word\necho $TERM >term\n") +
         kHandshake + "\n" + kDrawFar + "\ndd bs=14 count=1 2>/dev/null | od -An -tx1 >reply\n");
    ASSERT_TRUE(Shows("Welcome to castle"));
    ASSERT_TRUE(Shows("Password:"));
    Type("secret\n");
    ASSERT_TRUE(Shows("Far"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Content("word"), "secret");
    EXPECT_EQ(Content("term"), "xterm\n");
    EXPECT_THAT(Text(), ::testing::Not(HasSubstr("secret")));
    EXPECT_EQ(screen.GetFillAttribute(), 7);
    EXPECT_EQ(screen.GetCursorSize(), 15);
}

TEST_F(RemoteSessionTest, AnswersTheHandshakeAndThenSendsEvents) {
    Open(std::string(kHandshake) + "\nhead -c 12 | od -An -v -tx1 | tr -d ' \\n' >reply\n" +
         kDrawFar + "\nhead -c 52 | od -An -v -tx1 | tr -d ' \\n' >event\n");
    ASSERT_TRUE(Shows("Far"));
    EXPECT_TRUE(Writes("reply", "bffb01000000040001000000"));
    Type("x");
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Content("event"),
              "dffd06000000040000000000"
              "0000040078000000"
              "0000040000000000"
              "0000040000000000"
              "0000040000000000"
              "0000040078000000");
}

TEST_F(RemoteSessionTest, SendsTypingToTheInputOfASilentSsh) {
    Open(std::string("read -r line\nprintf '%s' \"$line\" >line\n") + kHandshake);
    ASSERT_TRUE(WaitFor([this] { return screen.HasTerminalSink(); }));
    // Enter is a carriage return there; the script wants a line feed.
    Type("typed");
    TypeKey(10);
    Type("\n");
    TypeKey(10);
    ASSERT_TRUE(WaitFor([this] { return !Content("line").empty(); }) || HasEnded()) << Text();
    EXPECT_THAT(Content("line"), HasSubstr("typed"));
    EXPECT_TRUE(Ends());
}

TEST_F(RemoteSessionTest, ShowsTextOfThePipeOnlyBeforeTheHandshake) {
    Open(std::string("echo before\nread -r key\n") + kHandshake + "\necho behind\n" + kDrawFar);
    ASSERT_TRUE(Shows("before"));
    TypeKey(10);
    ASSERT_TRUE(Ends());
    EXPECT_THAT(Text(), HasSubstr("Farore"));  // over the other
    EXPECT_THAT(Text(), ::testing::Not(HasSubstr("behind")));
}

TEST_F(RemoteSessionTest, TellsThatTheProgramCannotBeStarted) {
    OpenCommand("/nowhere/ssh %h");
    ASSERT_TRUE(Shows("Failed to start process in OpenConnection"));
    EXPECT_TRUE(Shows("No such file or directory"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
}

TEST_F(RemoteSessionTest, TellsThatAnEmptyCommandCannotBeStarted) {
    OpenCommand("");
    ASSERT_TRUE(Shows("Failed to start process in OpenConnection"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
}

TEST_F(RemoteSessionTest, TellsThatSshGaveUp) {
    Open("echo no route to $1 >&2\nexit 255");
    ASSERT_TRUE(Shows("No session could be opened on host castle"));
    EXPECT_TRUE(Shows("status 255"));
    EXPECT_TRUE(Shows("no route to castle"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
}

TEST_F(RemoteSessionTest, TellsWhatEndedASessionThatStood) {
    Open(std::string(kHandshake) + "\n" + kDrawFar +
         "\nread -r never\necho 'Connection to castle lost' >&2\nkill -9 $$");
    ASSERT_TRUE(Shows("Far"));
    TypeKey(10);  // a byte 0A in the event ends the script's read
    ASSERT_TRUE(Shows("The session has ended on host castle"));
    EXPECT_TRUE(Shows("Connection to castle lost"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
}

TEST_F(RemoteSessionTest, TellsTheSignalThatKilledSsh) {
    Open(std::string(kHandshake) + "\n" + kDrawFar + "\necho $$ >pid\nexec cat >/dev/null");
    ASSERT_TRUE(Shows("Far"));
    ASSERT_TRUE(WaitFor([this] { return !Content("pid").empty(); }));
    kill(std::stoi(Content("pid")), SIGKILL);
    ASSERT_TRUE(Shows("was ended by signal 9"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
}

TEST_F(RemoteSessionTest, EndsWithoutAWordWhenTheFarEndHasLeft) {
    Open(std::string(kHandshake) + "\n" + kDrawFar);
    EXPECT_TRUE(Ends());
    EXPECT_THAT(Text(), ::testing::Not(HasSubstr("castle")));
}

TEST_F(RemoteSessionTest, TellsAWrongVersionAndSendsTheQuitEvents) {
    Open(std::string(kWrongHandshake) + "\nhead -c 108 | od -An -v -tx1 | tr -d ' \\n' >reply\n");
    ASSERT_TRUE(Shows("Incorrect protocol version"));
    ASSERT_TRUE(Shows("Error"));
    const std::string six = "0000040006000000";
    const std::string zero = "0000040000000000";
    EXPECT_TRUE(Writes("reply", "bffb0100" + zero + "dffd0500" + six + zero + zero + zero + zero +
                                    "dffd0600" + six + zero + zero + zero + zero + zero));
    EXPECT_FALSE(HasEnded());
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
}

TEST_F(RemoteSessionTest, EndsAtOnceWhenTheWindowIsClosedBeforeTheHandshake) {
    Open("echo $$ >pid\ntrap '' HUP\necho waiting >&2\nwhile :; do sleep 1; done");
    ASSERT_TRUE(Shows("waiting"));
    Close();
    ASSERT_TRUE(Ends());
    EXPECT_NE(kill(std::stoi(Content("pid")), 0), 0) << "it lives on";
}

TEST_F(RemoteSessionTest, LetsTheFarEndCloseTheWindow) {
    Open(std::string(kHandshake) + "\n" + kDrawFar + "\nhead -c 64 >events\necho closed >end\n");
    ASSERT_TRUE(Shows("Far"));
    Close();
    EXPECT_TRUE(Ends());
    EXPECT_EQ(Content("end"), "closed\n");
}

TEST_F(RemoteSessionTest, EndsAtTheSecondCloseWhenNobodyAnswers) {
    Open(std::string(kHandshake) + "\n" + kDrawFar + "\nwhile :; do sleep 1; done");
    ASSERT_TRUE(Shows("Far"));
    Close();
    Close();
    EXPECT_TRUE(Ends());
}

// More than the pipe takes: the thread that sends waits, nobody else does.
TEST_F(RemoteSessionTest, EndsWhileEventsWaitForRoom) {
    Open(std::string(kHandshake) + "\n" + kDrawFar + "\necho $$ >pid\nwhile :; do sleep 1; done");
    ASSERT_TRUE(Shows("Far"));
    for (int i = 0; i < 30000; i++)
        screen.PushKey('x');
    ASSERT_TRUE(WaitFor([this] { return screen.PendingEvents() < 12000; }));
    ASSERT_TRUE(WaitFor([this] { return !Content("pid").empty(); }));
    kill(-std::stoi(Content("pid")), SIGKILL);
    ASSERT_TRUE(Shows("The session has ended on host castle"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
}

// A far end of another version may stay for ever.
TEST_F(RemoteSessionTest, EndsWhenTheWindowIsClosedOnABox) {
    Open(std::string(kWrongHandshake) + "\nwhile :; do sleep 1; done");
    ASSERT_TRUE(Shows("Incorrect protocol version"));
    Close();
    EXPECT_TRUE(Ends());
}

// The window may have been opened from a terminal.
TEST_F(RemoteSessionTest, MakesItsOwnTerminalRawWhileTheSessionStands) {
    PseudoTerminal own;
    ASSERT_EQ(0, own.Open(80, 25));
    const auto isRaw = [&own] {
        termios line{};
        EXPECT_EQ(0, tcgetattr(own.Slave(), &line));
        return (line.c_lflag & (ICANON | ECHO | ISIG)) == 0 && (line.c_oflag & OPOST) == 0;
    };
    fflush(stdout);
    const int usual = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    ASSERT_GE(dup2(own.Slave(), STDOUT_FILENO), 0);
    Open("echo asks >&2\nread -r key </dev/tty\n" + std::string(kHandshake) + "\n" + kDrawFar +
         "\nread -r key");
    EXPECT_TRUE(Shows("asks"));
    EXPECT_FALSE(isRaw());
    Type("\n");
    EXPECT_TRUE(Shows("Far"));
    EXPECT_TRUE(isRaw());
    TypeKey(10);  // a byte 0A in the event ends the script's read
    EXPECT_TRUE(Ends());
    EXPECT_FALSE(isRaw());
    dup2(usual, STDOUT_FILENO);
    close(usual);
}

// Nobody reads, and still the window closes: the pipe is full of events before it is closed.
TEST_F(RemoteSessionTest, EndsAtTheSecondCloseWhileEventsWaitForRoom) {
    Open(std::string(kHandshake) + "\n" + kDrawFar + "\nwhile :; do sleep 1; done");
    ASSERT_TRUE(Shows("Far"));
    for (int i = 0; i < 30000; i++)
        screen.PushKey('x');
    ASSERT_TRUE(WaitFor([this] { return screen.PendingEvents() == 0; }));
    Close();
    Close();
    EXPECT_TRUE(Ends());
}

// A system that forgets ended processes, as some that start the program ask for it.
TEST_F(RemoteSessionTest, TellsAWaitThatFails) {
    const auto childEnds = signal(SIGCHLD, SIG_IGN);
    Open("true");
    EXPECT_TRUE(Shows("Error " + std::to_string(ECHILD) + " waiting for child"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Shows("No session could be opened on host castle"));
    screen.PushKey(kKeyEsc);
    EXPECT_TRUE(Ends());
    signal(SIGCHLD, childEnds);
}

// The setting as it is without a configuration file, with other programs of the names on the path.
TEST_F(RemoteSessionTest, RunsTheFarEndBySshUnlessTheSettingsSayOtherwise) {
    const auto makeProgram = [this](const char* name, const std::string& script) {
        const std::string path = folder + "/" + name;
        std::ofstream(path) << "#!/bin/sh\n" << script << "\n";
        ASSERT_EQ(0, chmod(path.c_str(), 0755));
    };
    makeProgram("ssh", "echo \"$@\" >" + folder + "/words\nshift $(($# - 1))\nexec \"$1\"");
    makeProgram("zt-remote", std::string(kHandshake) + "\n" + kDrawFar);
    const std::string path = getenv("PATH");
    setenv("PATH", (folder + ":" + path).c_str(), 1);
    OpenCommand(Settings().connectRemote.ToUtf8().c_str());
    EXPECT_TRUE(Shows("Far"));
    EXPECT_TRUE(Ends());
    setenv("PATH", path.c_str(), 1);
    EXPECT_EQ(Content("words"), "castle zt-remote\n");
}

}  // namespace
}  // namespace zt
