// What the tests of copying and moving share: a tree of files of their own, a user who answers by a
// script, and a progress that only counts.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstring>
#include <deque>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "console/program_state.h"
#include "fileops/copy.h"
#include "fileops/operation_user.h"
#include "fileops/transfer_object.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "tests/panels/temporary_tree.h"

namespace zt {

inline constexpr int kEsc = 27;

inline std::string Bytes(const Westring& text) {
    return NameToBytes(text).c_str();
}

class CountingProgress : public CopyProgress {
public:
    void Start() override {
        running = true;
        starts++;
    }
    void Stop() override { running = false; }
    void ShowObject(const Westring& source, const Westring& target, int index, int total,
                    bool moving) override {
        shown.push_back(Bytes(source) + " " + Bytes(target) + " " + std::to_string(index) + "/" +
                        std::to_string(total) + (moving ? " m" : " c"));
    }
    void PaintCount(uint64_t done, uint64_t total) override {
        counts.push_back(std::to_string(done) + "/" + std::to_string(total));
    }

    bool running = false;
    int starts = 0;
    std::vector<std::string> shown, counts;
};

// Every box must be foreseen, in order; one that is not fails the test and is answered by Esc.
class ScriptedUser : public IOperationUser {
public:
    ~ScriptedUser() override {
        for (const Box& box : script)
            ADD_FAILURE() << "never shown: " << box.text << " " << box.name;
    }
    // A question or an error (its number), and what is done meanwhile.
    void Expect(const std::string& text, const std::string& name, int answer,
                std::function<void()> meanwhile = nullptr) {
        script.push_back({text, name, answer, std::move(meanwhile)});
    }
    void ExpectError(int code, const std::string& name, int answer,
                     std::function<void()> meanwhile = nullptr) {
        Expect(std::strerror(code), name, answer, std::move(meanwhile));
    }

    int Ask(IPausablePainter* painter, const Westring& message, const Westring& name,
            int type) override {
        types.push_back(type);
        return Answer(painter, Bytes(message), Bytes(name));
    }
    void TellError(IPausablePainter* painter, int& code, bool& stop, const Westring& name,
                   const Westring&) override {
        const int answer = Answer(painter, std::strerror(code), Bytes(name));
        if (answer == kEsc) code = kCancelled;
        stop = answer != 'r';
    }
    bool EscapePressed() override {
        polls++;
        if (onPoll) onPoll(polls);
        return polls == escapeAt;
    }
    int AskDeleteTree(const Westring& directory) override {
        return Answer(nullptr, "Delete tree?", Bytes(directory));
    }
    void ShowDeleting(const Westring&) override {}
    void HideDeleting() override {}

    int polls = 0;
    int escapeAt = -1;
    std::function<void(int)> onPoll;
    std::vector<int> types;

private:
    struct Box {
        std::string text, name;
        int answer;
        std::function<void()> meanwhile;
    };

    int Answer(IPausablePainter* painter, const std::string& text, const std::string& name) {
        if (painter) painter->Stop();
        if (script.empty()) {
            ADD_FAILURE() << "unforeseen: " << text << " " << name;
            return kEsc;
        }
        const Box box = script.front();
        script.pop_front();
        EXPECT_EQ(text, box.text);
        EXPECT_EQ(name, box.name);
        if (box.meanwhile) box.meanwhile();
        return box.answer;
    }

    std::deque<Box> script;
};

class EngineTest : public testing::Test {
protected:
    ~EngineTest() override { EXPECT_EQ(abortState, kAbortIdle); }

    void Write(const std::string& name, const std::string& content) {
        std::ofstream(tree.PathOf(name), std::ios::binary) << content;
    }
    std::string Content(const std::string& name) const {
        std::ifstream file(tree.PathOf(name), std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        return file ? text.str() : "(none)";
    }
    bool Exists(const std::string& name) const {
        struct stat status;
        return lstat(tree.PathOf(name).c_str(), &status) == 0;
    }
    struct stat Status(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(lstat(tree.PathOf(name).c_str(), &status), 0) << name;
        return status;
    }
    // Sorted names, so that a temporary file that stayed shows.
    std::vector<std::string> Names(const std::string& directory = "") const {
        std::vector<std::string> names;
        const std::string path = directory.empty() ? tree.Path() : tree.PathOf(directory);
        for (const auto& entry : std::filesystem::directory_iterator(path))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    int Copy(const std::string& from, const std::string& to, int flags = 0) {
        return CopyWithPrompts(operation, tree.Wide(from), tree.Wide(to), 1, 1, progress,
                               descriptions, flags);
    }
    int Move(const std::string& from, const std::string& to, bool sameFileSystem = true) {
        return MoveWithPrompts(operation, tree.Wide(from), tree.Wide(to), 1, 1, &progress,
                               descriptions, sameFileSystem);
    }

    TemporaryTree tree;
    ScriptedUser user;
    FileOperation operation{user};
    CountingProgress progress;
    StdFile descriptions;
};

}  // namespace zt
