#include "commands/application_paths.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <iterator>

#include "foundation/file_name.h"
#include "foundation/normalize_path.h"

namespace zt {

namespace {

constexpr char kRemoteSuffix[] = "-remote";
constexpr mode_t kPersonalMode = 0700;  // histories and commands are nobody else's business

enum class Place { kDocuments, kManual, kPersonal, kPersonalOrShared };

struct FileRow {
    ApplicationFile kind;
    Place place;
    const char* suffix;  // behind the base
    bool baseWithDot;
};

constexpr FileRow kFiles[] = {
    {ApplicationFile::kHelp, Place::kDocuments, "zth", true},
    {ApplicationFile::kManual, Place::kManual, "html", true},
    {ApplicationFile::kUserMenu, Place::kPersonal, "mnu", true},
    {ApplicationFile::kConfiguration, Place::kPersonal, "ini", true},
    {ApplicationFile::kHistory, Place::kPersonal, "hst", true},
    {ApplicationFile::kLog, Place::kPersonal, "log", true},
    {ApplicationFile::kSyntax, Place::kPersonalOrShared, "syntax.ini", false},
};

struct StartNames {
    Westring program;
    bool remoteEnd = false;
    Westring configuration;
};

StartNames& Names() {
    static StartNames names;
    return names;
}

// Names are cut at '/' alone: a backslash is a character like any other in a file's name.
Westring NameOf(const Westring& path) {
    return path.Right(path.Length() - 1 - path.FindLast('/'));
}
Westring DirectoryOf(const Westring& path) {
    return path.Left(path.FindLast('/') + 1);
}

// With the full stop at its end.
Westring Base() {
    const StartNames& names = Names();
    const bool given = !names.configuration.IsEmpty();
    Westring name = NameOf(given ? names.configuration : names.program);
    const Westring suffix(kRemoteSuffix);
    const int kept = name.Length() - suffix.Length();
    if (!given && names.remoteEnd && kept > 0 && name.Right(suffix.Length()) == suffix) {
        name = name.Left(kept);
    }
    if (name.IsEmpty()) name = "zt";
    const int dot = name.FindLast('.');
    return dot > 0 ? name.Left(dot + 1) : name + ".";
}

Westring HomeDirectory() {
    const char* home = getenv("HOME");
    if (home && *home) return NameFromBytes(home);
    const passwd* user = getpwuid(geteuid());
    return user && user->pw_dir && *user->pw_dir ? NameFromBytes(user->pw_dir) : Westring("/");
}

Westring DirectoryFor(Place place, bool shared) {
    switch (place) {
        case Place::kDocuments:
            return "/usr/share/doc/zanthe/";
        case Place::kManual:
            return "/usr/share/doc/zanthe/manual/";
        case Place::kPersonalOrShared:
            if (shared) return "/usr/share/zanthe/";
            break;
        case Place::kPersonal:
            break;
    }
    return PersonalDirectory();
}

}  // namespace

void SetProgramPath(const char* path, bool remoteEnd) {
    Westring program = NameFromBytes(path ? path : "");
    if (program.Find('/') >= 0 && program[0] != '/') {
        Westring directory = WorkingDirectory();
        directory.AddTrailingSlash();
        program = directory + program;
    }
    Names().program = program;
    Names().remoteEnd = remoteEnd;
}

const Westring& ProgramPath() {
    return Names().program;
}

void SetConfigurationFile(const Westring& path) {
    Names().configuration = path;
}

Westring PersonalDirectory() {
    if (!Names().configuration.IsEmpty()) return DirectoryOf(Names().configuration);
    Westring directory = HomeDirectory();
    directory.AddTrailingSlash();
    return directory + ".ztx/";
}

int MakePersonalDirectory() {
    if (!Names().configuration.IsEmpty()) return 0;
    if (mkdir(NameToBytes(PersonalDirectory()).c_str(), kPersonalMode) == 0) return 0;
    return errno == EEXIST ? 0 : errno;
}

Westring ApplicationFilePath(ApplicationFile kind, bool shared) {
    const FileRow& row = kFiles[static_cast<size_t>(kind)];
    Westring base = Base();
    if (!row.baseWithDot) base = base.DropRight(1);
    return DirectoryFor(row.place, shared) + base + row.suffix;
}

Westring ConfigFilePath(bool forWriting) {
    const Westring& given = Names().configuration;
    if (!given.IsEmpty()) {
        struct stat found = {};
        if (forWriting || stat(NameToBytes(given).c_str(), &found) == 0) return given;
    }
    return ApplicationFilePath(ApplicationFile::kConfiguration);
}

}  // namespace zt
