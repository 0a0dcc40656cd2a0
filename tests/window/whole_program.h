// A test with the whole program in its window, on an X server of the test's own, and a user before
// it with keyboard and mouse.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/child_process.h"
#include "tests/support/file_tree.h"
#include "wait_for.h"
#include "x_client.h"
#include "x_server.h"

namespace zt::testing {

class WholeProgramTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // In its home, with these settings, until both panels can be there.
    void Start(const std::string& settings);
    // Until the panels are there again: while a program runs the title is its command.
    [[nodiscard]] bool WaitForPanels();
    [[nodiscard]] bool WaitForFile(const std::string& name);
    // Presses the keys of these ASCII characters, of which "<" is on no keyboard in one place; a
    // line feed is Enter.
    void Type(const std::string& text);
    // Quits with the keyboard: whatever was asked for before has then been done.
    void Quit();

    XServer server;
    std::string displayBefore;
    headless::FileTree home;
    headless::ChildProcess process;
    std::unique_ptr<XClient> user;
};

}  // namespace zt::testing
