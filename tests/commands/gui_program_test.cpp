// Where a command runs: the probe for programs with windows, and the marks that go before it. The
// programs here are no more than a header that names an interpreter; that is a script which notes
// what it was asked and answers what the test wants.
#include <elf.h>
#include <sys/wait.h>

#include <cstring>

#include "commands/find_program.h"
#include "commands/run_command.h"
#include "tests/commands/configuration_fixture.h"
#include "tests/console/fake_console.h"

namespace zt {
namespace {

template <class Header, class ProgramHeader>
std::string Executable(unsigned char fileClass, const std::string& interpreter) {
    Header header = {};
    memcpy(header.e_ident, ELFMAG, SELFMAG);
    header.e_ident[EI_CLASS] = fileClass;
    const uint16_t one = 1;
    header.e_ident[EI_DATA] = reinterpret_cast<const char*>(&one)[0] ? ELFDATA2LSB : ELFDATA2MSB;
    header.e_ident[EI_VERSION] = EV_CURRENT;
    header.e_type = ET_DYN;
    header.e_phoff = sizeof header;
    header.e_phentsize = sizeof(ProgramHeader);
    header.e_phnum = 2;
    ProgramHeader headers[2] = {};
    headers[0].p_type = PT_LOAD;
    headers[1].p_type = PT_INTERP;
    headers[1].p_offset = sizeof header + sizeof headers;
    headers[1].p_filesz = static_cast<decltype(headers[1].p_filesz)>(interpreter.size() + 1);
    return std::string(reinterpret_cast<const char*>(&header), sizeof header) +
           std::string(reinterpret_cast<const char*>(headers), sizeof headers) + interpreter + '\0';
}

class GuiProgram : public ConfigurationFixture {
protected:
    void SetUp() override {
        ConfigurationFixture::SetUp();
        path_ = getenv("PATH") ? getenv("PATH") : "";
        note_ = home_ + "/note";
    }
    void TearDown() override {
        setenv("PATH", path_.c_str(), 1);
        ConfigurationFixture::TearDown();
    }
    // `answer` is the shell's command that the interpreter gives its answer with.
    void PutProgram(const std::string& name, const std::string& answer) {
        const std::string interpreter = home_ + "/" + name + ".interpreter";
        PutScript(interpreter, "printf '%s\\n' \"$@\" > " + note_ + "\n" + answer + "\n");
        Put(home_ + "/" + name, Executable<Elf64_Ehdr, Elf64_Phdr>(ELFCLASS64, interpreter));
        std::filesystem::permissions(home_ + "/" + name, std::filesystem::perms(0755));
    }
    static void PutScript(const std::string& path, const std::string& text) {
        Put(path, "#!/bin/sh\n" + text);
        std::filesystem::permissions(path, std::filesystem::perms(0755));
    }
    bool IsGui(const std::string& name) {
        return IsGuiProgram(NameFromBytes((home_ + "/" + name).c_str()));
    }

