// Programs that run in the console on a real pseudo-terminal: what they show, what they get, how
// they end. The user types from another thread, by what stands on the screen.
#include <dirent.h>
#include <sys/wait.h>

#include <chrono>
#include <functional>
#include <thread>

#include "console/scroll_back.h"
#include "console/terminal/program_run.h"
#include "console/terminal/pseudo_terminal.h"
#include "tests/console/terminal_fixture.h"

namespace zt {
namespace {

using Strings = std::vector<std::string>;

constexpr int32_t kUpKey = 0x10048;

// Limits only reached by a failure.
constexpr std::chrono::seconds kLimit{20};

class RunConsole : public FakeConsole {
public:
    using FakeConsole::FakeConsole;
    bool HasEnded() override { return hasEnded; }
    bool IsClosing() override { return hasEnded || isClosing; }
    std::atomic<bool> hasEnded{false};
    std::atomic<bool> isClosing{false};
};

class ProgramRun : public testing::Test {
protected:
    ProgramRun() : console(60, 12) {
        settings = Settings();
        ResetColours();
        console.SetScrollBackSink(&scrollBack);
    }

    ProgramEnd Run(std::vector<const char*> arguments, const char* directory = nullptr) {
        arguments.push_back(nullptr);
        const char* environment[] = {"TERM=xterm",        "LANG=C.UTF-8", "PATH=/usr/bin:/bin",
                                     "HOME=/nonexistent", "PS1=$ ",       nullptr};
        ProgramStart start;
        start.path = arguments[0];
        start.arguments = arguments.data();
        start.environment = environment;
        start.directory = directory;
        return RunProgram(console, start);
    }
    ProgramEnd Shell(const char* script) { return Run({"/bin/sh", "-c", script}); }

    // For the one who types.
    bool WaitFor(const std::function<bool()>& condition) {
        const auto limit = std::chrono::steady_clock::now() + kLimit;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > limit) return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return true;
    }
    bool Shows(const std::string& text) {
        for (int row = 0; row < 12; row++)
            if (console.RowText(row).find(text) != std::string::npos) return true;
        return false;
    }
    bool WaitForText(const std::string& text) {
        return WaitFor([&] { return Shows(text); });
    }
    void Type(const std::string& text) {
        for (const char ch : text)
            console.GiveKeyToSink(static_cast<unsigned char>(ch), 0, 0);
    }
    Strings Rows() {
        Strings rows;
        for (int row = 0; row < 12; row++)
            rows.push_back(WithoutBlanks(console.RowText(row)));
        while (!rows.empty() && rows.back().empty())
            rows.pop_back();
        return rows;
    }

    CScrollBackBuffer scrollBack;
    RunConsole console;
};

TEST_F(ProgramRun, ShowsOutputAndGivesTheExitCode) {
    const ProgramEnd end = Shell("echo one; echo two; exit 7");
    EXPECT_EQ(end.kind, ProgramEndKind::kExited);
    EXPECT_EQ(end.value, 7);
    EXPECT_EQ(end.Status(), 7);
    EXPECT_EQ(Rows(), (Strings{"one", "two"}));
    EXPECT_EQ(console.Terminal(), nullptr);
}

TEST_F(ProgramRun, ASignalIsNoStatus) {
    const ProgramEnd end = Shell("kill -TERM $$");
    EXPECT_EQ(end.kind, ProgramEndKind::kSignalled);
    EXPECT_EQ(end.value, SIGTERM);
    EXPECT_EQ(end.Status(), -1);
}

TEST_F(ProgramRun, AProgramThatCannotBeStarted) {
    EXPECT_EQ(Run({"/no/such/program"}).Status(), kExitNotStarted);
    EXPECT_EQ(Run({"/bin/sh", "-c", "true"}, "/no/such/directory").Status(), kExitNotStarted);
    EXPECT_TRUE(Rows().empty());
}

TEST_F(ProgramRun, HasTheDirectoryAndTheEnvironment) {
    EXPECT_EQ(Run({"/bin/sh", "-c", "pwd; echo $TERM $HOME; env | wc -l"}, "/usr").Status(), 0);
    ASSERT_GE(Rows().size(), 2u);
    EXPECT_EQ(Rows()[0], "/usr");
    EXPECT_EQ(Rows()[1], "xterm /nonexistent");
}

TEST_F(ProgramRun, HasATerminalOfTheConsolesSize) {
    EXPECT_EQ(Shell("stty size; tty | cut -c1-8; test -t 0 -a -t 1 -a -t 2 && echo yes").Status(),
              0);
    EXPECT_EQ(Rows(), (Strings{"12 60", "/dev/pts", "yes"}));
}

TEST_F(ProgramRun, LeadsASessionWithThisTerminal) {
    EXPECT_EQ(Shell("ps -o sid=,tpgid= -p $$ | { read s t; test $s = $$ -a $t = $$; } && "
                    "echo leads; : </dev/tty && echo controls")
                  .Status(),
              0);
    EXPECT_EQ(Rows(), (Strings{"leads", "controls"}));
}

TEST_F(ProgramRun, InheritsNothing) {
    signal(SIGPIPE, SIG_IGN);
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGUSR1);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const int open = dup(2);  // without close-on-exec
    EXPECT_EQ(Shell("ls /proc/self/fd | wc -l; grep -E 'SigBlk|SigIgn' /proc/self/status").Status(),
              0);
    close(open);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    signal(SIGPIPE, SIG_DFL);
    ASSERT_EQ(Rows().size(), 3u);
    EXPECT_EQ(Rows()[0], "4");  // three and the folder that ls reads
    EXPECT_EQ(Rows()[1], "SigBlk: 0000000000000000");
    EXPECT_EQ(Rows()[2], "SigIgn: 0000000000000000");
}

