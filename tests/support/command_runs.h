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

// What is on the screen behind the panels.
std::string BehindThePanels(Session& session);

}  // namespace zt::headless
