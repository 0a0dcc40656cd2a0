// Keys whose command does not stand yet, and codes that mean nothing: they are taken and change
// nothing, with no message.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

constexpr int32_t kReserved[] = {
    // Ctrl and a letter
    0xB,
    0xC,
    // Enter and the function keys, by their modifiers
    0x1003B,
    0x3005A,
    0x30066,
    0x10068,
    0x10069,
    0x1006E,
    0x3006E,
    0x10071,
    // Others with Ctrl
    0x10103,
    0x30103,
    // The menu's own codes
    0x100000,
    0x100193,
    0x100016,
    0x100017,
};

constexpr int32_t kMeaningless[] = {
    0,       0x10100, 0x16,    0x1A,    0x1E,    0x10085,  0x10086,  0x30087,    0x30088,
    0x10089, 0x3008B, 0x3008C, 0x30063, 0x30064, 0x30065,  0x30067,  0x3006D,    0x10066,
    0x10067, 0x20001, 0x2000C, 0x20015, 0x90039, 0x100011, 0x10FFFF, 0x7FFFFFFF,
};

class ReservedKeys : public testing::Test {
protected:
    ReservedKeys() { tree.Folder("d").File("f1").File("f2").Link("l", "f1"); }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.Path();
        return options;
    }
    void ChangesNothing(Session& session, const WireEvent& key) {
        const std::string before = session.Text();
        const std::string title = session.Title();
        session.Send(key);
        EXPECT_TRUE(session.WaitForQuiet()) << std::hex << key.code;
        EXPECT_EQ(before, session.Text()) << std::hex << key.code;
        EXPECT_EQ(title, session.Title()) << std::hex << key.code;
        EXPECT_TRUE(session.AtPrompt()) << std::hex << key.code;
    }

    FileTree tree;
};

TEST_F(ReservedKeys, ChangeNothing) {
    Session session(Here());
    session.Press({"Down", "Down"});
    for (const int32_t code : kReserved)
        ChangesNothing(session, {0, code, 0, 0, 0, 0});
    EXPECT_EQ(4u, tree.Names().size());
}

TEST_F(ReservedKeys, ChangeNothingWithBothPanelsOff) {
    Session session(Here());
    session.Press("Ctrl-o");
    for (const int32_t code : kReserved)
        ChangesNothing(session, {0, code, 0, 0, 0, 0});
}

TEST_F(ReservedKeys, KeepATypedLine) {
    Session session(Here());
    session.Type("text");
    for (const int32_t code : kReserved)
        ChangesNothing(session, {0, code, 0, 0, 0, 0});
}

TEST_F(ReservedKeys, AreNoneOfTheMeaninglessCodes) {
    Session session(Here());
    for (const int32_t code : kMeaningless)
        ChangesNothing(session, {0, code, 0, 0, 0, 0});
    ChangesNothing(session, {0, -5, 0, 0, 0, 0});
    ChangesNothing(session, {0, INT32_MIN, 0, 0, 0, 0});
    // Alt and a letter is for the quick search.
    ChangesNothing(session, {0, 0x1001E, 0, 0, 0, 'a'});
}

}  // namespace
}  // namespace zt::headless
