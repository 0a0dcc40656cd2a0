// Opens the toolkit and the console's window.
#include "console/window/window_console.h"

#include <gtkmm/main.h>

#include "console/window/gdk_lock.h"
#include "console/window/gtk_console.h"

namespace zt {

namespace {

class GtkWindowConsole : public WindowConsole {
public:
    GridConsole& Console() override { return window; }
    void SetRemoteHost(const Estring& host) override { window.SetRemoteHost(host); }
    void WaitPainted() override { window.WaitPainted(); }
    int64_t CellsPainted() override { return window.CellsPainted(); }

private:
    CConsole window;
};

}  // namespace

std::unique_ptr<WindowConsole> OpenWindowConsole(int& argc, char**& argv) {
    InstallGdkLock();
    // The toolkit's own start ends the process when there is no display; this one tells.
    if (!gtk_init_check(&argc, &argv)) return nullptr;
    // Lives as long as the process: it cannot be started a second time.
    static const Gtk::Main* const toolkit = new Gtk::Main(argc, argv, true);
    return toolkit != nullptr ? std::make_unique<GtkWindowConsole>() : nullptr;
}

}  // namespace zt
