// Opening the window, reading its events and its pixels.
#include "window_fixture.h"

#include "console/key_codes.h"

namespace zt::testing {

namespace {

constexpr int kEventLimitMilliseconds = 20000;

}  // namespace

void WindowTest::SetUp() {
    ASSERT_TRUE(TheXServer().IsRunning()) << "Xvfb did not start";
    int argc = 0;
    char* nothing[] = {nullptr};
    char** argv = nothing;
    user = std::make_unique<XClient>();
    window = OpenWindowConsole(argc, argv);
    ASSERT_NE(window, nullptr);
    ASSERT_TRUE(WaitFor([this] { return user->FindWindow(); }));
    window->WaitPainted();
    user->MoveTo(0, 0);
    user->Focus();
}

void WindowTest::TearDown() {
    user.reset();
    window.reset();
}

bool WindowTest::NextEvent(TEvent& event) {
    while (Console().ReadEvent(event, kEventLimitMilliseconds)) {
        const bool isKey = event.kind == static_cast<int32_t>(EventKind::kKey);
        if (!isKey || event.code != kKeyModifiersChanged) return true;
    }
    return false;
}

bool WindowTest::NextEventOfKind(EventKind kind, TEvent& event) {
    while (NextEvent(event)) {
        if (event.kind == static_cast<int32_t>(kind)) return true;
    }
    return false;
}

int WindowTest::NextKey() {
    TEvent event;
    return NextEventOfKind(EventKind::kKey, event) ? event.code : -1;
}

void WindowTest::DropEvents() {
    window->WaitPainted();
    TEvent event;
    while (Console().ReadEvent(event, 0)) {
    }
}

int WindowTest::CellWidth() {
    int columns;
    int rows;
    Console().GetSize(columns, rows);
    return user->Place().width / columns;
}

int WindowTest::CellHeight() {
    int columns;
    int rows;
    Console().GetSize(columns, rows);
    return user->Place().height / rows;
}

Picture WindowTest::GrabPainted() {
    window->WaitPainted();
    return user->Grab();
}

Picture WindowTest::CellPicture(const Picture& picture, int column, int row) {
    Picture cell;
    cell.width = CellWidth();
    cell.height = CellHeight();
    for (int y = 0; y < cell.height; y++) {
        for (int x = 0; x < cell.width; x++) {
            cell.pixels.push_back(picture.At(column * cell.width + x, row * cell.height + y));
        }
    }
    return cell;
}

void WindowTest::MoveToCell(int column, int row) {
    const int width = CellWidth();
    const int height = CellHeight();
    user->MoveTo(column * width + width / 2, row * height + height / 2);
}

bool HasColour(const Picture& picture, Rgb colour) {
    for (const Rgb& pixel : picture.pixels) {
        if (pixel == colour) return true;
    }
    return false;
}

bool IsAll(const Picture& picture, Rgb colour) {
    for (const Rgb& pixel : picture.pixels) {
        if (!(pixel == colour)) return false;
    }
    return !picture.pixels.empty();
}

}  // namespace zt::testing
