// Construction, end, threads, title, icons and size of the window.
#include "console/window/gtk_console.h"

#include <gdkmm/display.h>
#include <gdkmm/pixbuf.h>
#include <gdkmm/screen.h>
#include <gtkmm/main.h>

#include <algorithm>
#include <vector>

#include "console/window/display_text.h"
#include "console/window/gdk_lock.h"
#include "foundation/string_lists.h"

namespace zt {

namespace {

constexpr int kStartColumns = 80;
constexpr int kStartRows = 25;
// The X protocol counts pixels with 15 bits; and the picture has to fit into the display's memory.
constexpr int kMaxSidePixels = 32767;
constexpr int kMaxPixels = 1 << 26;
constexpr int kMaxFontPoints = 128;

const Gdk::EventMask kPointerEvents =
    Gdk::BUTTON_MOTION_MASK | Gdk::BUTTON_PRESS_MASK | Gdk::BUTTON_RELEASE_MASK;

Glib::RefPtr<Gdk::Pixbuf> LoadIcon(const char* path) {
    try {
        return Gdk::Pixbuf::create_from_file(path);
    } catch (const Glib::Error&) {
        return {};
    }
}

}  // namespace

CConsole::CConsole()
    : Glib::ObjectBase("CConsole"),
      Gtk::Window(Gtk::WINDOW_TOPLEVEL),
      GridConsole(kStartColumns, kStartRows),
      area(*this),
      frames([this] { PaintFrame(); }) {
    GdkLock gdk;
    add_events(kPointerEvents | Gdk::KEY_PRESS_MASK | Gdk::KEY_RELEASE_MASK);
    set_title("Zanthe");
    RebuildWindow(LoadFont(), columns, rows);
    set_resizable(false);
    area.set_double_buffered(false);
    // The toolkit swallows the first motion after a press when only the window around the one
    // under the pointer asked for it.
    area.add_events(kPointerEvents);
    add(area);
    area.show();
    thread = std::thread([this] { RunGtk(); });
}

CConsole::~CConsole() {
    calls.Post([] { Gtk::Main::quit(); });
    thread.join();
    GdkLock gdk;
    if (imContext != nullptr) g_object_unref(imContext);
    hide();
}

void CConsole::RunGtk() {
    gtkThreadId = std::this_thread::get_id();
    std::thread blink([this] { RunBlink(); });
    gdk_threads_enter();
    show();
    Gtk::Main::run();
    gdk_threads_leave();
    stopBlink.Set();
    blink.join();
}

void CConsole::RunBlink() {
    while (stopBlink.Wait(kBlinkMilliseconds) != 0)
        BlinkTick();
}

void CConsole::BlinkTick() {
    int phase = blinkPhase.load(std::memory_order_relaxed);
    if (phase == 0 || phase == kShownPhases) {
        CursorView view;
        gdk_threads_enter();
        ViewCursor(view);
        if (view.sizePercent > 0) area.ExposeCell(view.column, view.row);
        gdk_threads_leave();
    }
    // A reset meanwhile must stand.
    blinkPhase.compare_exchange_strong(phase, (phase + 1) % kBlinkPhases,
                                       std::memory_order_relaxed);
}

bool CConsole::ReadEvent(TEvent& event, int timeoutMilliseconds) {
    // Whoever waits for input has written all there is to see.
    if (timeoutMilliseconds != 0 && events.Pending() == 0) {
        std::lock_guard<std::recursive_mutex> guard(gridLock);
        if (!pending.IsEmpty()) frames.Request(FrameTimer::Urgency::kNow);
    }
    if (!events.Pop(event, timeoutMilliseconds)) return false;
    if (event.code == CloseEvent().code) closing = false;
    return true;
}

int CConsole::PendingEvents() {
    return events.Pending();
}

void CConsole::SetRemoteHost(const Estring& host) {
    remoteHost = host;
}

void CConsole::SetTitle(const Westring& title) {
    std::string text = DisplayText(title);
    if (!remoteHost.IsEmpty()) text = std::string("Remote (") + remoteHost.c_str() + ") " + text;
    calls.Post([this, text] { set_title(text); });
}

void CConsole::Beep() {
    calls.Post([this] { get_display()->beep(); });
}

void CConsole::SetIconFromFile(const Estring& path) {
    EstringStore paths;
    paths.Append(new Estring(path));
    SetIconList(paths);
}

void CConsole::SetIconList(EstringStore& paths) {
    std::vector<Glib::RefPtr<Gdk::Pixbuf>> icons;
    for (int i = 0; i < paths.Count(); i++) {
        const Glib::RefPtr<Gdk::Pixbuf> icon = LoadIcon(paths.At(i)->c_str());
        if (icon) icons.push_back(icon);
    }
    calls.Post([this, icons] { ApplyIcons(icons); });
}

void CConsole::ApplyIcons(const std::vector<Glib::RefPtr<Gdk::Pixbuf>>& icons) {
    set_icon_list(icons);
}

std::unique_ptr<CellFont> CConsole::LoadFont() {
    const Glib::RefPtr<Pango::Context> context = create_pango_context();
    return std::make_unique<CellFont>(context->gobj(), fontFamily.c_str(), fontSize);
}

int CConsole::Resize(int newColumns, int newRows, const char* family, int size) {
    GdkLock gdk;
    if (family != nullptr && family[0] != 0) fontFamily = family;
    if (size > 0) fontSize = std::min(size, kMaxFontPoints);
    RebuildWindow(LoadFont(), newColumns, newRows);
    return columns == newColumns && rows == newRows ? 1 : 0;
}

void CConsole::RebuildWindow(std::unique_ptr<CellFont> font, int newColumns, int newRows) {
    const int cellWidth = font->CellWidth();
    const int cellHeight = font->CellHeight();
    newColumns = std::clamp(newColumns, 1, kMaxSidePixels / cellWidth);
    newRows = std::min(
        {newRows, kMaxSidePixels / cellHeight, kMaxPixels / (newColumns * cellWidth * cellHeight)});
    {
        std::lock_guard<std::recursive_mutex> guard(gridLock);
        frozenCells.clear();
        Rebuild(newColumns, newRows);
        pending.Reset(columns, rows);
        pending.Add(CellRect{0, 0, columns, rows});
        area.SetGrid(columns, rows, std::move(font));
        frames.Request(FrameTimer::Urgency::kGather);
    }
    const int width = cellWidth * columns;
    const int height = cellHeight * rows;
    resize(width, height);
    KeepOnScreen(width, height);
}

void CConsole::KeepOnScreen(int width, int height) {
    const Glib::RefPtr<Gdk::Screen> screen = get_screen();
    int left;
    int top;
    get_position(left, top);
    int newLeft = left;
    int newTop = top;
    if (left + width > screen->get_width()) newLeft = std::max(screen->get_width() - width, 0);
    if (top + height > screen->get_height()) newTop = std::max(screen->get_height() - height, 0);
    if (newLeft != left || newTop != top) move(newLeft, newTop);
}

}  // namespace zt
