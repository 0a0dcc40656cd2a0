// A tree of files, and a user who answers by the test's rules and remembers what he was asked.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <deque>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "console/program_state.h"
#include "fileops/delete.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "foundation/settings.h"
#include "tests/panels/temporary_tree.h"
#include "ui/message_box.h"

namespace zt {

class DeletionUser : public IOperationUser {
public:
    // What happened, in order: "ask TEXT: NAME", "error CODE: NAME", "tree NAME", "show NAME",
    // "hide". Names are relative to `base`.
    std::vector<std::string> log;
    std::deque<int> answers;  // to Ask and TellError; without one he presses Esc
    int treeAnswer = 'y';
    std::function<void()> onPoll;  // called before each entry
    bool pressesEsc = false;
    std::string base;
    bool notesShows = true;

    int Ask(IPausablePainter* painter, const Westring& message, const Westring& name,
            int) override {
        if (painter) painter->Stop();
        log.push_back("ask " + Bytes(message) + ": " + Relative(name));
        return NextAnswer();
    }
    void TellError(IPausablePainter* painter, int& code, bool& stop, const Westring& name,
                   const Westring&) override {
        if (painter) painter->Stop();
        log.push_back("error " + std::to_string(code) + ": " + Relative(name));
        const int answer = NextAnswer();
        if (answer == 27) code = kCancelled;
        stop = answer != 'r';
    }
    bool EscapePressed() override {
        if (onPoll) onPoll();
        return pressesEsc;
    }
    int AskDeleteTree(const Westring& directory) override {
        log.push_back("tree " + Relative(directory));
        return treeAnswer;
    }
    void ShowDeleting(const Westring& path) override {
        if (notesShows) log.push_back("show " + Relative(path));
    }
    void HideDeleting() override { log.push_back("hide"); }

    // The log without the window.
    std::vector<std::string> Questions() const {
        std::vector<std::string> questions;
        for (const std::string& line : log) {
            if (line != "hide" && !line.starts_with("show ")) questions.push_back(line);
        }
        return questions;
    }

private:
    static std::string Bytes(const Westring& text) { return NameToBytes(text).c_str(); }
    std::string Relative(const Westring& path) const {
        const std::string bytes = Bytes(path);
        return bytes.starts_with(base + "/") ? bytes.substr(base.size() + 1) : bytes;
    }
    int NextAnswer() {
        if (answers.empty()) return 27;
        const int answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

struct CountingPainter : IPausablePainter {
    int stops = 0;
    void Stop() override { stops++; }
};

class Deletion : public testing::Test {
protected:
    Deletion() { user.base = tree.Path(); }
    ~Deletion() override {
        settings.confirmations = 0;
        abortState = kAbortIdle;
    }

    int File(const std::string& name, DeleteFileMode mode = DeleteFileMode::kNoWindow) {
        return DeleteFile(operation, tree.Wide(name), mode, &painter);
    }
    int Directory(const std::string& name, const Westring* mask = nullptr) {
        return DeleteDirectory(operation, nullptr, tree.Wide(name), mask, &painter);
    }

    void Write(const std::string& name, const std::string& content) {
        std::ofstream file(tree.PathOf(name), std::ios::binary);
        file << content;
        ASSERT_TRUE(file.flush()) << name;
    }
    std::string Content(const std::string& name) const {
        std::ifstream file(tree.PathOf(name), std::ios::binary);
        if (!file) return "not there";
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }
    bool Exists(const std::string& name) const {
        struct stat found;
        return lstat(tree.PathOf(name).c_str(), &found) == 0;
    }
    std::vector<std::string> Names(const std::string& folder = "") const {
        std::vector<std::string> names;
        for (const auto& item : std::filesystem::directory_iterator(tree.PathOf(folder)))
            names.push_back(item.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    TemporaryTree tree;
    DeletionUser user;
    FileOperation operation{user};
    CountingPainter painter;
};

}  // namespace zt
