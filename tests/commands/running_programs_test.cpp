// What happens to a command before it runs: its parts, its program, its environment.
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include "commands/command_parts.h"
#include "commands/find_program.h"
#include "commands/program_environment.h"
#include "commands/program_interpreter.h"
#include "commands/separate_session.h"
#include "commands/shell_launch.h"
#include "tests/commands/configuration_fixture.h"

namespace zt {
namespace {

std::string Bytes(const Westring& text) {
    return NameToBytes(text).c_str();
}

TEST(SplitCommand, FindsTheProgramAndItsArguments) {
    const struct {
        const wchar_t* text;
        RunPlace place;
        const char* command;
        const char* program;
        const char* arguments;
    } rows[] = {
        {L"ls -l x", RunPlace::kFree, "ls -l x", "ls", "-l x"},
        {L"a\\ b c", RunPlace::kFree, "a\\ b c", "a b", "c"},
        {L"grep x|wc", RunPlace::kFree, "grep x|wc", "grep", "x|wc"},
        {L"cat|wc", RunPlace::kFree, "cat|wc", "cat", "|wc"},
        {L"a\\|b c", RunPlace::kFree, "a\\|b c", "a|b", "c"},
        {L"# ls", RunPlace::kConsole, " ls", "ls", ""},
        {L"#xclock &", RunPlace::kConsole, "xclock &", "xclock", "&"},
        {L"xclock &", RunPlace::kDetached, "xclock", "xclock", ""},
        {L"xclock -x   &", RunPlace::kDetached, "xclock -x", "xclock", "-x"},
        {L"$VIEW a\\ b", RunPlace::kFree, "$VIEW a\\ b", "$VIEW", "a\\ b"},
        {L"", RunPlace::kFree, "", "", ""},
        {L"&", RunPlace::kDetached, "", "", ""},
        {L"ends\\", RunPlace::kFree, "ends\\", "ends\\", ""},
    };
    for (const auto& row : rows) {
        const CommandParts parts = SplitCommand(row.text);
        const std::string text = Bytes(row.text);
        EXPECT_EQ(parts.place, row.place) << text;
        EXPECT_EQ(Bytes(parts.command), row.command) << text;
        EXPECT_EQ(Bytes(parts.program), row.program) << text;
        EXPECT_EQ(Bytes(parts.arguments), row.arguments) << text;
    }
    EXPECT_EQ(Bytes(Unescape(L"a\\ b\\\\c")), "a b\\c");
}

TEST(SeparateSession, PutsTheCommandIntoTheTemplate) {
    settings = Settings();
    EXPECT_EQ(Bytes(SeparateSessionCommand(L"ls")), "gnome-terminal -x ls &");
    settings.background = L"term ! -- ! &";
    EXPECT_EQ(Bytes(SeparateSessionCommand(L"ls !")), "term ls ! -- ! &");
    settings.background = L"term -e";
    EXPECT_EQ(Bytes(SeparateSessionCommand(L"ls")), "term -e ls");
    settings = Settings();
}

class RunningProgramsTest : public ConfigurationFixture {
protected:
    void SetUp() override {
        ConfigurationFixture::SetUp();
        for (const char* name : {"PATH", "SHELL"})
            saved_[name] = getenv(name) ? getenv(name) : "";
    }
    void TearDown() override {
        for (const auto& [name, value] : saved_)
            setenv(name.c_str(), value.c_str(), 1);
        SessionEnvironment().Clear();
        ConfigurationFixture::TearDown();
    }
    std::string Expanded(const char* text) {
        Westring expanded = NameFromBytes(text);
        ExpandVariables(expanded);
        return Bytes(expanded);
    }
    std::string Found(const char* name) {
        Westring path;
        return FindProgram(NameFromBytes(name), path) ? Bytes(path) : "none";
    }
    // "none" when the variable is not there.
    static std::string Variable(const ShellLaunch& launch, const std::string& name) {
        for (const std::string& variable : launch.Variables()) {
            if (variable.rfind(name + '=', 0) == 0) return variable.substr(name.size() + 1);
        }
        return "none";
    }
    std::map<std::string, std::string> saved_;
};

TEST_F(RunningProgramsTest, ExpandsVariables) {
    setenv("HOME", "/h", 1);
    SessionEnvironment().Set("ONE", "1");
    SessionEnvironment().Set("TWO_2", "$ONE");
    SessionEnvironment().Set("NAME", "\xC3\xA4\xE4");
    const struct {
        const char* text;
        const char* expanded;
    } rows[] = {
        {"~/x", "/h/x"},
        {"a~/x", "a~/x"},
        {"~", "~"},
        {"~x/y", "~x/y"},
        {"echo $ONE$/x", "echo 1/x"},
        {"$ONE$ONE", "1ONE"},
        {"$ONE $ONE", "1 1"},
        {"$one", "1"},
        {"$TWO_2", "$ONE"},
        {"$NOSUCH_ZT", "$NOSUCH_ZT"},
        {"$NOSUCH_ZT$", "$NOSUCH_ZT$"},
        {"$", "$"},
        {"$$", "$$"},
        {"a$-b", "a$-b"},
        {"$NAME!", "\xC3\xA4\xE4!"},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Expanded(row.text), row.expanded) << row.text;
    EXPECT_EQ(Expanded("~/$HOME"), "/h/" + std::string(SessionEnvironment().Get("HOME")));
}

TEST_F(RunningProgramsTest, ThreeSetsLeanOnEachOther) {
    configuration.environment.Set("FOO", "configured");
    EXPECT_STREQ(SessionEnvironment().Get("FOO"), "configured");
    SessionEnvironment().Set("FOO", "session");
    EXPECT_EQ(Variable(ShellLaunch(L""), "FOO"), "session");
    EXPECT_STREQ(configuration.environment.Get("FOO"), "configured");
    SessionEnvironment().Set("FOO", nullptr);
    EXPECT_EQ(Variable(ShellLaunch(L""), "FOO"), "configured");
    ASSERT_TRUE(SessionEnvironment().Get("PATH"));
    configuration.environment.Set("PATH", "/configured");
    EXPECT_EQ(Variable(ShellLaunch(L""), "PATH"), "/configured");
}

TEST_F(RunningProgramsTest, TheShellGetsPathAndTerminal) {
    SessionEnvironment().Set("PATH", "/a");
    settings.pathAppend = "/b:/c";
    EXPECT_EQ(Variable(ShellLaunch(L""), "PATH"), "/a:/b:/c");
    SessionEnvironment().Set("PATH", "/a:");
    EXPECT_EQ(Variable(ShellLaunch(L""), "PATH"), "/a:/b:/c");
    EXPECT_EQ(Variable(ShellLaunch(L""), "TERM"), "xterm");
    SessionEnvironment().Set("SHELL", "/bin/other");
    EXPECT_EQ(ShellLaunch(L"").Shell(), "/bin/other");
    SessionEnvironment().Set("SHELL", "");
    EXPECT_EQ(ShellLaunch(L"").Shell(), "/bin/sh");
}

TEST_F(RunningProgramsTest, FindsProgramsOnThePath) {
    for (const char* folder : {"one", "two"})
        std::filesystem::create_directory(home_ + "/" + folder);
    Put(home_ + "/two/tool", "");
    Put(home_ + "/one/both", "");
    Put(home_ + "/two/both", "");
    setenv("PATH", (home_ + "/one::" + home_ + "/two").c_str(), 1);
    EXPECT_EQ(Found("tool"), home_ + "/two/tool");
    EXPECT_EQ(Found("both"), home_ + "/one/both");
    EXPECT_EQ(Found("none such"), "none");
    EXPECT_EQ(Found(""), "none");
    EXPECT_EQ(Found((home_ + "/two/tool").c_str()), home_ + "/two/tool");
    EXPECT_EQ(Found("/two/tool"), "none");
    setenv("PATH", (home_ + "/one").c_str(), 1);
    settings.pathAppend = NameFromBytes((home_ + "/two").c_str());
    EXPECT_EQ(Found("tool"), home_ + "/two/tool");
    EXPECT_FALSE(IsExecutable(NameFromBytes((home_ + "/two/tool").c_str())));
    chmod((home_ + "/two/tool").c_str(), 0641);
    EXPECT_TRUE(IsExecutable(NameFromBytes((home_ + "/two/tool").c_str())));
    EXPECT_FALSE(IsExecutable(NameFromBytes((home_ + "/none").c_str())));
}

TEST_F(RunningProgramsTest, WithoutAPathLooksInTheWorkingDirectory) {
    setenv("PATH", "", 1);
    const std::string before = std::filesystem::current_path();
    Put(home_ + "/tool", "");
    std::filesystem::current_path(home_);
    EXPECT_EQ(Found("tool"), "./tool");
    std::filesystem::current_path(before);
}

TEST_F(RunningProgramsTest, ReadsTheInterpreterOfAnExecutable) {
    std::string interpreter;
    ASSERT_TRUE(ReadInterpreter("/proc/self/exe", interpreter));
    EXPECT_EQ(access(interpreter.c_str(), X_OK), 0) << interpreter;
    Put(home_ + "/script", "#!/bin/sh\n");
    Put(home_ + "/short",
        "\x7F"
        "ELF");
    Put(home_ + "/torn", std::string("\x7F"
                                     "ELF\2\1\1",
                                     7) +
                             std::string(57, '\xFF'));
    std::string none;
    for (const char* name : {"/script", "/short", "/torn", "/missing", ""})
        EXPECT_FALSE(ReadInterpreter((home_ + name).c_str(), none)) << name;
}

TEST_F(RunningProgramsTest, AProgramWithoutWindowLibrariesRunsInTheConsole) {
    EXPECT_FALSE(IsGuiProgram(L"/bin/ls"));
    EXPECT_FALSE(IsGuiProgram(L"/none/such"));
    EXPECT_FALSE(IsGuiProgram(NameFromBytes(home_.c_str())));
}

TEST_F(RunningProgramsTest, AVariableWithoutANameIsForNobody) {
    SessionEnvironment().Set("", "x");
    SessionEnvironment().Set("ZT_NAMED", "x");
    EXPECT_EQ(Variable(ShellLaunch(L""), ""), "none");
    EXPECT_EQ(Variable(ShellLaunch(L""), "ZT_NAMED"), "x");
}

TEST_F(RunningProgramsTest, ADetachedProgramHasNothingOfOurs) {
    const std::string sign = home_ + "/sign";
    const auto before = signal(SIGPIPE, SIG_IGN);
    const int ours = dup2(STDOUT_FILENO, 9);
    ASSERT_EQ(ours, 9);
    const std::string command = "sh -c 'kill -PIPE $$'; echo $? > " + sign + ".new; test -e " +
                                "/proc/self/fd/9 && echo open >> " + sign + ".new; mv " + sign +
                                ".new " + sign;
    SessionEnvironment().Set("SHELL", "/bin/sh");
    EXPECT_EQ(RunDetached(ShellLaunch(NameFromBytes(command.c_str()))), 0);
    for (int i = 0; i < 1000 && access(sign.c_str(), F_OK) != 0; i++)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    close(ours);
    signal(SIGPIPE, before);
    EXPECT_EQ(Get(sign), "141\n");
}

TEST_F(RunningProgramsTest, ADetachedProgramLeavesNoChild) {
    const std::string sign = home_ + "/sign";
    SessionEnvironment().Set("SHELL", "/bin/sh");
    const ShellLaunch launch(
        NameFromBytes(("echo $TERM > " + sign + ".new; mv " + sign + ".new " + sign).c_str()));
    ASSERT_EQ(RunDetached(launch), 0);
    for (int i = 0; i < 1000 && access(sign.c_str(), F_OK) != 0; i++)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(Get(sign), "xterm\n");
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

}  // namespace
}  // namespace zt
