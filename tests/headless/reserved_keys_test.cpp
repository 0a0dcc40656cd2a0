// Keys whose command does not stand yet: they are taken and change nothing, with no message.
#include "tests/support/panel_view.h"

namespace zt::headless {
namespace {

TEST(ReservedKeys, ChangeNothing) {
    FileTree tree;
    tree.Folder("d").File("f1").File("f2");
    SessionOptions options;
    options.directory = tree.Path();
    Session session(options);
    session.Press({"Down", "Down"});
    const std::string before = session.Text();
    const int32_t codes[] = {
        1,       2,       3,       0xB,     0xC,     0x11,    0x14,     0x17,     0x19,
        0x1001C, 0x1003B, 0x1003C, 0x30055, 0x1003D, 0x1006A, 0x1003E,  0x1006B,  0x1003F,
        0x10040, 0x10041, 0x10042, 0x10068, 0x10069, 0x1006C, 0x1006D,  0x1006E,  0x3006E,
        0x1006F, 0x10071, 0x10094, 0x10098, 0x100A0, 0x10102, 0x10103,  0x30103,  0x1002B,
        0x30054, 0x30056, 0x30057, 0x30058, 0x30059, 0x3005A, 0x3005B,  0x30062,  0x30066,
        0x3006F, 0x1008E, 0x10090, 0x1004E, 0x10085, 0x10086, 0x40002B, 0x40002D,
    };
    for (const int32_t code : codes) {
        session.Send(WireEvent{0, code, 0, 0, 0, 0});
        EXPECT_TRUE(session.WaitForQuiet()) << std::hex << code;
        EXPECT_EQ(before, session.Text()) << std::hex << code;
    }
    EXPECT_EQ(3u, tree.Names().size());
}

}  // namespace
}  // namespace zt::headless
