// The embedded terminal: interprets what a program writes, as a subset of an xterm's control
// sequences, in the console's cells, and turns keys into what an xterm would send. Lives while a
// program runs: the console makes it (OpenTerminal) and deletes it (CloseTerminal).
//
// Output belongs to the first thread. Keys come on the thread that takes the input, which never
// waits; the two share only the mode of the cursor keys.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "console/terminal/escape_parser.h"
#include "console/terminal/key_sender.h"
#include "console/terminal/terminal_colours.h"
#include "console/terminal/terminal_screen.h"
#include "console/terminal_sink.h"

namespace zt {

class IConsole;

class CTerminal : public ITerminalSink, private IEscapeHandler {
public:
    // Borrows all; `scrollBack` may be null. Keys are written to `fd`, the master of a
    // pseudo-terminal or a pipe.
    CTerminal(IConsole& console, int fd, IScrollBackSink* scrollBack);
    ~CTerminal() override;
    CTerminal(const CTerminal&) = delete;
    CTerminal& operator=(const CTerminal&) = delete;

    // Output of the program, cut anywhere; shown when it returns.
    void Write(const char* bytes, int n);
    // The same in two steps: a busy program's output is gathered and shown now and then. Between
    // the two nothing else may draw.
    void Gather(const char* bytes, int n);
    void Show();
    // Shows what is gathered, and gives the screen back that an alternate one covers.
    void Close();

    // ITerminalSink. Text ends at a NUL.
    void TakeKey(int32_t code, int32_t modifiers, int32_t unicode) override;
    void TakeCharacter(int32_t character) override;
    void TakeText(const char* utf8) override;

private:
    using Action = void (CTerminal::*)(const CsiSequence& sequence);
    struct ActionRow {
        char final;
        Action action;
    };
    static const ActionRow kActions[];
    static Action FindAction(char final);

    // IEscapeHandler.
    void TakeRun(const unsigned char* bytes, int n) override;
    void TakeControl(unsigned char byte) override;
    bool TakeEscape(unsigned char byte) override;
    void TakeCharset(unsigned char byte) override;
    void TakeCsi(const CsiSequence& sequence) override;

    void Load();
    void FitToSize();
    int PutAscii(const unsigned char* bytes, int n);
    int PutOthers(const unsigned char* bytes, int n);
    int DecodeOne(const unsigned char* bytes, int n, uint32_t& code) const;
    void PutRepeated(uint32_t glyph, int count);
    void NextLine();
    void ScrollRegionUp(int lines);
    void ScrollRegionDown(int lines);
    int BottomForLines() const;
    void SaveCursor();
    void RestoreCursor();
    void EnterAlternateScreen();
    void LeaveAlternateScreen();
    void SetPrivateMode(int32_t mode, bool on);

    // One for each final byte.
    void InsertBlanks(const CsiSequence& sequence);
    void MoveUp(const CsiSequence& sequence);
    void MoveDown(const CsiSequence& sequence);
    void MoveRight(const CsiSequence& sequence);
    void MoveLeft(const CsiSequence& sequence);
    void GoToColumn(const CsiSequence& sequence);
    void GoToRow(const CsiSequence& sequence);
    void GoTo(const CsiSequence& sequence);
    void EraseInDisplay(const CsiSequence& sequence);
    void EraseInRow(const CsiSequence& sequence);
    void InsertLines(const CsiSequence& sequence);
    void DeleteLines(const CsiSequence& sequence);
    void DeleteCharacters(const CsiSequence& sequence);
    void ScrollUp(const CsiSequence& sequence);
    void ScrollDown(const CsiSequence& sequence);
    void EraseCharacters(const CsiSequence& sequence);
    void Repeat(const CsiSequence& sequence);
    void SetMode(const CsiSequence& sequence);
    void SetColours(const CsiSequence& sequence);
    void SetRegion(const CsiSequence& sequence);

    IConsole& console;
    IScrollBackSink* const scrollBack;
    EscapeParser parser;
    TerminalScreen screen;
    TerminalColours colours;
    int32_t column = 0;  // of the cursor; the number of columns when the next character wraps
    int32_t row = 0;
    int32_t savedColumn = 0;
    int32_t savedRow = 0;
    int32_t columns = 0;
    int32_t rows = 0;
    int32_t scrollTop = 0;  // the scrolling region; both rows belong to it
    int32_t scrollBottom = 0;
    int32_t cursorSize = 0;
    uint32_t lastCharacter = 0;  // what a repetition repeats; 0 for nothing
    bool insertMode = false;
    bool keypadApplication = false;  // stored only
    bool graphicCharset = false;
    bool alternateScreen = false;
    int pendingBeeps = 0;

    // What the alternate screen covers.
    std::vector<Cell> coveredCells;
    int coveredColumns = 0;
    int coveredRows = 0;

    std::atomic<bool> cursorApplication{false};
    KeySender keys;
};

}  // namespace zt