TEST_F(ProgramRun, LeavesNoDescriptorAndNoProcess) {
    const auto descriptors = [] {
        int count = 0;
        DIR* folder = opendir("/proc/self/fd");
        while (readdir(folder) != nullptr)
            count++;
        closedir(folder);
        return count;
    };
    const int before = descriptors();
    for (int i = 0; i < 20; i++)
        EXPECT_EQ(Shell("true").Status(), 0);
    EXPECT_EQ(descriptors(), before);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    EXPECT_EQ(sigismember(&mask, SIGCHLD), 0);
}

TEST_F(ProgramRun, LosesNothingOfAProgramThatEndsAtOnce) {
    for (int round = 0; round < 5; round++) {
        CScrollBackBuffer all;
        console.SetScrollBackSink(&all);
        console.Clear();
        console.SetCursor(0, 0);
        EXPECT_EQ(Shell("seq 1 20000").Status(), 0);
        EXPECT_EQ(all.Count(), 20000 + 1 - 12);
        EXPECT_EQ(Rows()[10], "20000");
        CellString line;
        all.ReadLine(9999, line);
        EXPECT_EQ(line.At(0).character, U'1');
        EXPECT_EQ(line.Length(), 60);
    }
}

TEST_F(ProgramRun, EndsWhenAGrandchildKeepsTheTerminal) {
    const ProgramEnd end = Shell("echo started; (trap '' HUP; exec sleep 1000) & echo $!; exit 3");
    EXPECT_EQ(end.Status(), 3);
    ASSERT_EQ(Rows().size(), 2u);
    EXPECT_EQ(Rows()[0], "started");
    kill(std::atoi(Rows()[1].c_str()), SIGKILL);
}

TEST_F(ProgramRun, EndsWhenAProgramClosesItsTerminal) {
    const ProgramEnd end = Shell("echo away; exec </dev/null >/dev/null 2>&1; sleep 0.1; exit 4");
    EXPECT_EQ(end.Status(), 4);
    EXPECT_EQ(Rows(), Strings{"away"});
}

TEST_F(ProgramRun, GivesBackTheScreenOfAProgramThatCrashes) {
    console.WriteWide(0, 5, L"what stood here", 7);
    const ProgramEnd end =
        Shell("printf 'before\\n\\033[?1049h\\033[2Jon the other screen'; kill -SEGV $$");
    EXPECT_EQ(end.kind, ProgramEndKind::kSignalled);
    EXPECT_EQ(Rows(), (Strings{"before", "", "", "", "", "what stood here"}));
    EXPECT_EQ(scrollBack.Count(), 0);
}

TEST_F(ProgramRun, KeysReachTheProgram) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("name?"));
        Type("Zoe\r");
    });
    EXPECT_EQ(Shell("printf 'name? '; read name; echo \"hello $name\"").Status(), 0);
    user.join();
    EXPECT_EQ(Rows(), (Strings{"name? Zoe", "hello Zoe"}));
}

