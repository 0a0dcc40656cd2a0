// Where the program's own files are. First thread only; set up once, before the configuration is
// read.
//
// Personal files stand in $HOME/.ztx/ and are named after the program: its file name cut behind
// the last full stop, or with a full stop added, is the base. So `zt` reads zt.ini, and a copy of
// it under another name has a configuration of its own. A configuration file named on the command
// line gives both the directory and the base instead.
#pragma once

#include "foundation/westring.h"

namespace zt {

enum class ApplicationFile {
    kHelp,
    kManual,
    kUserMenu,
    kConfiguration,
    kHistory,
    kLog,
    kSyntax,
};

// `path` is argv[0]. The program for the far end of a remote session shares the files of the one
// it serves: with `remoteEnd` a "-remote" at the end of its name does not count.
void SetProgramPath(const char* path, bool remoteEnd);
const Westring& ProgramPath();  // absolute when it had a '/', else as given

// The configuration file from the command line, an absolute path; empty for none.
void SetConfigurationFile(const Westring& path);

// `shared` counts for the syntax rules alone: those that came with the program.
Westring ApplicationFilePath(ApplicationFile kind, bool shared = false);
// With a '/' at its end.
Westring PersonalDirectory();
// Makes $HOME/.ztx when it is missing. 0 or the errno value; the directory of a configuration
// file from the command line is never made.
[[nodiscard]] int MakePersonalDirectory();

// The configuration file to read: the one from the command line while it exists, otherwise that of
// ApplicationFilePath. For writing the former counts even when it does not exist.
Westring ConfigFilePath(bool forWriting);

}  // namespace zt
