// Starting the whole program, and its keyboard.
#include "whole_program.h"

#include <X11/keysym.h>

#include <cctype>
#include <cstdlib>
#include <cstring>

namespace zt::testing {

void WholeProgramTest::SetUp() {
    ASSERT_TRUE(server.IsRunning()) << "Xvfb did not start";
    const char* before = getenv("DISPLAY");
    if (before) displayBefore = before;
    setenv("DISPLAY", server.Display().c_str(), 1);
    user = std::make_unique<XClient>();
}

void WholeProgramTest::TearDown() {
    process.Kill();
    user.reset();
    if (displayBefore.empty()) {
        unsetenv("DISPLAY");
    } else {
        setenv("DISPLAY", displayBefore.c_str(), 1);
    }
}

void WholeProgramTest::Start(const std::string& settings) {
    home.File(".ztx/zt.ini", settings);
    const char* path = getenv("ZT");
    headless::ProcessOptions options;
    options.program = path ? path : ZT_PROGRAM;
    options.directory = home.Path();
    options.environment = {
        {"HOME", home.Path()},     {"LANG", "C.UTF-8"},           {"TZ", "UTC"},
        {"PATH", "/usr/bin:/bin"}, {"DISPLAY", server.Display()}, {"SHELL", "/bin/sh"}};
    ASSERT_TRUE(process.Start(options));
    ASSERT_TRUE(WaitFor([&] {
        return process.HasEnded() ||
               (user->FindWindow() && user->Title() == "Zanthe: " + home.Path());
    }));
    ASSERT_FALSE(process.HasEnded()) << process.Status();
    user->Focus();
}

bool WholeProgramTest::WaitForPanels() {
    return WaitFor([&] { return user->Title() == "Zanthe: " + home.Path(); });
}

bool WholeProgramTest::WaitForFile(const std::string& name) {
    return WaitFor([&] { return home.Exists(name) || process.HasEnded(); }) && home.Exists(name);
}

void WholeProgramTest::Type(const std::string& text) {
    for (const char ch : text) {
        if (ch == '\n') {
            user->Tap(0, XK_Return);
            continue;
        }
        const bool isShifted = isupper(static_cast<unsigned char>(ch)) ||
                               std::strchr("~!@#$%^&*()_+{}|:\"<>?", ch) != nullptr;
        // The symbols of ASCII have their own codes for numbers.
        user->Tap(isShifted ? kHoldShift : 0, static_cast<unsigned char>(ch));
    }
}

void WholeProgramTest::Quit() {
    user->Tap(0, XK_F10);
    user->Tap(0, XK_Return);
    ASSERT_TRUE(WaitFor([&] { return process.HasEnded(); }));
    EXPECT_EQ(0, process.Status());
}

}  // namespace zt::testing
