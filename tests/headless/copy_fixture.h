// Two folders in two panels, for the tests of copying and moving: src at the left, with the cursor,
// and dst at the right.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/panel_view.h"
#include "tests/support/tree_elsewhere.h"

namespace zt::headless {

// The type of the file system that is mounted at just this place; empty when none is.
inline std::string FileSystemOf(const std::string& mountPoint) {
    std::ifstream table("/etc/mtab");
    std::string device, place, type, rest;
    while (table >> device >> place >> type && std::getline(table, rest)) {
        if (place == mountPoint) return type;
    }
    return "";
}

class CopyFixture : public testing::Test {
protected:
    CopyFixture() { tree.Folder("src").Folder("dst"); }

    SessionOptions Here() {
        SessionOptions options;
        options.directory = tree.PathOf("src");
        options.arguments = {"-r", tree.PathOf("dst")};
        options.home = home.Path();
        return options;
    }
    // As one who may be refused things; all of the tree is his.
    SessionOptions AsOrdinaryUser() {
        tree.GiveTo(OrdinaryUser());
        home.GiveTo(OrdinaryUser());
        SessionOptions options = Here();
        options.user = OrdinaryUser();
        return options;
    }

    // As the left panel shows it: a link stands with its target.
    static std::string Shown(const Session& session, const std::string& name) {
        for (const std::string& shown : PanelView(session, 0).Names()) {
            if (shown == name || shown.starts_with(name + " \u00BB ")) return shown;
        }
        ADD_FAILURE() << name << " is not shown:\n" << session.Text();
        return name;
    }
    // Puts the cursor of the left panel on a name, by its place among the names that show.
    static void GoToName(Session& session, const std::string& name) {
        const std::string shown = Shown(session, name);
        const std::vector<std::string> names = PanelView(session, 0).Names();
        const auto at = std::find(names.begin(), names.end(), shown);
        session.Press("Home");
        session.Press("Down", static_cast<int>(at - names.begin()));
        ASSERT_EQ(shown, PanelView(session, 0).BarName());
    }
    static void Tag(Session& session, const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            GoToName(session, name);
            session.Press("Ins");
        }
        session.Press("Home");
    }
    static bool IsTagged(const Session& session, const std::string& name) {
        const uint8_t attribute = PanelView(session, 0).AttributeOf(Shown(session, name));
        return attribute == kTagged || attribute == kHighlightTagged;
    }
    // Takes the suggested destination away and types another one.
    static void Destination(Session& session, std::string_view text) {
        session.Press({"End", "Shift-Home", "Del"});
        if (!text.empty()) session.Type(text);
    }
    static bool Shows(const Session& session, std::string_view text) {
        return session.Text().find(text) != std::string::npos;
    }
    // The text of the box that is on the screen, its lines joined, or what the screen is.
    static testing::AssertionResult HasBox(const Session& session,
                                           std::initializer_list<std::string_view> texts) {
        for (const std::string_view text : texts) {
            if (!Shows(session, text)) {
                return testing::AssertionFailure() << "no \"" << text << "\" in\n"
                                                   << session.Text();
            }
        }
        return testing::AssertionSuccess();
    }
    static testing::AssertionResult IsOver(const Session& session) {
        if (session.AtPrompt() && !Shows(session, "Copying") && !Shows(session, "Cancel")) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << "not back at the panels:\n" << session.Text();
    }
    mode_t ModeOf(std::string_view name) const { return Look(name).st_mode & 07777; }
    time_t TimeOf(std::string_view name) const { return Look(name).st_mtime; }
    struct stat Look(std::string_view name) const {
        struct stat data {};
        EXPECT_EQ(0, lstat(tree.PathOf(name).c_str(), &data)) << name;
        return data;
    }
    std::string LinkText(std::string_view name) const {
        char text[4096];
        const ssize_t n = readlink(tree.PathOf(name).c_str(), text, sizeof text);
        return n < 0 ? "no link" : std::string(text, static_cast<size_t>(n));
    }
    // No half-made copy stands anywhere.
    testing::AssertionResult HasNoRemains(std::string_view folder) const {
        for (const std::string& name : tree.Names(folder)) {
            if (name.find("@@@") != std::string::npos) {
                return testing::AssertionFailure() << name << " was left in " << folder;
            }
        }
        return testing::AssertionSuccess();
    }

    FileTree tree;
    FileTree home;
};

}  // namespace zt::headless
