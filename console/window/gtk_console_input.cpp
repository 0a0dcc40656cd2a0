// Keys, input method, mouse and the window's own events, on the GTK thread.
#include <gtk/gtk.h>

#include "console/window/gtk_console.h"

namespace zt {

bool CConsole::on_key_press_event(GdkEventKey* event) {
    return OnKey(event);
}
bool CConsole::on_key_release_event(GdkEventKey* event) {
    return OnKey(event);
}

bool CConsole::OnKey(GdkEventKey* event) {
    NeedInputMethod();
    KeyStroke stroke;
    stroke.keyval = event->keyval;
    stroke.state = event->state;
    stroke.hardwareCode = event->hardware_keycode;
    stroke.isPress = event->type == GDK_KEY_PRESS;
    stroke.unicode = gdk_keyval_to_unicode(event->keyval);
    const KeyResult result = TranslateKey(stroke);
    if (result.outcome == KeyOutcome::kInputMethod) {
        gtk_im_context_filter_keypress(imContext, event);
    } else if (result.outcome == KeyOutcome::kQueue) {
        if (RouteKey(*this, events, result.event) == Routing::kQueued) RestartBlink();
    }
    return true;
}

void CConsole::NeedInputMethod() {
    if (imContext != nullptr) return;
    imContext = gtk_im_multicontext_new();
    gtk_im_context_set_client_window(imContext, get_window()->gobj());
    g_signal_connect(imContext, "commit", G_CALLBACK(&CConsole::CommitHandler), this);
    gtk_im_context_focus_in(imContext);
}

void CConsole::CommitHandler(GtkIMContext*, char* utf8, void* self) {
    static_cast<CConsole*>(self)->OnCommit(utf8);
}

void CConsole::OnCommit(const char* utf8) {
    if (RouteText(*this, events, utf8) == Routing::kQueued) RestartBlink();
}

bool CConsole::on_focus_in_event(GdkEventFocus* event) {
    if (imContext != nullptr) gtk_im_context_focus_in(imContext);
    return Gtk::Window::on_focus_in_event(event);
}

bool CConsole::on_focus_out_event(GdkEventFocus* event) {
    if (imContext != nullptr) gtk_im_context_focus_out(imContext);
    return Gtk::Window::on_focus_out_event(event);
}

PointerInput CConsole::Pointer(double x, double y, guint state, guint button) const {
    PointerInput pointer;
    pointer.column = PixelToCell(x, area.Font().CellWidth());
    pointer.row = PixelToCell(y, area.Font().CellHeight());
    pointer.state = state;
    pointer.button = button;
    return pointer;
}

bool CConsole::on_button_press_event(GdkEventButton* event) {
    RoutePress(*this, events, Pointer(event->x, event->y, event->state, event->button),
               event->type == GDK_2BUTTON_PRESS);
    return true;
}

bool CConsole::on_button_release_event(GdkEventButton* event) {
    Westring selected;
    bool hasText = false;
    RouteRelease(*this, events, Pointer(event->x, event->y, event->state, event->button), selected,
                 hasText);
    if (hasText) SetClipboardText(selected);
    return true;
}

bool CConsole::on_motion_notify_event(GdkEventMotion* event) {
    const PointerInput pointer = Pointer(event->x, event->y, event->state, 0);
    return RouteMotion(*this, events, pointer) != Routing::kTerminal;
}

bool CConsole::on_scroll_event(GdkEventScroll* event) {
    if (event->direction != GDK_SCROLL_UP && event->direction != GDK_SCROLL_DOWN) return true;
    RouteWheel(*this, events, Pointer(event->x, event->y, event->state, 0),
               event->direction == GDK_SCROLL_UP);
    return true;
}

bool CConsole::on_delete_event(GdkEventAny*) {
    closing = true;
    events.Push(CloseEvent());
    return true;
}

// A window that is not on the screen is not painted; what changes meanwhile is painted when it
// comes back.
bool CConsole::on_unmap_event(GdkEventAny* event) {
    if (!hidden) {
        hidden = true;
        BeginUpdate();
    }
    return Gtk::Window::on_unmap_event(event);
}

bool CConsole::on_map_event(GdkEventAny* event) {
    if (hidden) {
        hidden = false;
        EndUpdate();
    }
    frames.Request(FrameTimer::Urgency::kNow);
    return Gtk::Window::on_map_event(event);
}

}  // namespace zt
