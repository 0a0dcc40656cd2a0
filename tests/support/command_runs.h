// Programs that run in the console of a session: starting them, and waiting for their end.
#pragma once

#include <string_view>

#include "tests/support/session.h"

namespace zt::headless {

// Until the panels are there again: while a program runs the title of the window is its command.
[[nodiscard]] testing::AssertionResult WaitForPanels(Session& session);

// Types the command and waits for its end; a failure fails the test.
void RunTyped(Session& session, std::string_view command);

// Types the command and waits until it has printed the text, which it goes on behind.
[[nodiscard]] testing::AssertionResult StartTyped(Session& session, std::string_view command,
                                                  std::string_view printed);

// A session with a home and a tree of files of its own, whose commands the plain shell runs.
class CommandRuns : public testing::Test {
protected:
    SessionOptions InTree() const {
        SessionOptions options;
        options.directory = tree.Path();
        options.home = home.Path();
        options.environment["SHELL"] = "/bin/sh";
        return options;
    }

    FileTree home;
    FileTree tree;
};

// What is on the screen behind the panels.
std::string BehindThePanels(Session& session);

}  // namespace zt::headless
