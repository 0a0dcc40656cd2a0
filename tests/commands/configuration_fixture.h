// A home directory of the test's own for the configuration tests, with a host that notes what the
// program would have shown.
#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "commands/application_paths.h"
#include "commands/configuration_host.h"
#include "commands/configuration_reader.h"
#include "commands/configuration_writer.h"
#include "foundation/configuration.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"

namespace zt {

struct NotingHost : IConfigurationHost {
    void ShowMessage(const Westring& message, const wchar_t* name) override {
        std::string text = NameToBytes(message).c_str();
        if (name) text += std::string("|") + NameToBytes(name).c_str();
        messages.push_back(text);
    }
    // A stand-in for the filter's own check: refuses masks with a '<' and says why.
    bool CheckRule(const Westring& mask, Westring& error) override {
        if (mask.Find('<') < 0) return true;
        error = "bad mask";
        return false;
    }
    void ExpandVariables(Westring& text) override { text.ReplaceAll("$HERE", "/here"); }
    void ScreenSettingsChanged() override { screenChanges++; }
    int ScreenRows() override { return rows; }
    void CopyPanelState() override {
        if (panelState) panelState();
    }

    std::vector<std::string> messages;
    int screenChanges = 0;
    int rows = 0;
    std::function<void()> panelState;
};

class ConfigurationFixture : public testing::Test {
protected:
    static constexpr unsigned kOrdinaryUser = 65534;

    void SetUp() override {
        const char* home = getenv("HOME");
        oldHome_ = home ? home : "";
        char made[] = "/tmp/zt-configuration-XXXXXX";
        ASSERT_TRUE(mkdtemp(made));
        home_ = made;
        setenv("HOME", made, 1);
        directory_ = home_ + "/.ztx";
        file_ = directory_ + "/zt.ini";
        temporary_ = directory_ + "/zt.!!!";
        std::filesystem::create_directory(directory_);
        Forget();
    }
    void TearDown() override {
        Forget();
        setenv("HOME", oldHome_.c_str(), 1);
        std::filesystem::remove_all(home_);
    }

    // As a program that starts anew.
    void Forget() {
        SetProgramPath("zt", false);
        SetConfigurationFile(Westring());
        settings = Settings();
        for (AssociationSet& set : configuration.rules)
            set.Clear();
        configuration.environment.Clear();
        InitArchiverDefaults(configuration.archivers);
        host_.messages.clear();
    }

    static void Put(const std::string& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    static std::string Get(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }
    bool Read(const std::string& text) {
        Put(file_, text);
        return ReadConfiguration(false, host_);
    }
    static std::string Rules(RuleList list) {
        std::string text;
        AssociationSet& set = configuration.rules[list];
        for (const Association* rule = set.First(); rule; rule = set.Next()) {
            text += std::string(NameToBytes(rule->mask).c_str()) + (rule->multiple ? "::" : ":") +
                    NameToBytes(rule->command).c_str() + "\n";
        }
        return text;
    }

    // Runs the work in a process of its own that has no rights over other users' files, and gives
    // its result. The files of the test belong to that user.
    int AsOrdinaryUser(const std::function<int()>& work) {
        if (geteuid() == 0) {
            for (const auto& item : std::filesystem::recursive_directory_iterator(home_)) {
                EXPECT_EQ(lchown(item.path().c_str(), kOrdinaryUser, kOrdinaryUser), 0);
            }
            EXPECT_EQ(chown(home_.c_str(), kOrdinaryUser, kOrdinaryUser), 0);
        }
        return InChild([&] {
            if (geteuid() == 0 && (setgroups(0, nullptr) != 0 || setgid(kOrdinaryUser) != 0 ||
                                   setuid(kOrdinaryUser) != 0)) {
                return 100;
            }
            return work();
        });
    }
    static int InChild(const std::function<int()>& work) {
        const pid_t child = fork();
        if (child == 0) _exit(work());
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string oldHome_, home_, directory_, file_, temporary_;
    NotingHost host_;
};

}  // namespace zt
