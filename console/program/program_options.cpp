#include "console/program/program_options.h"

#include <dirent.h>
#include <sys/stat.h>
#include <cctype>

#include "foundation/file_name.h"
#include "foundation/normalize_path.h"

namespace zt {

namespace {

enum class Target { kView, kEdit, kLeft, kRight, kHost, kScript };

struct OptionRow {
    char letter;
    Target target;
    OptionsResult whenMissing;  // what a missing argument means
};

constexpr OptionRow kOptions[] = {
    {'v', Target::kView, OptionsResult::kNoFile}, {'e', Target::kEdit, OptionsResult::kNoFile},
    {'l', Target::kLeft, OptionsResult::kUsage},  {'r', Target::kRight, OptionsResult::kUsage},
    {'h', Target::kHost, OptionsResult::kUsage},  {'x', Target::kScript, OptionsResult::kUsage},
};

const OptionRow* FindOption(char letter, bool takesHost) {
    const int lower = tolower(static_cast<unsigned char>(letter));
    for (const OptionRow& row : kOptions) {
        if (row.letter == lower) {
            return row.target == Target::kHost && !takesHost ? nullptr : &row;
        }
    }
    return nullptr;
}

void Store(ProgramOptions& options, Target target, const char* argument) {
    switch (target) {
        case Target::kView:
            options.viewFile = argument;
            break;
        case Target::kEdit:
            options.editFile = argument;
            break;
        case Target::kLeft:
            options.directories[0] = NameFromBytes(argument);
            break;
        case Target::kRight:
            options.directories[1] = NameFromBytes(argument);
            break;
        case Target::kHost:
            options.remoteHost = argument;
            break;
        case Target::kScript:
            // The working directory will be another one by then.
            options.exitScript = NameFromBytes(argument);
            if (MakeAbsolute(options.exitScript, nullptr) != 0) options.exitScript.Clear();
            break;
    }
}

// Only something that exists and is no directory is a configuration file; any other word is
// dropped without a word.
void StoreIniFile(ProgramOptions& options, const char* word) {
    struct stat info;
    if (stat(word, &info) != 0 || S_ISDIR(info.st_mode)) return;
    Westring path = NameFromBytes(word);
    if (MakeAbsolute(path, nullptr) == 0) options.iniFile = NameToBytes(path);
}

}  // namespace

OptionsResult ParseOptions(int argc, char* const* argv, bool takesHost, ProgramOptions& options) {
    for (int i = 1; i < argc; i++) {
        const char* word = argv[i];
        if (word[0] != '-' && word[0] != '\\') {
            StoreIniFile(options, word);
            continue;
        }
        const OptionRow* option = FindOption(word[1], takesHost);
        if (!option) return OptionsResult::kUsage;
        if (i + 1 >= argc) return option->whenMissing;
        Store(options, option->target, argv[++i]);
    }
    return OptionsResult::kRun;
}

Estring MissingFeature(const ProgramOptions& options) {
    if (!options.viewFile.IsEmpty()) return "the internal viewer (-v) is not there yet\n";
    if (!options.editFile.IsEmpty()) return "the internal editor (-e) is not there yet\n";
    return Estring();
}

Estring OptionsMessage(OptionsResult result) {
    if (result == OptionsResult::kNoFile) return "No file specified\n";
    return "Usage:\tzt [ini_file] [-v|-e file_name] [-l|-r directory] [-h remote_host]"
           "\n\t-v: invoke internal viewer"
           "\n\t-e: invoke internal editor"
           "\n\t-l: specify left panel's directory"
           "\n\t-r: specify right panel's directory"
           "\n\t-h: connect to a remote host\n";
}

}  // namespace zt
