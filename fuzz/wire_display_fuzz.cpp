// The display side of the wire. The first byte tells how the rest is cut; the rest is what a far
// end sends. Behind the handshake it must make no difference how the bytes are cut.
#include <fcntl.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "console/grid_console.h"
#include "console/wire/remote_connection.h"

namespace {

class BareConsole : public zt::GridConsole {
public:
    BareConsole() : GridConsole(40, 12) {}
    bool ReadEvent(zt::TEvent&, int) override { return false; }
    int PendingEvents() override { return 0; }
    void SetTitle(const zt::Westring& text) override { title = text; }
    void SetIconList(zt::EstringStore&) override {}
    void Beep() override { beeps++; }
    int Resize(int newColumns, int newRows, const char*, int) override {
        // Large grids are slow to fuzz and no different.
        if (newColumns * newRows > 20000) return 0;
        Rebuild(newColumns, newRows);
        return 1;
    }
    bool GetClipboardText(zt::Westring& text) override {
        text = clipboard;
        return true;
    }
    void SetClipboardText(const zt::Westring& text) override { clipboard = text; }

    bool HoldsTheSameAs(BareConsole& other) {
        if (columns != other.columns || rows != other.rows || beeps != other.beeps) return false;
        if (cursorColumn != other.cursorColumn || cursorRow != other.cursorRow) return false;
        if (std::wcscmp(title.c_str(), other.title.c_str()) != 0) return false;
        if (std::wcscmp(clipboard.c_str(), other.clipboard.c_str()) != 0) return false;
        return std::memcmp(RowCells(0), other.RowCells(0),
                           static_cast<size_t>(columns * rows) * sizeof(zt::Cell)) == 0;
    }

protected:
    void CellsChanged(const zt::CellRect&) override {}
    bool RowsMoved(const zt::CellRect&, int, zt::Attribute, bool) override { return false; }
    void CursorChanged(int, int) override {}

private:
    zt::Westring title;
    zt::Westring clipboard;
    int beeps = 0;
};

class NoSession : public zt::IDisplaySession {
    void Connected() override {}
    void StartEvents() override {}
    void ShowWrongVersion() override {}
};

struct Display {
    Display() : connection(console, session, open("/dev/null", O_WRONLY | O_CLOEXEC)) {}
    BareConsole console;
    NoSession session;
    zt::CRemoteConnection connection;
};

constexpr char kHandshake[] = "\xBF\xFB\0\0\1\0\0\0\4\0\1\0\0\0";
constexpr int kHandshakeBytes = sizeof(kHandshake) - 1;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    const bool isConnected = (data[0] & 1) != 0;
    uint32_t cut = data[0];
    const char* bytes = reinterpret_cast<const char*>(data + 1);
    const int count = static_cast<int>(size - 1);

    auto whole = std::make_unique<Display>();
    auto pieces = std::make_unique<Display>();
    if (isConnected) {
        whole->connection.Feed(kHandshake, kHandshakeBytes);
        pieces->connection.Feed(kHandshake, kHandshakeBytes);
    }
    whole->connection.Feed(bytes, count);
    for (int at = 0; at < count;) {
        cut = cut * 1664525 + 1013904223;
        const int n = std::min(count - at, static_cast<int>(cut >> 16 & 31) + 1);
        pieces->connection.Feed(bytes + at, n);
        at += n;
    }
    if (isConnected && !whole->console.HoldsTheSameAs(pieces->console)) abort();
    return 0;
}
