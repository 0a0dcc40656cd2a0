// The one lock over all use of the toolkit: the GTK thread holds it except while it sleeps.
// Recursive. May be taken before the grid's lock, never while holding it.
#pragma once

namespace zt {

// Tells the toolkit to use the lock. Before anything else of the toolkit is called; calls after
// the first do nothing.
void InstallGdkLock();

// Holds the lock for a scope. On leaving it sends what is buffered for the display, and wakes the
// GTK thread for what arrived in between, as it sleeps on the connection itself.
class GdkLock {
public:
    GdkLock();
    ~GdkLock();
    GdkLock(const GdkLock&) = delete;
    GdkLock& operator=(const GdkLock&) = delete;
};

}  // namespace zt
