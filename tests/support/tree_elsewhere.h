// A tree of files in a folder of one's own below another directory than the usual one: on another
// file system, for example. First thread only: it changes the environment for a moment.
#pragma once

#include <cstdlib>
#include <memory>
#include <string>

#include "tests/support/file_tree.h"

namespace zt::headless {

class TreeElsewhere {
public:
    explicit TreeElsewhere(const char* below) {
        const char* before = getenv("TMPDIR");
        const std::string kept = before ? before : "";
        setenv("TMPDIR", below, 1);
        tree = std::make_unique<FileTree>();
        if (before) {
            setenv("TMPDIR", kept.c_str(), 1);
        } else {
            unsetenv("TMPDIR");
        }
    }
    FileTree* operator->() const { return tree.get(); }
    FileTree& operator*() const { return *tree; }

private:
    std::unique_ptr<FileTree> tree;
};

}  // namespace zt::headless
