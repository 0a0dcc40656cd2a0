// The clipboard. It is owned, served and asked on the GTK thread only.
#include <gtk/gtk.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

#include "console/window/display_text.h"
#include "console/window/gtk_console.h"

namespace zt {

namespace {

// An owner of the clipboard that does not answer is given up; typing goes on.
constexpr std::chrono::seconds kClipboardLimit{5};

// A question to the owner of the clipboard, shared by the thread that waits and the GTK thread.
struct Request {
    std::mutex mutex;
    std::condition_variable changed;
    bool answered = false;
    bool hasText = false;
    std::string text;
};
using SharedRequest = std::shared_ptr<Request>;

GtkClipboard* Clipboard() {
    return gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
}

void OnText(GtkClipboard*, const char* utf8, void* data) {
    const std::unique_ptr<SharedRequest> request(static_cast<SharedRequest*>(data));
    std::lock_guard<std::mutex> guard((*request)->mutex);
    (*request)->answered = true;
    (*request)->hasText = utf8 != nullptr;
    if (utf8 != nullptr) (*request)->text = utf8;
    (*request)->changed.notify_all();
}

bool WaitForText(const SharedRequest& request, Westring& text) {
    std::unique_lock<std::mutex> guard(request->mutex);
    request->changed.wait_for(guard, kClipboardLimit, [&] { return request->answered; });
    if (!request->hasText) return false;
    text.AssignUtf8(request->text.c_str());
    return true;
}

}  // namespace

bool CConsole::GetClipboardText(Westring& text) {
    if (OnGtkThread()) {  // the toolkit goes on taking input while it waits
        char* utf8 = gtk_clipboard_wait_for_text(Clipboard());
        if (utf8 == nullptr) return false;
        text.AssignUtf8(utf8);
        g_free(utf8);
        return true;
    }
    const auto request = std::make_shared<Request>();
    calls.Post([request] {
        gtk_clipboard_request_text(Clipboard(), &OnText, new SharedRequest(request));
    });
    return WaitForText(request, text);
}

void CConsole::SetClipboardText(const Westring& text) {
    const std::string utf8 = DisplayText(text);
    if (OnGtkThread()) {
        OwnClipboards(utf8);
    } else {
        calls.Post([this, utf8] { OwnClipboards(utf8); });
    }
}

// The selection of the middle mouse button gets it too, as with every other program here.
void CConsole::OwnClipboards(const std::string& utf8) {
    const int length = static_cast<int>(utf8.size());
    gtk_clipboard_set_text(Clipboard(), utf8.c_str(), length);
    gtk_clipboard_set_text(gtk_clipboard_get(GDK_SELECTION_PRIMARY), utf8.c_str(), length);
}

}  // namespace zt
