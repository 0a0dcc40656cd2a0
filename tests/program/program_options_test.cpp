// The command line: each option, each message, and which word counts as a configuration file.
#include "console/program/program_options.h"

#include "foundation/normalize_path.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

namespace zt {
namespace {

OptionsResult Parse(std::vector<const char*> words, ProgramOptions& options,
                    bool takesHost = true) {
    words.insert(words.begin(), "zt");
    return ParseOptions(static_cast<int>(words.size()), const_cast<char**>(words.data()), takesHost,
                        options);
}

TEST(ProgramOptions, TakesEveryOptionInEitherCaseAndWithEitherSign) {
    struct Row {
        const char* left;
        const char* right;
        const char* host;
        const char* script;
    };
    for (const Row& row :
         {Row{"-l", "-r", "-h", "-x"}, Row{"-L", "-R", "-H", "-X"}, Row{"\\l", "\\r", "\\h", "\\x"},
          Row{"-left", "-right", "-host", "-xyz"}}) {
        ProgramOptions options;
        EXPECT_EQ(
            OptionsResult::kRun,
            Parse({row.left, "/a", row.right, "/b", row.host, "c", row.script, "/d"}, options));
        EXPECT_STREQ(L"/a", options.directories[0].c_str());
        EXPECT_STREQ(L"/b", options.directories[1].c_str());
        EXPECT_STREQ("c", options.remoteHost.c_str());
        EXPECT_STREQ(L"/d", options.exitScript.c_str());
    }
}

TEST(ProgramOptions, KeepsViewAndEditFile) {
    ProgramOptions options;
    EXPECT_EQ(OptionsResult::kRun, Parse({"-v", "seen", "-e", "edited"}, options));
    EXPECT_STREQ("seen", options.viewFile.c_str());
    EXPECT_STREQ("edited", options.editFile.c_str());
}

TEST(ProgramOptions, KeepsTheScriptWhereItWasMeantToBe) {
    const std::string here = WorkingDirectory().ToUtf8().c_str();
    const std::string slash = here == "/" ? "" : "/";
    ProgramOptions options;
    EXPECT_EQ(OptionsResult::kRun, Parse({"-x", "a\\b/./script"}, options));
    EXPECT_EQ(here + slash + "a\\b/script", options.exitScript.ToUtf8().c_str());
}

TEST(ProgramOptions, TellWhichFeatureIsMissing) {
    const struct {
        std::vector<const char*> words;
        const char* message;
    } rows[] = {
        {{"-l", "/", "-r", "/", "-x", "/tmp/s"}, ""},
        {{"-v", "f"}, "the internal viewer (-v) is not there yet\n"},
        {{"-e", "f"}, "the internal editor (-e) is not there yet\n"},
        {{"-e", "f", "-v", "g"}, "the internal viewer (-v) is not there yet\n"},
        {{"-h", "host"}, ""},
    };
    for (const auto& row : rows) {
        ProgramOptions options;
        EXPECT_EQ(OptionsResult::kRun, Parse(row.words, options));
        EXPECT_STREQ(row.message, MissingFeature(options).c_str()) << row.words[0];
    }
}

TEST(ProgramOptions, RefusesUnknownLetters) {
    for (const char* word : {"-q", "-", "\\", "--help", "-?"}) {
        ProgramOptions options;
        EXPECT_EQ(OptionsResult::kUsage, Parse({word}, options)) << word;
    }
}

TEST(ProgramOptions, RefusesTheHostWhereThereIsNoWindow) {
    ProgramOptions options;
    EXPECT_EQ(OptionsResult::kUsage, Parse({"-h", "host"}, options, false));
    EXPECT_EQ(OptionsResult::kRun, Parse({"-x", "/tmp/s"}, options, false));
}

TEST(ProgramOptions, TellsAMissingFileFromAMissingArgument) {
    ProgramOptions options;
    EXPECT_EQ(OptionsResult::kNoFile, Parse({"-v"}, options));
    EXPECT_EQ(OptionsResult::kNoFile, Parse({"-l", "/", "-e"}, options));
    EXPECT_EQ(OptionsResult::kUsage, Parse({"-l"}, options));
}

TEST(ProgramOptions, KeepsTheBytesOfADirectoryThatIsNoUtf8) {
    ProgramOptions options;
    EXPECT_EQ(OptionsResult::kRun, Parse({"-l", "/caf\xE9"}, options));
    EXPECT_EQ(5, options.directories[0].Length());
    EXPECT_NE(L'\xE9', options.directories[0][4]);
}

TEST(ProgramOptions, PrintsTheUsageWithTabsAndAllOptionsButTheUndocumentedOne) {
    EXPECT_STREQ(
        "Usage:\tzt [ini_file] [-v|-e file_name] [-l|-r directory] [-h remote_host]\n"
        "\t-v: invoke internal viewer\n\t-e: invoke internal editor\n"
        "\t-l: specify left panel's directory\n\t-r: specify right panel's directory\n"
        "\t-h: connect to a remote host\n",
        OptionsMessage(OptionsResult::kUsage).c_str());
    EXPECT_STREQ("No file specified\n", OptionsMessage(OptionsResult::kNoFile).c_str());
}

TEST(ProgramOptions, ASingleWordIsAConfigurationFileOnlyWhenItIsAFile) {
    char directory[] = "/tmp/zt-options-XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(directory));
    const std::string file = std::string(directory) + "/my.ini";
    close(open(file.c_str(), O_CREAT | O_WRONLY, 0644));

    ProgramOptions options;
    EXPECT_EQ(OptionsResult::kRun, Parse({directory, "/no/such/file"}, options));
    EXPECT_TRUE(options.iniFile.IsEmpty());
    EXPECT_EQ(OptionsResult::kRun, Parse({file.c_str()}, options));
    EXPECT_STREQ(file.c_str(), options.iniFile.c_str());

    const std::string back = std::string(directory) + "/../" + (directory + 5) + "/./my.ini";
    EXPECT_EQ(OptionsResult::kRun, Parse({back.c_str()}, options));
    EXPECT_STREQ(file.c_str(), options.iniFile.c_str());
    unlink(file.c_str());
    rmdir(directory);
}

}  // namespace
}  // namespace zt