    std::string path_, note_;
};

TEST_F(GuiProgram, IsToldByTheLibrariesThatItsInterpreterLists) {
    const struct {
        const char* answer;
        bool isGui;
    } rows[] = {
        {"echo '\tlibX11.so.6 => /lib/libX11.so.6 (0x7f00)'", true},
        {"echo '\tlibwayland-client.so.0 => /lib/libwayland-client.so.0 (0x7f00)'", true},
        {"echo first; echo last; echo '\tlibX11.so.6 => not found'; echo behind", true},
        {"printf 'no line feed behind libX11'", true},
        {"printf '%01500d\\nlibX11.so.6\\n' 0", true},
        {"echo libX11.so.6; exit 1", true},
        {"echo libX11.so.6; kill -9 $$", true},
        {"echo libX11.so.6; seq 100000", true},
        {"echo '\tlibc.so.6 => /lib/libc.so.6 (0x7f00)'", false},
        {"echo '\tlibwayland-server.so.0'", false},
        {"echo libx11.so", false},
        {"echo libX11.so.6 >&2", false},
        {"exit 0", false},
        {"exit 1", false},
    };
    for (const auto& row : rows) {
        PutProgram("program", row.answer);
        EXPECT_EQ(IsGui("program"), row.isGui) << row.answer;
        EXPECT_EQ(Get(note_), "--list\n" + home_ + "/program\n");
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << row.answer;
    }
}

TEST_F(GuiProgram, IsProbedByItsNameAsItIs) {
    for (const std::string name : {"a b", "$(x)", "\xE4", "-list"}) {
        PutProgram(name, "echo libX11");
        EXPECT_TRUE(IsGui(name)) << name;
        EXPECT_EQ(Get(note_), "--list\n" + home_ + "/" + name + "\n");
    }
}

TEST_F(GuiProgram, OfTheOtherWordSizeIsProbedToo) {
    PutProgram("program", "echo libX11");
    Put(home_ + "/program",
        Executable<Elf32_Ehdr, Elf32_Phdr>(ELFCLASS32, home_ + "/program.interpreter"));
    EXPECT_TRUE(IsGui("program"));
}

TEST_F(GuiProgram, IsNoneWithoutAnInterpreterThatAnswers) {
    PutProgram("program", "echo libX11");
    ASSERT_TRUE(IsGui("program"));
    Put(home_ + "/program", Executable<Elf64_Ehdr, Elf64_Phdr>(ELFCLASS64, home_ + "/none"));
    EXPECT_FALSE(IsGui("program"));
    Put(home_ + "/program", Executable<Elf64_Ehdr, Elf64_Phdr>(ELFCLASS64, home_));
    EXPECT_FALSE(IsGui("program"));
    Put(home_ + "/program", Executable<Elf64_Ehdr, Elf64_Phdr>(ELFCLASS64, ""));
    EXPECT_FALSE(IsGui("program"));
}

TEST_F(GuiProgram, IsNeverRunByTheProbe) {
    PutScript(home_ + "/script", "# libX11\necho libX11\n: > " + note_ + "\n");
    EXPECT_FALSE(IsGui("script"));
    EXPECT_FALSE(std::filesystem::exists(note_));
}

TEST_F(GuiProgram, OfThisSystemIsKnown) {
    for (const char* program : {"/usr/bin/xdotool", "/usr/bin/xterm", "/usr/bin/xmessage"}) {
        if (!std::filesystem::exists(program)) continue;
        EXPECT_TRUE(IsGuiProgram(NameFromBytes(program))) << program;
        return;
    }
    GTEST_SKIP() << "no program with windows is installed";
}

// --- Where it runs.

TEST_F(GuiProgram, RunsByItselfUnlessItIsMarked) {
    PutProgram("windowed", "echo libX11");
    PutProgram("plain", "echo libc");
    PutScript(home_ + "/script", "");
    setenv("PATH", home_.c_str(), 1);
    const struct {
        const wchar_t* command;
        RunKind kind;
        bool isProbed;
    } rows[] = {
        {L"windowed", RunKind::kDetached, true},
        {L"windowed -x", RunKind::kDetached, true},
        {L"windowed|script", RunKind::kDetached, true},
        {L"window\\ed", RunKind::kDetached, true},
        {L"# windowed", RunKind::kConsole, false},
        {L"#windowed &", RunKind::kConsole, false},
        {L"windowed &", RunKind::kDetached, false},
        {L"plain", RunKind::kConsole, true},
        {L"plain&", RunKind::kDetached, false},
        {L"script", RunKind::kConsole, false},
        {L"script &", RunKind::kDetached, false},
        {L"none-such", RunKind::kConsole, false},
        {L"none-such &", RunKind::kConsole, false},
        {L"", RunKind::kConsole, false},
        {L"&", RunKind::kConsole, false},
        {L"$view x", RunKind::kViewer, false},
        {L"$VIEW x", RunKind::kViewer, false},
        {L"$Edit x &", RunKind::kEditor, false},
        {L"# $edit x", RunKind::kEditor, false},
        {L"$viewer x", RunKind::kConsole, false},
    };
    for (const auto& row : rows) {
        std::filesystem::remove(note_);
        const std::string text = NameToBytes(row.command).c_str();
        EXPECT_EQ(RunPlan(row.command).kind, row.kind) << text;
        EXPECT_EQ(std::filesystem::exists(note_), row.isProbed) << text;
    }
}

TEST_F(GuiProgram, WithoutOneTheStatusIsThatOfTheShell) {
    FakeConsole screen;
    const struct {
        const wchar_t* command;
        int status;
    } rows[] = {
        {L"true", 0},   {L"exit 3", 3},  {L"kill -9 $$", -1}, {L"exec 2>&-; none-such", 127},
        {L"false&", 0}, {L"# false", 1}, {L"true; false", 1}, {L"kill -15 $$", -1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(RunCommand(row.command), row.status) << NameToBytes(row.command).c_str();
}

struct NotingTools : IOwnTools {
    void View(const Westring& path) override { note = Text("view ", path); }
    void Edit(const Westring& path) override { note = Text("edit ", path); }
    static std::string Text(const char* tool, const Westring& path) {
        return tool + std::string(NameToBytes(path).c_str());
    }

    std::string note;
};

TEST_F(GuiProgram, OfOursGetsTheNameWithoutItsEscapes) {
    NotingTools tools;
    const struct {
        const wchar_t* command;
        const char* note;
    } rows[] = {
        {L"$view file", "view file"},     {L"$VIEW file", "view file"},
        {L"$view  a\\ b  ", "view a b"},  {L"$Edit a\\\\b", "edit a\\b"},
        {L"$edit /x/\\$y", "edit /x/$y"}, {L"$view", "view "},
    };
    SetOwnTools(&tools);
    for (const auto& row : rows) {
        tools.note.clear();
        EXPECT_EQ(RunCommand(row.command), 0);
        EXPECT_EQ(tools.note, row.note);
    }
    SetOwnTools(nullptr);
    EXPECT_EQ(RunCommand(L"$view file"), 0);
}

}  // namespace
}  // namespace zt
