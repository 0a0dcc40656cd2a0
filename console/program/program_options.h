// The command line of the program. Read once, before anything else is set up.
#pragma once

#include "foundation/estring.h"
#include "foundation/westring.h"

namespace zt {

enum class OptionsResult {
    kRun,
    kUsage,   // an unknown option, or one without its argument
    kNoFile,  // -v or -e without a file name
};

struct ProgramOptions {
    Estring iniFile;  // as bytes, absolute; empty: the configuration in the personal directory
    Estring viewFile;
    Estring editFile;
    Westring directories[2];  // where the left and the right panel start; empty: not given
    Estring remoteHost;
    Westring exitScript;  // at exit a change-directory script goes to this file; absolute
};

// Fills `options` from the words behind the program's name. An option begins with '-' or '\' and
// is known by its second character in either case. `takesHost`: -h is an option.
[[nodiscard]] OptionsResult ParseOptions(int argc, char* const* argv, bool takesHost,
                                         ProgramOptions& options);

// What the options ask for that this program cannot do yet, as a sentence for standard error with
// a line feed at its end; empty when it can do all of it.
Estring MissingFeature(const ProgramOptions& options);

// The text of kUsage and kNoFile, with a line feed at its end.
Estring OptionsMessage(OptionsResult result);

}  // namespace zt
