// The whole program as the display of another one that runs behind a real ssh server: log-in by
// key, panels, files and programs of the far side, the clipboard, and a connection that dies.
#include <X11/keysym.h>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "whole_program.h"
#include "window_fixture.h"

namespace zt::testing {

namespace {

constexpr const char* kServer = "/usr/sbin/sshd";
constexpr Rgb kAlert = {0x7F, 0, 0};
constexpr Rgb kMagenta = {0x7F, 0, 0x7F};
constexpr Rgb kGrey = {0xC0, 0xC0, 0xC0};

int FreePort() {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    int port = -1;
    if (bind(fd, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
        getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) == 0) {
        port = ntohs(address.sin_port);
    }
    close(fd);
    return port;
}

bool CanConnect(int port) {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    const bool connected = connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(fd);
    return connected;
}

bool IsGone(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/stat");
    std::string number, name, state;
    return !(status >> number >> name >> state) || state == "Z" || state == "X";
}

class SshSession : public WholeProgramTest {
protected:
    void SetUp() override {
        if (access(kServer, X_OK) != 0) GTEST_SKIP() << "there is no ssh server here";
        WholeProgramTest::SetUp();
        far.Folder("home");
        far.File("from/letter.txt", "dear reader");
        far.Folder("to");
        MakeKeys();
        StartServer();
    }
    void TearDown() override {
        process.Kill();
        sshd.Kill();
        if (user) WholeProgramTest::TearDown();
    }

    void MakeKeys() {
        for (const char* name : {"host_key", "user_key"}) {
            const std::string command =
                "ssh-keygen -q -t ed25519 -N '' -f " + far.Path() + "/" + name;
            ASSERT_EQ(0, system(command.c_str()));
        }
        std::filesystem::copy_file(far.Path() + "/user_key.pub", far.Path() + "/authorized");
    }

    void StartServer() {
        // Where the server, as root, locks its unprivileged half up.
        if (geteuid() == 0) mkdir("/run/sshd", 0755);
        port = FreePort();
        ASSERT_GT(port, 0);
        const std::string& in = far.Path();
        far.File("banner", "This castle is guarded.\n");
        far.File("sshd_config", "ListenAddress 127.0.0.1\nPort " + std::to_string(port) +
                                    "\nHostKey " + in + "/host_key\nAuthorizedKeysFile " + in +
                                    "/authorized\nStrictModes no\nUsePAM no\nPidFile none\n" +
                                    "PermitRootLogin yes\nPasswordAuthentication no\nBanner " + in +
                                    "/banner\n");
        headless::ProcessOptions options;
        options.program = kServer;
        options.arguments = {"-D", "-f", in + "/sshd_config", "-E", in + "/sshd.log"};
        options.environment = {{"PATH", "/usr/bin:/bin"}};
        ASSERT_TRUE(sshd.Start(options));
        ASSERT_TRUE(WaitFor([&] { return CanConnect(port) || sshd.HasEnded(); }));
        ASSERT_FALSE(sshd.HasEnded()) << far.Content("sshd.log");
    }

    // What the far side runs once the file "go" is there.
    void Connect(const std::string& farCommand) {
        const std::string& in = far.Path();
        far.File("start", "#!/bin/sh\nwhile [ ! -e " + in + "/go ]; do sleep 0.02; done\n" +
                              "export HOME=" + in + "/home LANG=C.UTF-8\n" + farCommand + "\n");
        const passwd* account = getpwuid(geteuid());
        far.File("ssh_config", "Host localhost\nHostName 127.0.0.1\nUser " +
                                   std::string(account->pw_name) + "\nPort " +
                                   std::to_string(port) + "\nIdentityFile " + in +
                                   "/user_key\nIdentitiesOnly yes\nUserKnownHostsFile " + in +
                                   "/known\nStrictHostKeyChecking no\n");
        home.File(".ztx/zt.ini",
                  "[General]\nConnectRemote=ssh -F " + in + "/ssh_config %h sh " + in + "/start\n");
        headless::ProcessOptions options;
        const char* path = getenv("ZT");
        options.program = path ? path : ZT_PROGRAM;
        options.arguments = {"-h", "localhost"};
        options.directory = home.Path();
        options.environment = {{"HOME", home.Path()},
                               {"LANG", "C.UTF-8"},
                               {"PATH", "/usr/bin:/bin"},
                               {"DISPLAY", server.Display()},
                               {"SHELL", "/bin/sh"}};
        ASSERT_TRUE(process.Start(options));
        ASSERT_TRUE(WaitFor([&] { return process.HasEnded() || user->FindWindow(); }));
        ASSERT_FALSE(process.HasEnded());
        user->Focus();
    }

    void Go() { far.File("go", ""); }

    std::string FarProgram() {
        const char* path = getenv("ZT_REMOTE");
        const std::string beside =
            std::filesystem::path(ZT_PROGRAM).replace_filename("zt-remote").string();
        return std::string("exec ") + (path ? path : beside) + " -l " + far.Path() + "/from -r " +
               far.Path() + "/to";
    }

