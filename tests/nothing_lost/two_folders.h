// What the tests of this folder share: a session between the folders "from" and "to", the files in
// them by name, and the end of the work. Belongs to the test's thread.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/file_work.h"

namespace zt::headless {

class TwoFolders : public testing::Test {
protected:
    explicit TwoFolders(WorkPlace::Kind kind = WorkPlace::Kind::kOneFileSystem,
                        uint64_t bytes = 32u << 20)
        : place(kind, bytes), tree(place.tree) {}

    Session& Screen() { return work->Screen(); }

    // After the trees are made.
    void Open(const std::string& settings = "") {
        work = std::make_unique<FileWork>(place, settings);
    }

    // Tags the `count` entries of "from" and presses the key of the dialog.
    void Begin(const std::string& key, size_t count) {
        work->TagAll(count);
        Screen().Press(key);
    }

    // No box is on the screen and nothing half done anywhere.
    void ExpectTidyEnd() {
        EXPECT_TRUE(Screen().AtPrompt()) << Screen().Text();
        for (const auto& [path, state] : TakeSnapshot(tree.Path())) {
            EXPECT_EQ(std::string::npos, path.find(".zt@@@")) << Shown(path);
        }
    }

    bool ScreenHas(const std::string& text) {
        return Screen().Text().find(text) != std::string::npos;
    }

    WorkPlace place;
    FileTree& tree;
    std::unique_ptr<FileWork> work;
};

// The same with "from" and "to" on two file systems; the constructor's `bytes` are the room of
// each.
class TwoFileSystems : public TwoFolders {
protected:
    explicit TwoFileSystems(uint64_t bytes = 32u << 20)
        : TwoFolders(WorkPlace::Kind::kTwoFileSystems, bytes) {}
};

}  // namespace zt::headless
