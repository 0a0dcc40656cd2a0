// A test with the console's window open on the tests' X server, and a user before it.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "console/window/window_console.h"
#include "wait_for.h"
#include "x_client.h"
#include "x_server.h"

namespace zt::testing {

class WindowTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    GridConsole& Console() { return window->Console(); }

    // The next event that is not only of modifiers; false when none came.
    bool NextEvent(TEvent& event);
    bool NextEventOfKind(EventKind kind, TEvent& event);
    // The code of the next key, or -1.
    int NextKey();
    // Every event that is there when the server and the window have done their work.
    void DropEvents();

    int CellWidth();
    int CellHeight();
    Picture GrabPainted();
    // The part of a picture that one cell takes, and its background (the commonest colour).
    Picture CellPicture(const Picture& picture, int column, int row);
    void MoveToCell(int column, int row);

    std::unique_ptr<WindowConsole> window;
    std::unique_ptr<XClient> user;
};

// The colours of a picture, each once.
bool HasColour(const Picture& picture, Rgb colour);
bool IsAll(const Picture& picture, Rgb colour);

}  // namespace zt::testing
