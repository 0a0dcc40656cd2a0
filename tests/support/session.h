// A running zt-remote with a test at its screen, keyboard and mouse.
//
// Every wait is for a condition and has a limit of ten seconds, times ZT_TEST_SLOWNESS. A session
// that ends with the program crashed, with something on the wire that a careful peer would not
// send, or with the program deaf to the end of its input, fails its test.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/display.h"
#include "tests/support/file_tree.h"
#include "tests/support/key_names.h"

namespace zt::headless {

struct SessionOptions {
    std::vector<std::string> arguments;
    std::string directory;                           // where it starts; empty: its HOME
    bool removeDirectory = false;                    // it is gone when the program starts
    std::map<std::string, std::string> environment;  // beside HOME, LANG, TZ, PATH
    std::string home;                                // empty: a fresh folder
    int columns = 80;
    int rows = 25;
    std::optional<uid_t> user;
    std::string program;          // empty: ZT_REMOTE, or the one built with the tests
    std::string name;             // argv[0]
    bool waitForPanels = true;    // the constructor comes back when the program waits for a key
    int handshakeAnswer = -1;     // -1: the true one
    std::string inputBeforehand;  // is in the program's input before it has asked for anything
    bool strict = true;           // false: the test looks at problems and status itself
};

class Session {
public:
    explicit Session(SessionOptions options = {});
    ~Session();

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Waiting.
    [[nodiscard]] testing::AssertionResult WaitForText(std::string_view text);
    [[nodiscard]] testing::AssertionResult WaitForNoText(std::string_view text);
    [[nodiscard]] testing::AssertionResult WaitFor(const std::function<bool()>& condition,
                                                   const char* what);
    // Until the program has read all input, has said all it has to say and waits.
    [[nodiscard]] testing::AssertionResult WaitForQuiet();
    [[nodiscard]] testing::AssertionResult WaitForEnd();

    // Input. These wait until the program is quiet again (or has ended); a failure to be so fails
    // the test.
    void Press(std::string_view key);
    void Press(std::initializer_list<std::string_view> keys);
    void Press(std::string_view key, int times);
    void Type(std::string_view utf8);
    void Click(Mouse button, int column, int row);
    void DoubleClick(Mouse button, int column, int row);
    void Drag(Mouse button, int fromColumn, int fromRow, int toColumn, int toRow);
    void Wheel(bool up, int column, int row);
    void Hold(std::string_view modifiers);
    void Release(std::string_view modifiers);
    // These do not wait.
    void Send(const WireEvent& event) { SendBytes(EncodeEvent(event)); }
    void Send(const std::vector<WireEvent>& events);
    void SendBytes(std::string_view bytes);
    void CloseInput();

    // The screen. Text is UTF-8.
    int Columns() const { return display.Grid().Columns(); }
    int Rows() const { return display.Grid().Rows(); }
    std::string Row(int row) const;                           // without the blanks at its end
    std::string Piece(int column, int row, int width) const;  // with them
    std::string Text() const;                                 // all rows, a line feed after each
    char32_t CharacterAt(int column, int row) const;
    uint8_t AttributeAt(int column, int row) const;
    int CursorColumn() const { return display.CursorColumn(); }
    int CursorRow() const { return display.CursorRow(); }
    // The program shows the cursor of the command line, as it does while it waits for a key.
    bool AtPrompt() const { return display.CursorSize() == 15; }
    const std::string& Title() const { return display.Title(); }
    const std::string& Clipboard() const { return display.Clipboard(); }

    // The program.
    bool HasEnded() { return process.HasEnded(); }
    int ExitStatus() const { return process.Status(); }  // minus a signal; after WaitForEnd
    const std::string& StandardError() const { return errorText; }
    const std::string& Home() const { return home; }
    pid_t ProcessId() const { return process.Id(); }
    // Bytes, requests and changed cells since the last input began.
    Traffic LastTraffic() const { return display.SinceReset(); }
    Display& Screen() { return display; }

private:
    using Clock = std::chrono::steady_clock;

    void Start();
    void SendAndSettle(const std::vector<WireEvent>& events);
    // Moves what can be moved between the pipes; waits at most so long for something to move.
    // True when something did.
    bool Pump(int milliseconds);
    void WriteWaiting();
    bool IsQuiet();
    testing::AssertionResult Failure(const std::string& what) const;

    SessionOptions options;
    std::unique_ptr<FileTree> ownHome;
    std::string home;
    Display display;
    ChildProcess process;
    std::string waiting;  // for the program's input
    bool closeWanted = false;
    std::string errorText;
};

// Ten seconds, times ZT_TEST_SLOWNESS.
std::chrono::milliseconds WaitLimit();

}  // namespace zt::headless
