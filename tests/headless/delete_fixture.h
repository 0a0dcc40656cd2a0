// A folder in the left panel from which things are deleted, and a settings file of the test's own.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/headless/box_rows.h"
#include "tests/support/panel_view.h"

namespace zt::headless {

// Bits of the setting: a set one switches its question off.
inline constexpr int kNoFirst = 1, kNoGroup = 2, kNoTree = 4, kNoWord = 16;

class DeleteFixture : public testing::Test {
protected:
    DeleteFixture() { tree.Folder("top"); }

    // Names are those below "top".
    std::string In(std::string_view name) const { return "top/" + std::string(name); }
    void File(std::string_view name, std::string_view content = "") {
        tree.File(In(name), content);
    }
    std::vector<std::string> Names(std::string_view folder = "") const {
        return tree.Names(folder.empty() ? "top" : In(folder));
    }
    bool Exists(std::string_view name) const { return tree.Exists(In(name)); }

    SessionOptions Here(int confirmations = 0) {
        home.File(".ztx/zt.ini",
                  "Confirmations=" + std::to_string(confirmations) + "\nHidden=on\n");
        SessionOptions options;
        options.directory = tree.PathOf("top");
        options.home = home.Path();
        return options;
    }
    // As one who may be refused things; all of the tree is his.
    SessionOptions AsOrdinaryUser(int confirmations = 0) {
        SessionOptions options = Here(confirmations);
        tree.GiveTo(OrdinaryUser());
        home.GiveTo(OrdinaryUser());
        options.user = OrdinaryUser();
        return options;
    }

    // Puts the cursor of the left panel on a name, by its place among the names that show. A link
    // may show what it points to behind its name.
    static void GoToName(Session& session, const std::string& name) {
        const std::vector<std::string> names = PanelView(session, 0).Names();
        const auto at = std::find_if(names.begin(), names.end(), [&](const std::string& shown) {
            return shown == name || shown.starts_with(name + " »");
        });
        ASSERT_TRUE(at != names.end()) << name << " is not shown:\n" << session.Text();
        session.Press("Home");
        session.Press("Down", static_cast<int>(at - names.begin()));
        ASSERT_EQ(*at, PanelView(session, 0).BarName());
    }
    static void Tag(Session& session, const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            GoToName(session, name);
            session.Press("Ins");
        }
        session.Press("Home");
    }
    static bool IsTagged(const Session& session, const std::string& name) {
        const uint8_t attribute = PanelView(session, 0).AttributeOf(name);
        return attribute == kTagged || attribute == kHighlightTagged;
    }
    // The panels are there and no box or window of the deletion is.
    static testing::AssertionResult IsOver(const Session& session) {
        for (const char* text : {"Deleting the file", "Cancel", "Delete tree?"}) {
            if (!session.AtPrompt() || Shows(session, text)) {
                return testing::AssertionFailure() << "not back at the panels:\n" << session.Text();
            }
        }
        return testing::AssertionSuccess();
    }

    FileTree tree;
    FileTree home;
};

}  // namespace zt::headless
