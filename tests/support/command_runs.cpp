#include "tests/support/command_runs.h"

namespace zt::headless {

testing::AssertionResult WaitForPanels(Session& session) {
    const auto ended = [&] { return session.Title().rfind("Zanthe: /", 0) == 0; };
    const testing::AssertionResult waited = session.WaitFor(ended, "the panels' title");
    return waited ? session.WaitForQuiet() : waited;
}

void RunTyped(Session& session, std::string_view command) {
    session.Type(command);
    session.Press("Enter");
    EXPECT_TRUE(WaitForPanels(session)) << command;
}

testing::AssertionResult StartTyped(Session& session, std::string_view command,
                                    std::string_view printed) {
    session.Type(command);
    session.Send(KeyPress("Enter"));
    const testing::AssertionResult waited = session.WaitForText(printed);
    return waited ? session.WaitForQuiet() : waited;
}

std::string BehindThePanels(Session& session) {
    session.Press("Ctrl-o");
    const std::string text = session.Text();
    session.Press("Ctrl-o");
    return text;
}

}  // namespace zt::headless
