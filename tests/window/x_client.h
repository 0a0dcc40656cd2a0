// A second client of the tests' X server, in the part of the user and of other programs: it types,
// moves the mouse, looks at pixels, reads and owns the clipboard. Knows nothing of the console.
#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace zt::testing {

struct Rgb {
    int red;
    int green;
    int blue;
};

inline bool operator==(const Rgb& a, const Rgb& b) {
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
}
std::ostream& operator<<(std::ostream& out, const Rgb& colour);

// The pixels of a window.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Rgb> pixels;

    const Rgb& At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
};
bool operator==(const Picture& a, const Picture& b);

struct WindowPlace {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

inline constexpr int kHoldShift = 1;
inline constexpr int kHoldCtrl = 2;
inline constexpr int kHoldAlt = 4;

class XClient {
public:
    XClient();
    ~XClient();
    XClient(const XClient&) = delete;
    XClient& operator=(const XClient&) = delete;

    // Looks for the program's window; false while it is not on the screen.
    bool FindWindow();
    bool IsWindowShown();
    void Focus();

    void Key(uint32_t keysym, bool press);
    void KeyByCode(int hardwareCode, bool press);
    // Presses and lets go a key while modifiers are held.
    void Tap(int held, uint32_t keysym);
    void TapCode(int held, int hardwareCode);
    // Gives the key one symbol, with Shift and without.
    void GiveKeyASymbol(int hardwareCode, uint32_t keysym);
    // True when the keyboard has the key at all, with or without Shift.
    bool HasKey(uint32_t keysym);

    // In pixels of the window.
    void MoveTo(int x, int y);
    void Button(int number, bool press);
    void Click(int number);

    Picture Grab();
    WindowPlace Place();
    int ScreenWidth();
    int ScreenHeight();
    std::string Title();
    int IconWords();  // length of the window's icons, 0 for none
    void MoveWindow(int x, int y);
    void UnmapWindow();
    void MapWindow();
    void AskToClose();  // as a window manager does
    int Bells();        // rung since the client connected

    // What the owner of a selection gives as UTF-8; false when there is none.
    bool ReadSelection(const char* selection, std::string& text);

private:
    struct State;
    void Hold(int held, bool press);
    std::unique_ptr<State> state;
};

// Owns the clipboard from a connection and a thread of its own.
class ClipboardOwner {
public:
    // A silent one never answers.
    explicit ClipboardOwner(const std::string& text, bool silent = false);
    ~ClipboardOwner();
    ClipboardOwner(const ClipboardOwner&) = delete;
    ClipboardOwner& operator=(const ClipboardOwner&) = delete;

private:
    struct State;
    std::unique_ptr<State> state;
};

}  // namespace zt::testing
