// Two panels over a fake console and a real tree of files, with default settings in UTC.
#pragma once

#include <ctime>
#include <memory>
#include <vector>

#include "foundation/locale_formats.h"
#include "foundation/settings.h"
#include "panels/navigation.h"
#include "panels/panel_drawing.h"
#include "panels/panel_pair.h"
#include "panels/panel_window.h"
#include "tests/console/fake_console.h"
#include "tests/panels/temporary_tree.h"
#include "ui/clock_window.h"

namespace zt {

class PanelFixture : public testing::Test {
protected:
    explicit PanelFixture(int columns = 80, int rows = 25)
        : screen(std::make_unique<FakeConsole>(columns, rows)),
          panels(std::make_unique<PanelPair>()),
          left(panels->panel[0]),
          right(panels->panel[1]) {
        setenv("TZ", "UTC", 1);
        tzset();
        settings = Settings();
        localeFormats = LocaleFormats();
        workingDirectory_ = std::filesystem::current_path();
    }
    ~PanelFixture() override {
        DeleteClockWindow();
        panels.reset();
        screen.reset();
        settings = Settings();
        std::error_code ignored;
        std::filesystem::current_path(workingDirectory_, ignored);
    }

    // Both panels in the tree's folder, or in folders of it, on the screen.
    void Start(const std::string& leftFolder = "", const std::string& rightFolder = "") {
        left.path = tree.Wide(leftFolder);
        right.path = tree.Wide(rightFolder);
        for (int side = 0; side < 2; ++side)
            InitFromSettings(panels->panel[side], side);
    }
    void StartWith(int style) {
        settings.sides[0].style = settings.sides[1].style = style;
        Start();
    }
    void ManyFiles(int count) {
        for (int i = 0; i < count; ++i) {
            char name[32];
            snprintf(name, sizeof name, "f%05d", i);
            tree.File(name);
        }
    }
    // What the main loop does before it waits for a key.
    void Pass() {
        RefreshPanels(*panels);
        DrawCursorBar(panels->Active());
        DrawStatusRow(panels->Inactive());
    }

    static std::vector<std::string> Names(const CPanel& panel) {
        std::vector<std::string> names;
        for (int i = 0; i < panel.Count(); ++i) {
            names.push_back(NameToBytes(panel.entries.At(i)->name).c_str());
        }
        return names;
    }
    static std::string CurrentName(const CPanel& panel) {
        return panel.Current() ? NameToBytes(panel.Current()->name).c_str() : "";
    }
    static std::string PathOf(const CPanel& panel) { return NameToBytes(panel.path).c_str(); }
    entry* Find(CPanel& panel, const char* name) {
        return panel.entries.At(panel.entries.Find(NameFromBytes(name).c_str()));
    }
    void Tag(CPanel& panel, const char* name) {
        entry* e = Find(panel, name);
        ASSERT_NE(e, nullptr) << name;
        e->tagged = 1;
        ++panel.taggedCount;
        panel.taggedBytes += e->size;
    }
    // Row `y` of a half-width panel's inside.
    std::string ClientRow(const CPanel& panel, int y) {
        return screen->Text(panel.window->OriginX(), panel.window->OriginY() + y,
                            panel.window->ClientWidth());
    }
    // A row with its frame.
    std::string FrameRow(const CPanel& panel, int row) {
        return screen->Text(panel.window->Left(), row,
                            panel.window->Right() - panel.window->Left() + 1);
    }
    int AttributeAt(const CPanel& panel, int x, int y) {
        return screen->AttributeAt(panel.window->OriginX() + x, panel.window->OriginY() + y);
    }

    TemporaryTree tree;
    std::unique_ptr<FakeConsole> screen;
    std::unique_ptr<PanelPair> panels;
    CPanel& left;
    CPanel& right;

private:
    std::filesystem::path workingDirectory_;
};

}  // namespace zt
