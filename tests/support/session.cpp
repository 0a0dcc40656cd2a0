// Playing a session with zt-remote.
#include "tests/support/session.h"

#include <poll.h>
#include <unistd.h>
#include <chrono>
#include <csignal>
#include <cstdlib>

namespace zt::headless {

namespace {

constexpr int kPumpMilliseconds = 2;
constexpr int kAnswerMilliseconds = 10000;

// What the sanitizers of the program under test read.
constexpr const char* kPassedOn[] = {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS",
                                     "LSAN_OPTIONS"};

std::string ProgramPath(const SessionOptions& options) {
    if (!options.program.empty()) return options.program;
    const char* asked = getenv("ZT_REMOTE");
    return asked && *asked ? asked : ZT_REMOTE_PROGRAM;
}

std::map<std::string, std::string> Environment(const SessionOptions& options,
                                               const std::string& home) {
    std::map<std::string, std::string> out = {{"HOME", home},
                                              {"LANG", "C.UTF-8"},
                                              {"TZ", "UTC"},
                                              {"PATH", "/usr/bin:/bin"},
                                              {"SHELL", "/bin/sh"}};
    for (const char* name : kPassedOn) {
        if (const char* value = getenv(name)) out[name] = value;
    }
    for (const auto& [name, value] : options.environment)
        out[name] = value;
    return out;
}

// Appended piece by piece: in a chain of sums g++ 12 sees overruns at -O3 that are none.
std::string Quoted(const char* before, std::string_view text) {
    std::string out = before;
    out += '"';
    out += text;
    out += '"';
    return out;
}

}  // namespace

std::chrono::milliseconds WaitLimit() {
    const char* slowness = getenv("ZT_TEST_SLOWNESS");
    const int factor = slowness ? std::max(1, atoi(slowness)) : 1;
    return std::chrono::milliseconds(kAnswerMilliseconds) * factor;
}

Session::Session(SessionOptions given)
    : options(std::move(given)), display(options.columns, options.rows) {
    signal(SIGPIPE, SIG_IGN);
    home = options.home;
    if (home.empty()) {
        ownHome = std::make_unique<FileTree>();
        if (options.user) ownHome->GiveTo(*options.user);
        home = ownHome->Path();
    }
    Start();
}

void Session::Start() {
    ProcessOptions start;
    start.program = ProgramPath(options);
    start.name = options.name;
    start.arguments = options.arguments;
    start.directory = options.directory.empty() ? home : options.directory;
    start.removeDirectory = options.removeDirectory;
    start.environment = Environment(options, home);
    start.user = options.user;
    if (options.handshakeAnswer >= 0) display.AnswerHandshakeWith(options.handshakeAnswer);
    if (!process.Start(start)) {
        ADD_FAILURE() << "cannot start " << start.program;
        return;
    }
    if (!options.inputBeforehand.empty()) SendBytes(options.inputBeforehand);
    if (!options.waitForPanels) return;
    EXPECT_TRUE(WaitFor([this] { return display.Connected() || HasEnded(); }, "the handshake"));
    EXPECT_TRUE(WaitForQuiet());
}

Session::~Session() {
    CloseInput();
    const testing::AssertionResult ended = WaitForEnd();
    if (!options.strict) return;
    EXPECT_TRUE(ended) << "at the end of its input";
    if (!ended) return;
    EXPECT_GE(ExitStatus(), 0) << "ended by a signal";
    for (const std::string& problem : display.Problems())
        ADD_FAILURE() << "on the wire: " << problem;
    for (const char* sign : {"Sanitizer", "runtime error:", "terminate called"}) {
        EXPECT_EQ(std::string::npos, errorText.find(sign)) << errorText;
    }
}

testing::AssertionResult Session::Failure(const std::string& what) const {
    auto out = testing::AssertionFailure();
    out << "waited in vain for " << what << "; the screen:\n" << Text();
    if (!errorText.empty()) out << "standard error:\n" << errorText;
    for (const std::string& problem : display.Problems())
        out << "on the wire: " << problem << "\n";
    return out;
}

void Session::WriteWaiting() {
    while (!waiting.empty() && process.InputFd() >= 0) {
        const ssize_t done = write(process.InputFd(), waiting.data(), waiting.size());
        if (done < 0) {
            if (errno != EAGAIN && errno != EINTR) process.CloseInput();
            break;
        }
        waiting.erase(0, static_cast<size_t>(done));
    }
    if (closeWanted && waiting.empty()) process.CloseInput();
}

bool Session::Pump(int milliseconds) {
    WriteWaiting();
    const short writing = waiting.empty() ? 0 : POLLOUT;
    pollfd fds[] = {{process.OutputFd(), POLLIN, 0},
                    {process.ErrorFd(), POLLIN, 0},
                    {waiting.empty() ? -1 : process.InputFd(), writing, 0}};
    if (poll(fds, std::size(fds), milliseconds) <= 0) return false;
    char bytes[65536];
    if (fds[0].revents) {
        const ssize_t count = read(process.OutputFd(), bytes, sizeof bytes);
        if (count <= 0) {
            process.CloseOutput();
        } else {
            waiting += display.Take({bytes, static_cast<size_t>(count)});
            if (process.InputFd() < 0) waiting.clear();
        }
    }
    if (fds[1].revents) {
        const ssize_t count = read(process.ErrorFd(), bytes, sizeof bytes);
        if (count <= 0) {
            process.CloseErrors();
        } else {
            errorText.append(bytes, static_cast<size_t>(count));
        }
    }
    WriteWaiting();
    return true;
}

testing::AssertionResult Session::WaitFor(const std::function<bool()>& condition,
                                          const char* what) {
    const Clock::time_point end = Clock::now() + WaitLimit();
    while (!condition()) {
        if (Pump(kPumpMilliseconds)) continue;
        if (process.HasEnded() && process.OutputFd() < 0 && !condition()) {
            return Failure(std::string(what) + " (the program has ended)");
        }
        if (Clock::now() > end) return Failure(what);
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult Session::WaitForText(std::string_view text) {
    const std::string what = Quoted("", text);
    return WaitFor([&] { return Text().find(text) != std::string::npos; }, what.c_str());
}

testing::AssertionResult Session::WaitForNoText(std::string_view text) {
    const std::string what = Quoted("no ", text);
    return WaitFor([&] { return Text().find(text) == std::string::npos; }, what.c_str());
}

// The order of the looks matters: what is not yet read or said by a program that sleeps on both
// sides of the look at the pipes will never be.
bool Session::IsQuiet() {
    if (process.HasEnded()) return process.OutputFd() < 0 && process.ErrorFd() < 0;
    if (!waiting.empty() || process.UnreadInput() > 0) return false;
    return process.IsWaiting() && process.UnreadInput() == 0 && !Pump(0) && waiting.empty();
}

testing::AssertionResult Session::WaitForQuiet() {
    return WaitFor([this] { return !Pump(0) && IsQuiet(); }, "the program to come to rest");
}

testing::AssertionResult Session::WaitForEnd() {
    return WaitFor(
        [this] { return process.HasEnded() && process.OutputFd() < 0 && process.ErrorFd() < 0; },
        "the program to end");
}

void Session::SendBytes(std::string_view bytes) {
    waiting += bytes;
    WriteWaiting();
}

void Session::Send(const std::vector<WireEvent>& events) {
    for (const WireEvent& event : events)
        Send(event);
}

void Session::CloseInput() {
    closeWanted = true;
    WriteWaiting();
}

void Session::SendAndSettle(const std::vector<WireEvent>& events) {
    ASSERT_FALSE(events.empty()) << "no such key";
    display.ResetTraffic();
    Send(events);
    ASSERT_TRUE(WaitForQuiet());
}

void Session::Press(std::string_view key) {
    SCOPED_TRACE(std::string(key));
    SendAndSettle(KeyPress(key));
}

void Session::Press(std::initializer_list<std::string_view> keys) {
    for (std::string_view key : keys)
        Press(key);
}

void Session::Press(std::string_view key, int times) {
    for (int i = 0; i < times; i++)
        Press(key);
}

void Session::Type(std::string_view utf8) {
    SendAndSettle(TypedText(utf8));
}

void Session::Click(Mouse button, int column, int row) {
    SendAndSettle({MousePress(button, column, row), MouseRelease(button, column, row)});
}

void Session::DoubleClick(Mouse button, int column, int row) {
    SendAndSettle(MouseDoubleClick(button, column, row));
}

void Session::Drag(Mouse button, int fromColumn, int fromRow, int toColumn, int toRow) {
    SendAndSettle({MousePress(button, fromColumn, fromRow), MouseMove(button, toColumn, toRow),
                   MouseRelease(button, toColumn, toRow)});
}

void Session::Wheel(bool up, int column, int row) {
    SendAndSettle({MouseWheel(up, column, row)});
}

void Session::Hold(std::string_view modifiers) {
    SendAndSettle(HoldModifiers(modifiers));
}

void Session::Release(std::string_view modifiers) {
    SendAndSettle(ReleaseModifiers(modifiers));
}

std::string Session::Row(int row) const {
    std::string text = display.Grid().Text(0, row, Columns());
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::string Session::Piece(int column, int row, int width) const {
    return display.Grid().Text(column, row, width);
}

std::string Session::Text() const {
    std::string text;
    for (int row = 0; row < Rows(); row++)
        text += Row(row) + "\n";
    return text;
}

char32_t Session::CharacterAt(int column, int row) const {
    return display.Grid().At(column, row).character;
}

uint8_t Session::AttributeAt(int column, int row) const {
    return display.Grid().At(column, row).attribute;
}

}  // namespace zt::headless
