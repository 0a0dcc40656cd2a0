#include "commands/temporary_list.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>

#include "foundation/file_name.h"
#include "foundation/shell_text.h"

namespace zt {

namespace {

constexpr const char* kDirectoryVariables[] = {"TMP", "TEMP"};
constexpr const char* kNamePattern = "ztlist.XXXXXX";

int WriteAll(int descriptor, const std::string& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = write(descriptor, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return written < 0 ? errno : ENOSPC;
        done += static_cast<size_t>(written);
    }
    return 0;
}

}  // namespace

Westring TemporaryDirectory() {
    for (const char* variable : kDirectoryVariables) {
        const char* value = getenv(variable);
        if (value && *value) return NameFromBytes(value);
    }
    return L"/tmp";
}

TemporaryLists::~TemporaryLists() {
    for (const Estring& file : files)
        unlink(file.c_str());
}

int TemporaryLists::Add(const std::vector<Westring>& names, Westring& path) {
    Westring pattern = TemporaryDirectory();
    pattern.AddTrailingSlash();
    std::string made = NameToBytes(pattern).c_str();
    made += kNamePattern;
    const int descriptor = mkstemp(made.data());
    if (descriptor < 0) return errno;
    files.emplace_back(made.c_str());
    std::string text;
    for (const Westring& name : names) {
        text += NameToBytes(name).c_str();
        text += '\n';
    }
    int result = WriteAll(descriptor, text);
    if (close(descriptor) != 0 && result == 0) result = errno;
    path = NameFromBytes(made.c_str());
    return result;
}

Westring TemporaryLists::RemovalCommand() {
    Westring command = L"rm -f --";
    for (const Estring& file : files)
        command += L" " + ShellWord(NameFromBytes(file.c_str()));
    files.clear();
    return command;
}

}  // namespace zt
