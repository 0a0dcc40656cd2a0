// The console as a window: a Gtk::Window with one drawing area, over the shared grid. It has two
// threads besides its user's: the GTK thread takes the input and paints, the blink thread ticks
// the cursor. The public operations are for the first thread, which never waits for painting; the
// overrides of the toolkit run on the GTK thread, which never waits for the first.
//
// Locks: the GDK lock first, the grid's lock inside it, the small locks of the timers innermost.
#pragma once

#include <gtkmm/window.h>

#include <atomic>
#include <thread>

#include "console/event_queue.h"
#include "console/grid_console.h"
#include "console/input_routing.h"
#include "console/key_translation.h"
#include "console/window/drawing_area.h"
#include "console/window/frame_timer.h"
#include "console/window/gtk_call_queue.h"
#include "foundation/thread_event.h"

typedef struct _GtkIMContext GtkIMContext;

namespace zt {

class CConsole : public Gtk::Window, public GridConsole {
public:
    // Under InstallGdkLock, with the toolkit initialised. The window opens by itself.
    CConsole();
    ~CConsole() override;

    bool ReadEvent(TEvent& event, int timeoutMilliseconds) override;
    int PendingEvents() override;
    bool IsClosing() override { return closing; }

    void SetTitle(const Westring& title) override;
    void SetRemoteHost(const Estring& host);
    void SetIconList(EstringStore& paths) override;
    void SetIconFromFile(const Estring& path);
    void Beep() override;
    int Resize(int columns, int rows, const char* fontFamily, int fontSize) override;
    bool GetClipboardText(Westring& text) override;
    void SetClipboardText(const Westring& text) override;

    void WaitPainted();
    int64_t CellsPainted() const { return area.CellsPainted(); }

    // For the drawing area: false when the cursor is not to be seen now.
    bool ViewCursor(CursorView& view);

protected:
    bool on_button_press_event(GdkEventButton* event) override;
    bool on_button_release_event(GdkEventButton* event) override;
    bool on_scroll_event(GdkEventScroll* event) override;
    bool on_motion_notify_event(GdkEventMotion* event) override;
    bool on_delete_event(GdkEventAny* event) override;
    bool on_key_press_event(GdkEventKey* event) override;
    bool on_key_release_event(GdkEventKey* event) override;
    bool on_focus_in_event(GdkEventFocus* event) override;
    bool on_focus_out_event(GdkEventFocus* event) override;
    bool on_map_event(GdkEventAny* event) override;
    bool on_unmap_event(GdkEventAny* event) override;

    void CellsChanged(const CellRect& rect) override;
    bool RowsMoved(const CellRect& rect, int lines, Attribute attribute, bool frozen) override;
    void CursorChanged(int oldColumn, int oldRow) override;
    void FreezeChanged(bool frozen) override;

private:
    static constexpr int kBlinkPhases = 10;
    static constexpr int kShownPhases = 5;  // the first of them show the cursor
    static constexpr uint32_t kBlinkMilliseconds = 100;

    // Threads.
    void RunGtk();
    void RunBlink();
    void BlinkTick();

    // Size and font.
    std::unique_ptr<CellFont> LoadFont();
    void RebuildWindow(std::unique_ptr<CellFont> font, int newColumns, int newRows);
    void KeepOnScreen(int width, int height);

    // Painting.
    void PaintFrame();
    bool TakeJob();
    void PaintAndSync();
    void CopyPendingRow(int row, const Cell* source);

    // Input.
    bool OnKey(GdkEventKey* event);
    void NeedInputMethod();
    void OnCommit(const char* utf8);
    PointerInput Pointer(double x, double y, guint state, guint button) const;
    void RestartBlink() { blinkPhase.store(0, std::memory_order_relaxed); }
    static void CommitHandler(GtkIMContext*, char* utf8, void* self);

    void ApplyIcons(const std::vector<Glib::RefPtr<Gdk::Pixbuf>>& icons);
    void OwnClipboards(const std::string& utf8);
    bool OnGtkThread() const { return std::this_thread::get_id() == gtkThreadId.load(); }

    std::atomic<std::thread::id> gtkThreadId;
    CConsoleDrawingArea area;
    int fontSize = 12;
    Estring fontFamily = "DejaVu Sans Mono";
    std::atomic<int> blinkPhase{0};
    CThreadEvent stopBlink;
    bool hidden = false;  // GTK thread only
    Estring remoteHost;
    CEventQueue events;
    std::atomic<bool> closing{false};   // the close button was pressed, its key is not read yet
    GtkIMContext* imContext = nullptr;  // GTK thread only

    PendingPaint pending;           // under gridLock
    std::vector<Cell> frozenCells;  // under gridLock: the screen as it was when a freeze began
    PaintJob job;                   // GTK thread only
    GtkCallQueue calls;
    FrameTimer frames;
    std::thread thread;
};

}  // namespace zt
