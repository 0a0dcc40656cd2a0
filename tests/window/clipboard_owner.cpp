// Another program that owns the clipboard.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <poll.h>

#include <atomic>
#include <thread>

#include "x_client.h"

namespace zt::testing {

struct ClipboardOwner::State {
    ::Display* display = XOpenDisplay(nullptr);
    Window window = 0;
    std::string text;
    bool silent = false;
    std::atomic<bool> stop{false};
    std::thread thread;

    void Answer(const XSelectionRequestEvent& request) {
        XEvent answer{};
        answer.xselection.type = SelectionNotify;
        answer.xselection.requestor = request.requestor;
        answer.xselection.selection = request.selection;
        answer.xselection.target = request.target;
        answer.xselection.time = request.time;
        if (request.target == XInternAtom(display, "UTF8_STRING", False)) {
            answer.xselection.property = request.property;
            XChangeProperty(display, request.requestor, request.property, request.target, 8,
                            PropModeReplace, reinterpret_cast<const unsigned char*>(text.data()),
                            static_cast<int>(text.size()));
        }
        XSendEvent(display, request.requestor, False, NoEventMask, &answer);
        XFlush(display);
    }

    void Serve() {
        constexpr int kPollMilliseconds = 10;
        pollfd connection{ConnectionNumber(display), POLLIN, 0};
        while (!stop) {
            while (XPending(display) > 0) {
                XEvent event;
                XNextEvent(display, &event);
                if (event.type == SelectionRequest && !silent) Answer(event.xselectionrequest);
            }
            poll(&connection, 1, kPollMilliseconds);
        }
    }
};

ClipboardOwner::ClipboardOwner(const std::string& text, bool silent)
    : state(std::make_unique<State>()) {
    state->text = text;
    state->silent = silent;
    state->window = XCreateSimpleWindow(state->display, DefaultRootWindow(state->display), -10, -10,
                                        1, 1, 0, 0, 0);
    XSetSelectionOwner(state->display, XInternAtom(state->display, "CLIPBOARD", False),
                       state->window, CurrentTime);
    XSync(state->display, False);
    state->thread = std::thread([this] { state->Serve(); });
}

ClipboardOwner::~ClipboardOwner() {
    state->stop = true;
    state->thread.join();
    XCloseDisplay(state->display);
}

}  // namespace zt::testing
