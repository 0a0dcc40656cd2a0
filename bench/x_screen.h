// A client of the X server that watches a program's window from outside: is it there, what is its
// title, is it painted. Keys go to it as from a keyboard.
#pragma once

#include <string>

struct _XDisplay;

namespace zt::bench {

class XScreen {
public:
    XScreen();  // of DISPLAY
    ~XScreen();

    XScreen(const XScreen&) = delete;
    XScreen& operator=(const XScreen&) = delete;

    bool IsOpen() const { return display != nullptr; }
    // The one mapped window of a program on an otherwise empty server; false when there is none.
    bool FindWindow();
    std::string Title();
    // Two panels and the key bar stand on the screen: both panels' insides have the panel's
    // colour, and the last row of 25 has something in it.
    bool ShowsPanels();
    // Key symbols by their names, "Control_L"; pressed in this order, released in the other.
    void Press(const char* first, const char* second = nullptr);
    void Focus();
    // The middle of the window has a clear red.
    bool IsRed();

private:
    unsigned long PixelAt(int x, int y);

    _XDisplay* display;
    unsigned long window = 0;
    int width = 0;
    int height = 0;
};

}  // namespace zt::bench
