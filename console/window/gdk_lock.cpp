// The one lock over all use of the toolkit.
#include "console/window/gdk_lock.h"

#include <gdk/gdk.h>
#include <glib.h>

#include "foundation/recursive_mutex.h"

namespace zt {

namespace {

// The toolkit calls its lock functions without an argument, so the lock has to be reached from
// everywhere. It lives as long as the process: the toolkit is never told to let go of it.
CRecursiveMutex& Mutex() {
    static CRecursiveMutex* mutex = new CRecursiveMutex;
    return *mutex;
}

void Lock() {
    Mutex().Lock();
}
void Unlock() {
    Mutex().Unlock();
}

}  // namespace

void InstallGdkLock() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    gdk_threads_set_lock_functions(&Lock, &Unlock);
    gdk_threads_init();
}

GdkLock::GdkLock() {
    gdk_threads_enter();
}

GdkLock::~GdkLock() {
    gdk_flush();
    gdk_threads_leave();
    g_main_context_wakeup(nullptr);
}

}  // namespace zt
