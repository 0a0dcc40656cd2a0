// Opens the toolkit and the console's window.
#include "console/window/window_console.h"

#include <gtkmm/main.h>

#include "console/window/gdk_lock.h"
#include "console/window/gtk_console.h"

namespace zt {

namespace {

class GtkWindowConsole : public WindowConsole {
public:
    GtkWindowConsole(int& argc, char**& argv) : toolkit(argc, argv, true) {}

    GridConsole& Console() override { return window; }
    void SetRemoteHost(const Estring& host) override { window.SetRemoteHost(host); }
    void WaitPainted() override { window.WaitPainted(); }
    int64_t CellsPainted() override { return window.CellsPainted(); }

private:
    Gtk::Main toolkit;
    CConsole window;
};

}  // namespace

std::unique_ptr<WindowConsole> OpenWindowConsole(int& argc, char**& argv) {
    InstallGdkLock();
    // The toolkit's own start ends the process when there is no display; this one tells.
    if (!gtk_init_check(&argc, &argv)) return nullptr;
    return std::make_unique<GtkWindowConsole>(argc, argv);
}

}  // namespace zt