    bool WaitForFarPanels() {
        return WaitFor(
            [&] { return user->Title() == "Remote (localhost) Zanthe: " + far.Path() + "/from"; });
    }
    bool WaitForFar(const std::string& name) {
        return WaitFor([&] { return far.Exists(name) || process.HasEnded(); }) && far.Exists(name);
    }
    bool WaitForColour(Rgb colour) {
        return WaitFor([&] { return HasColour(user->Grab(), colour); });
    }
    // The process that zt has started.
    pid_t Ssh() {
        const std::string id = std::to_string(process.Id());
        pid_t child = 0;
        for (const auto& thread : std::filesystem::directory_iterator("/proc/" + id + "/task")) {
            std::ifstream children(thread.path() / "children");
            if (children >> child) break;
        }
        return child;
    }
    void QuitFar() {
        user->Tap(0, XK_F10);
        user->Tap(0, XK_Return);
        ASSERT_TRUE(WaitFor([&] { return process.HasEnded(); }));
        EXPECT_EQ(0, process.Status());
    }

    headless::FileTree far;
    headless::ChildProcess sshd;
    int port = -1;
};

TEST_F(SshSession, ShowsTheBannerThenThePanelsAndCopies) {
    Connect(FarProgram());
    ASSERT_TRUE(WaitForColour(kGrey)) << "no banner";
    Go();
    ASSERT_TRUE(WaitForFarPanels()) << user->Title() << "\n" << far.Content("sshd.log");
    user->Tap(0, XK_Down);
    user->Tap(0, XK_F5);
    user->Tap(0, XK_Return);
    ASSERT_TRUE(WaitForFar("to/letter.txt"));
    EXPECT_TRUE(WaitFor([&] { return far.Content("to/letter.txt") == "dear reader"; }));
    QuitFar();
    // Its personal files are those of the far side.
    EXPECT_TRUE(far.Exists("home/.ztx"));
}

TEST_F(SshSession, RunsProgramsOfTheFarSide) {
    Connect(FarProgram());
    Go();
    ASSERT_TRUE(WaitForFarPanels()) << far.Content("sshd.log");
    ASSERT_FALSE(HasColour(user->Grab(), kMagenta));
    Type("printf '\\033[45m          '; read word; echo $word >said\n");
    ASSERT_TRUE(WaitForColour(kMagenta)) << "no output";
    Type("answer\n");
    ASSERT_TRUE(WaitForFar("from/said"));
    EXPECT_TRUE(WaitFor([&] { return far.Content("from/said") == "answer\n"; }));
    ASSERT_TRUE(WaitForFarPanels());
    QuitFar();
}

TEST_F(SshSession, SharesTheClipboardBothWays) {
    Connect(FarProgram());
    Go();
    ASSERT_TRUE(WaitForFarPanels()) << far.Content("sshd.log");
    {
        const ClipboardOwner other("pasted");
        user->Tap(0, XK_F7);
        user->Tap(kHoldShift, XK_Insert);
        user->Tap(0, XK_Return);
        ASSERT_TRUE(WaitForFar("from/pasted"));
    }
    user->Tap(0, XK_F7);
    Type("copied");
    user->Tap(kHoldShift, XK_Home);
    user->Tap(kHoldCtrl, XK_Insert);
    std::string text;
    EXPECT_TRUE(WaitFor([&] { return user->ReadSelection("CLIPBOARD", text) && text == "copied"; }))
        << text;
    user->Tap(0, XK_Escape);
    QuitFar();
}

TEST_F(SshSession, EndsOnBothSidesWhenSshIsKilled) {
    Connect(FarProgram());
    Go();
    ASSERT_TRUE(WaitForFarPanels()) << far.Content("sshd.log");
    Type("echo $$ $PPID >pids; sleep 1000\n");
    pid_t child = 0, farEnd = 0;
    ASSERT_TRUE(WaitFor([&] {
        std::ifstream pids(far.Path() + "/from/pids");
        return static_cast<bool>(pids >> child >> farEnd);
    }));
    ASSERT_FALSE(IsGone(child));
    const pid_t ssh = Ssh();
    ASSERT_GT(ssh, 0);
    ASSERT_EQ(0, kill(ssh, SIGKILL));
    EXPECT_TRUE(WaitFor([&] { return IsGone(child); })) << "the program was not hung up";
    EXPECT_TRUE(WaitFor([&] { return IsGone(farEnd); })) << "the far end goes on";
    // The box waits for the user.
    ASSERT_TRUE(
        WaitFor([&] { return process.HasEnded() || headless::IsProcessWaiting(process.Id()); }));
    EXPECT_FALSE(process.HasEnded());
    EXPECT_TRUE(WaitFor([&] {
        user->Tap(0, XK_Escape);
        return process.HasEnded();
    }));
    EXPECT_EQ(0, process.Status());
}

TEST_F(SshSession, RefusesAFarEndOfAnotherVersion) {
    Connect(
        "printf '\\277\\373\\000\\000\\001\\000\\000\\000\\004\\000\\002\\000\\000\\000'\n"
        "head -c 108 >" +
        far.Path() + "/answers");
    Go();
    ASSERT_TRUE(WaitForFar("answers"));
    EXPECT_TRUE(WaitFor([&] { return far.Content("answers").size() == 108; }));
    ASSERT_TRUE(WaitForColour(kAlert)) << "no box";
    EXPECT_TRUE(WaitFor([&] {
        user->Tap(0, XK_Escape);
        return process.HasEnded();
    }));
    EXPECT_EQ(0, process.Status());
}

TEST_F(SshSession, TellsThatTheServerCannotBeReached) {
    sshd.Kill();
    ASSERT_TRUE(WaitFor([&] { return !CanConnect(port); }));
    Connect(FarProgram());
    ASSERT_TRUE(WaitForColour(kAlert)) << "no box";
    EXPECT_TRUE(WaitFor([&] {
        user->Tap(0, XK_Escape);
        return process.HasEnded();
    }));
    EXPECT_EQ(0, process.Status());
}

}  // namespace

}  // namespace zt::testing
