// Watching a window and pressing keys.
#include "bench/x_screen.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <cstring>

namespace zt::bench {

namespace {

constexpr unsigned long kBlack = 0;

// The background of the panels: half of blue. Some displays round it up.
bool IsPanelColour(unsigned long pixel) {
    return pixel == 0x7F || pixel == 0x80;
}

// A window may vanish between two requests.
int IgnoreErrors(Display*, XErrorEvent*) {
    return 0;
}

}  // namespace

XScreen::XScreen() : display(XOpenDisplay(nullptr)) {
    XSetErrorHandler(IgnoreErrors);
}

XScreen::~XScreen() {
    if (display) XCloseDisplay(display);
}

bool XScreen::FindWindow() {
    Window root = DefaultRootWindow(display), parent;
    Window* children = nullptr;
    unsigned count = 0;
    window = 0;
    if (!XQueryTree(display, root, &root, &parent, &children, &count)) return false;
    for (unsigned i = 0; i < count; i++) {
        XWindowAttributes look;
        if (!XGetWindowAttributes(display, children[i], &look)) continue;
        if (look.map_state != IsViewable || look.width < 100) continue;
        window = children[i];
        width = look.width;
        height = look.height;
    }
    if (children) XFree(children);
    return window != 0;
}

std::string XScreen::Title() {
    const Atom name = XInternAtom(display, "_NET_WM_NAME", False);
    const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    Atom type;
    int format;
    unsigned long count = 0, rest;
    unsigned char* bytes = nullptr;
    std::string title;
    if (XGetWindowProperty(display, window, name, 0, 1024, False, utf8, &type, &format, &count,
                           &rest, &bytes) == Success &&
        bytes) {
        title.assign(reinterpret_cast<char*>(bytes), count);
    }
    if (bytes) XFree(bytes);
    return title;
}

unsigned long XScreen::PixelAt(int x, int y) {
    XImage* image = XGetImage(display, window, x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image) return kBlack;
    const unsigned long pixel = XGetPixel(image, 0, 0) & 0xFFFFFF;
    XDestroyImage(image);
    return pixel;
}

bool XScreen::ShowsPanels() {
    if (!FindWindow()) return false;
    // In the middle of the blank rows of both panels, off the lines between the fields.
    const int row = height * 10 / 25;
    if (!IsPanelColour(PixelAt(width / 16, row))) return false;
    if (!IsPanelColour(PixelAt(width * 9 / 16, row))) return false;
    const int barHeight = height / 25;
    XImage* bar = XGetImage(display, window, 0, height - barHeight, static_cast<unsigned>(width),
                            static_cast<unsigned>(barHeight), AllPlanes, ZPixmap);
    if (!bar) return false;
    bool painted = false;
    for (int x = width * 3 / 4; x < width && !painted; x++) {
        for (int y = 0; y < barHeight && !painted; y++) {
            painted = (XGetPixel(bar, x, y) & 0xFFFFFF) != kBlack;
        }
    }
    XDestroyImage(bar);
    return painted;
}

bool XScreen::IsRed() {
    const unsigned long pixel = PixelAt(width / 2, height / 2);
    return (pixel >> 16) > 0x60 && (pixel >> 8 & 0xFF) < 0x30 && (pixel & 0xFF) < 0x30;
}

void XScreen::Focus() {
    XSetInputFocus(display, window, RevertToParent, CurrentTime);
    XSync(display, False);
}

void XScreen::Press(const char* first, const char* second) {
    const auto key = [this](const char* name, bool down) {
        if (!name) return;
        const KeyCode code = XKeysymToKeycode(display, XStringToKeysym(name));
        XTestFakeKeyEvent(display, code, down, CurrentTime);
    };
    key(first, true);
    key(second, true);
    key(second, false);
    key(first, false);
    XFlush(display);
}

}  // namespace zt::bench