TEST_F(ProgramRun, TheBackspaceKeyErases) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("name?"));
        Type("Zo");
        console.GiveCharacterToSink(0xEB);
        Type("x");
        console.GiveKeyToSink(0x10101, 0, 0);
        console.GiveKeyToSink(0x10101, 0, 0);
        Type("e\r");
    });
    EXPECT_EQ(Shell("printf 'name? '; read name; echo \"hello $name\"").Status(), 0);
    user.join();
    EXPECT_EQ(Rows(), (Strings{"name? Zoe", "hello Zoe"}));
}

TEST_F(ProgramRun, APasswordIsNotSeen) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("password"));
        Type("secret\r");
    });
    EXPECT_EQ(
        Shell("stty -echo; printf password:; read p; stty echo; echo; echo $p | wc -c").Status(),
        0);
    user.join();
    EXPECT_EQ(Rows(), (Strings{"password:", "7"}));
}

TEST_F(ProgramRun, CtrlCInterrupts) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("ready"));
        console.GiveKeyToSink(3, 0, 0);
    });
    const ProgramEnd end = Shell("echo ready; exec sleep 1000");
    user.join();
    EXPECT_EQ(end.kind, ProgramEndKind::kSignalled);
    EXPECT_EQ(end.value, SIGINT);
}

TEST_F(ProgramRun, AShellControlsItsJobs) {
    std::atomic<bool> hasEnded{false};
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("$"));
        Type("echo u''p; sleep 1000\r");
        EXPECT_TRUE(WaitForText("up"));
        // The key means nothing to the program before it runs in front.
        EXPECT_TRUE(WaitFor([&] {
            console.GiveKeyToSink(26, 0, 0);
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            return Shows("Stopped");
        }));
        // The shell throws away what is typed before it has the terminal back.
        EXPECT_TRUE(WaitFor([&] {
            Type("kill -KILL %1; wait; exit 5\r");
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            return hasEnded.load();
        }));
    });
    const ProgramEnd end = Run({"/bin/bash", "--norc", "--noprofile", "--noediting", "-i"});
    hasEnded = true;
    user.join();
    EXPECT_EQ(end.Status(), 5);
}

// The user hammers keys at a program that reads none; the window's thread goes on.
TEST_F(ProgramRun, AProgramThatDoesNotReadStopsNobody) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("ready"));
        for (int i = 0; i < 100000; i++)
            console.GiveKeyToSink('x', 0, 0);
        console.SetCursorSize(1);
        console.hasEnded = true;
    });
    const ProgramEnd end = Shell("stty raw -echo; echo ready; exec sleep 1000");
    user.join();
    EXPECT_EQ(end.kind, ProgramEndKind::kSignalled);
    EXPECT_EQ(end.value, SIGHUP);
}

TEST_F(ProgramRun, AConsoleThatEndsHangsUp) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("ready"));
        console.hasEnded = true;
    });
    const ProgramEnd end = Shell("trap 'exit 9' HUP; echo ready; while :; do sleep 0.02; done");
    user.join();
    EXPECT_EQ(end.Status(), 9);
}

TEST_F(ProgramRun, AConsoleThatIsToCloseHangsUp) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("ready"));
        console.isClosing = true;
    });
    const ProgramEnd end = Shell("trap 'exit 9' HUP; echo ready; while :; do sleep 0.02; done");
    user.join();
    EXPECT_EQ(end.Status(), 9);
    EXPECT_EQ(console.Terminal(), nullptr);
}

TEST_F(ProgramRun, TellsANewSize) {
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("ready"));
        console.Resize(50, 12, nullptr, 0);
    });
    EXPECT_EQ(
        Shell("trap 'stty size; exit 0' WINCH; echo ready; while :; do sleep 0.02; done").Status(),
        0);
    user.join();
    EXPECT_EQ(WithoutBlanks(console.RowText(1)), "12 50");
}

// Far more output than can be painted: the console is brought up to date now and then.
TEST_F(ProgramRun, ABusyProgramIsShownNowAndThen) {
    console.freezes.clear();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Shell("seq 1 200000").Status(), 0);
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - start);
    EXPECT_EQ(Rows()[10], "200000");
    EXPECT_LE(static_cast<int64_t>(console.freezes.size() / 2), took.count() / 16 + 3);
}

