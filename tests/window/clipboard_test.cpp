// The clipboard, shared with other programs.
#include <X11/keysym.h>

#include <atomic>
#include <thread>

#include "window_fixture.h"

namespace zt::testing {

class WindowClipboard : public WindowTest {
protected:
    std::string Read() {
        Westring text;
        return Console().GetClipboardText(text) ? text.ToUtf8().c_str() : "(nothing)";
    }
};

TEST_F(WindowClipboard, GivesItsTextToOtherPrograms) {
    Console().SetClipboardText(L"na\u00efve \u4e2d \U0001F600\nsecond line");
    std::string text;
    ASSERT_TRUE(WaitFor([&] { return user->ReadSelection("CLIPBOARD", text); }));
    EXPECT_EQ(text, "na\u00efve \u4e2d \U0001F600\nsecond line");
    EXPECT_EQ(Read(), text) << "and to itself";
}

TEST_F(WindowClipboard, GivesBytesInTheCodePage) {
    Console().SetCodePage(850);
    Console().SetClipboardBytes("\x84");
    EXPECT_EQ(Read(), "\u00e4");
}

TEST_F(WindowClipboard, TakesTheTextOfOtherPrograms) {
    const ClipboardOwner other("\u00fcber \u0416");
    EXPECT_EQ(Read(), "\u00fcber \u0416");
}

TEST_F(WindowClipboard, TakesALongText) {
    std::string longText;
    for (int i = 0; longText.size() < 100000; i++)
        longText += "line " + std::to_string(i) + "\n";
    const ClipboardOwner other(longText);
    EXPECT_EQ(Read(), longText);
}

TEST_F(WindowClipboard, GivesNothingWhenNobodyOwnsIt) {
    EXPECT_EQ(Read(), "(nothing)");
}

TEST_F(WindowClipboard, NeverHandsOutInvalidUtf8) {
    const wchar_t strange[] = {L'a', 0x1100E4, static_cast<wchar_t>(0x7FFFFFFF), 0xD800, L'z', 0};
    Console().SetClipboardText(strange);
    std::string text;
    ASSERT_TRUE(WaitFor([&] { return user->ReadSelection("CLIPBOARD", text); }));
    EXPECT_EQ(text, "a\u00e4\uFFFD\uFFFDz") << "a byte of a file name stands as it shows";
}

// An embedded terminal pastes on the thread that takes the keys.
class PastingSink : public ITerminalSink {
public:
    explicit PastingSink(GridConsole& consoleArgument) : console(consoleArgument) {}
    void TakeKey(int32_t code, int32_t, int32_t) override {
        constexpr int32_t kShiftInsert = 0x30052;
        Westring text;
        if (code != kShiftInsert || !console.GetClipboardText(text)) return;
        pasted = text.ToUtf8().c_str();
        done = true;
    }
    void TakeCharacter(int32_t) override {}
    void TakeText(const char*) override {}

    GridConsole& console;
    std::string pasted;
    std::atomic<bool> done{false};
};

TEST_F(WindowClipboard, IsReadOnTheThreadOfTheKeysToo) {
    PastingSink sink(Console());
    Console().SetTerminalSink(&sink);
    {
        const ClipboardOwner other("from elsewhere");
        user->Tap(kHoldShift, XK_Insert);
        EXPECT_TRUE(WaitFor([&] { return sink.done.load(); }));
    }
    Console().SetTerminalSink(nullptr);
    EXPECT_EQ(sink.pasted, "from elsewhere");
}

TEST_F(WindowClipboard, TakesInputWhileAnOwnerIsSilent) {
    const ClipboardOwner other("", true);
    std::atomic<bool> done{false};
    bool gotText = true;
    std::thread reader([&] {
        Westring text;
        gotText = Console().GetClipboardText(text);
        done = true;
    });
    user->Tap(0, XK_F5);
    EXPECT_EQ(NextKey(), 0x1003F);
    EXPECT_FALSE(done) << "the key came while the clipboard was being waited for";
    reader.join();
    EXPECT_FALSE(gotText);
}

}  // namespace zt::testing
