// The second client: keys and buttons go through the XTEST extension.
#include "x_client.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <cstring>

#include "wait_for.h"

namespace zt::testing {

struct XClient::State {
    ::Display* display = XOpenDisplay(nullptr);
    Window window = 0;
    Window selectionWindow = 0;
    int xkbEventBase = 0;
    int bells = 0;

    Window Root() const { return DefaultRootWindow(display); }
    Atom AtomOf(const char* name) const { return XInternAtom(display, name, False); }
    void Sync() const { XSync(display, False); }

    // The bytes of a property; empty when the window has none of that name.
    std::string Property(Window of, const char* name) const {
        Atom type;
        int format;
        unsigned long count;
        unsigned long rest;
        unsigned char* data = nullptr;
        const int result =
            XGetWindowProperty(display, of, AtomOf(name), 0, 1 << 22, False, AnyPropertyType, &type,
                               &format, &count, &rest, &data);
        if (result != Success || data == nullptr) return {};
        std::string bytes(reinterpret_cast<char*>(data),
                          count * static_cast<unsigned long>(format / 8));
        XFree(data);
        return bytes;
    }
};

std::ostream& operator<<(std::ostream& out, const Rgb& colour) {
    return out << "rgb(" << colour.red << ", " << colour.green << ", " << colour.blue << ")";
}

bool operator==(const Picture& a, const Picture& b) {
    return a.width == b.width && a.height == b.height && a.pixels == b.pixels;
}

XClient::XClient() : state(std::make_unique<State>()) {
    int opcode;
    int error;
    int major = XkbMajorVersion;
    int minor = XkbMinorVersion;
    XkbQueryExtension(state->display, &opcode, &state->xkbEventBase, &error, &major, &minor);
    XkbSelectEvents(state->display, XkbUseCoreKbd, XkbBellNotifyMask, XkbBellNotifyMask);
    state->selectionWindow =
        XCreateSimpleWindow(state->display, state->Root(), -10, -10, 1, 1, 0, 0, 0);
    state->Sync();
}

XClient::~XClient() {
    XCloseDisplay(state->display);
}

bool XClient::FindWindow() {
    Window root;
    Window parent;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(state->display, state->Root(), &root, &parent, &children, &count);
    state->window = 0;
    for (unsigned i = 0; i < count; i++) {
        XWindowAttributes attributes;
        if (!XGetWindowAttributes(state->display, children[i], &attributes)) continue;
        if (attributes.map_state == IsViewable && attributes.width > 10) {
            state->window = children[i];
        }
    }
    if (children != nullptr) XFree(children);
    return state->window != 0;
}

bool XClient::IsWindowShown() {
    XWindowAttributes attributes;
    return XGetWindowAttributes(state->display, state->window, &attributes) &&
           attributes.map_state == IsViewable;
}

void XClient::Focus() {
    XSetInputFocus(state->display, state->window, RevertToPointerRoot, CurrentTime);
    state->Sync();
}

void XClient::KeyByCode(int hardwareCode, bool press) {
    XTestFakeKeyEvent(state->display, static_cast<unsigned>(hardwareCode), press, CurrentTime);
    state->Sync();
}

void XClient::Key(uint32_t keysym, bool press) {
    KeyByCode(XKeysymToKeycode(state->display, keysym), press);
}

bool XClient::HasKey(uint32_t keysym) {
    XMappingEvent refresh{};
    refresh.display = state->display;
    refresh.request = MappingKeyboard;
    XRefreshKeyboardMapping(&refresh);
    return XKeysymToKeycode(state->display, keysym) != 0;
}

void XClient::GiveKeyASymbol(int hardwareCode, uint32_t keysym) {
    KeySym symbols[] = {keysym, keysym};
    XChangeKeyboardMapping(state->display, hardwareCode, 2, symbols, 1);
    state->Sync();
}

void XClient::Hold(int held, bool press) {
    if (held & kHoldShift) Key(XK_Shift_L, press);
    if (held & kHoldCtrl) Key(XK_Control_L, press);
    if (held & kHoldAlt) Key(XK_Alt_L, press);
}

void XClient::TapCode(int held, int hardwareCode) {
    Hold(held, true);
    KeyByCode(hardwareCode, true);
    KeyByCode(hardwareCode, false);
    Hold(held, false);
}

void XClient::Tap(int held, uint32_t keysym) {
    TapCode(held, XKeysymToKeycode(state->display, keysym));
}

void XClient::MoveTo(int x, int y) {
    const WindowPlace place = Place();
    XTestFakeMotionEvent(state->display, -1, place.x + x, place.y + y, CurrentTime);
    state->Sync();
}

void XClient::Button(int number, bool press) {
    XTestFakeButtonEvent(state->display, static_cast<unsigned>(number), press, CurrentTime);
    state->Sync();
}

void XClient::Click(int number) {
    Button(number, true);
    Button(number, false);
}

Picture XClient::Grab() {
    const WindowPlace place = Place();
    Picture picture;
    XImage* image =
        XGetImage(state->display, state->window, 0, 0, static_cast<unsigned>(place.width),
                  static_cast<unsigned>(place.height), AllPlanes, ZPixmap);
    if (image == nullptr) return picture;
    picture.width = place.width;
    picture.height = place.height;
    picture.pixels.reserve(static_cast<size_t>(place.width * place.height));
    for (int y = 0; y < place.height; y++) {
        for (int x = 0; x < place.width; x++) {
            const unsigned long pixel = XGetPixel(image, x, y);
            picture.pixels.push_back({static_cast<int>(pixel >> 16 & 0xFF),
                                      static_cast<int>(pixel >> 8 & 0xFF),
                                      static_cast<int>(pixel & 0xFF)});
        }
    }
    XDestroyImage(image);
    return picture;
}

WindowPlace XClient::Place() {
    XWindowAttributes attributes{};
    Window child;
    WindowPlace place;
    XGetWindowAttributes(state->display, state->window, &attributes);
    XTranslateCoordinates(state->display, state->window, state->Root(), 0, 0, &place.x, &place.y,
                          &child);
    place.width = attributes.width;
    place.height = attributes.height;
    return place;
}

int XClient::ScreenWidth() {
    return DisplayWidth(state->display, 0);
}
int XClient::ScreenHeight() {
    return DisplayHeight(state->display, 0);
}

std::string XClient::Title() {
    return state->Property(state->window, "_NET_WM_NAME");
}

int XClient::IconWords() {
    return static_cast<int>(state->Property(state->window, "_NET_WM_ICON").size() / 4);
}

void XClient::MoveWindow(int x, int y) {
    XMoveWindow(state->display, state->window, x, y);
    state->Sync();
}

void XClient::UnmapWindow() {
    XUnmapWindow(state->display, state->window);
    state->Sync();
}

void XClient::MapWindow() {
    XMapWindow(state->display, state->window);
    state->Sync();
}

void XClient::AskToClose() {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = state->window;
    event.xclient.message_type = state->AtomOf("WM_PROTOCOLS");
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(state->AtomOf("WM_DELETE_WINDOW"));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(state->display, state->window, False, NoEventMask, &event);
    state->Sync();
}

int XClient::Bells() {
    state->Sync();
    XEvent event;
    while (XCheckTypedEvent(state->display, state->xkbEventBase, &event))
        state->bells++;
    return state->bells;
}

bool XClient::ReadSelection(const char* selection, std::string& text) {
    const char* const target = "ZT_TEST_SELECTION";
    XConvertSelection(state->display, state->AtomOf(selection), state->AtomOf("UTF8_STRING"),
                      state->AtomOf(target), state->selectionWindow, CurrentTime);
    XEvent event;
    const bool answered = WaitFor([&] {
        return XCheckTypedWindowEvent(state->display, state->selectionWindow, SelectionNotify,
                                      &event) != 0;
    });
    if (!answered || event.xselection.property == 0) return false;
    text = state->Property(state->selectionWindow, target);
    return true;
}

}  // namespace zt::testing