TEST_F(ProgramRun, RandomOutputIsHarmless) {
    EXPECT_EQ(Shell("head -c 3000000 /dev/urandom").Status(), 0);
    EXPECT_EQ(Shell("printf '\\033(B\\033[r\\033[2J\\033[1;12r\\033[H\\033[4lend'").Status(), 0);
}

TEST_F(ProgramRun, NulBytesAreDropped) {
    EXPECT_EQ(Shell("printf 'a\\000b\\000\\000c'").Status(), 0);
    EXPECT_EQ(Rows(), Strings{"abc"});
}

// --- Programs of the full screen, where they are installed.

struct FullScreenCase {
    const char* program;
    std::vector<const char*> arguments;
    const char* appears;
    const char* keys;
    const char* thenAppears;
    const char* lastKeys;
};

TEST_F(ProgramRun, FullScreenProgramsWorkAndLeaveTheScreenAsItWas) {
    const FullScreenCase cases[] = {
        {"/usr/bin/less", {"/etc/passwd"}, "root:", "/nobody\r", "nobody:", "q"},
        {"/usr/bin/vim", {"-u", "NONE", "-n"}, "~", "ihello vim\x1b", "hello vim", ":q!\r"},
        {"/usr/bin/nano",
         {"-I", "/tmp/zt-no-such-file"},
         "GNU nano",
         "hello nano",
         "hello nano",
         "\x18n"},
        {"/usr/bin/top", {"-d", "1"}, "PID", "", "PID", "q"},
        {"/usr/bin/htop", {}, "PID", "", "PID", "q"},
    };
    int seen = 0;
    for (const FullScreenCase& c : cases) {
        if (access(c.program, X_OK) != 0) continue;
        SCOPED_TRACE(c.program);
        seen++;
        const int64_t collected = scrollBack.Count();
        console.Clear();
        console.WriteWide(0, 0, L"former screen", 7);
        console.SetCursor(0, 1);
        std::thread user([&] {
            EXPECT_TRUE(WaitForText(c.appears));
            Type(c.keys);
            EXPECT_TRUE(WaitForText(c.thenAppears));
            Type(c.lastKeys);
        });
        std::vector<const char*> arguments = {c.program};
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        EXPECT_EQ(Run(arguments).Status(), 0);
        user.join();
        // top stays on the main screen.
        if (std::string(c.program) != "/usr/bin/top") {
            ASSERT_FALSE(Rows().empty());
            EXPECT_EQ(Rows()[0], "former screen");
            EXPECT_FALSE(Shows(c.appears));
            // htop tells behind it that it cannot save its settings.
            if (std::string(c.program) != "/usr/bin/htop") {
                EXPECT_LE(Rows().size(), 1u);
            }
            EXPECT_EQ(scrollBack.Count(), collected);
        }
    }
    if (seen == 0) GTEST_SKIP() << "no full-screen program is installed";
}

TEST_F(ProgramRun, ThePagerPagesByTheCursorKeys) {
    if (access("/usr/bin/less", X_OK) != 0) GTEST_SKIP() << "less is not installed";
    std::thread user([&] {
        EXPECT_TRUE(WaitForText("11"));
        console.GiveKeyToSink(0x10051, 0, 0);
        EXPECT_TRUE(WaitForText("22"));
        console.GiveKeyToSink(kUpKey, 0, 0);
        EXPECT_TRUE(WaitFor([&] { return WithoutBlanks(console.RowText(0)) == "11"; }));
        Type("q");
    });
    EXPECT_EQ(Shell("seq 1 100000 | less").Status(), 0);
    user.join();
}

TEST(PseudoTerminals, OpenAndClose) {
    PseudoTerminal terminal;
    EXPECT_FALSE(terminal.IsOpen());
    ASSERT_EQ(terminal.Open(80, 25), 0);
    EXPECT_TRUE(terminal.IsOpen());
    EXPECT_NE(fcntl(terminal.Master(), F_GETFL) & O_NONBLOCK, 0);
    EXPECT_NE(fcntl(terminal.Master(), F_GETFD) & FD_CLOEXEC, 0);
    EXPECT_NE(fcntl(terminal.Slave(), F_GETFD) & FD_CLOEXEC, 0);
    terminal.Close();
    EXPECT_FALSE(terminal.IsOpen());
    terminal.SetSize(1, 1);
}

}  // namespace
}  // namespace zt
