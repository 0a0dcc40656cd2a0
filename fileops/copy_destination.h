// Where a copy or a move goes: what is suggested to the user, and what the text that he accepted
// comes to. Looks at the disk and changes nothing; the first thread only, for the panels' sake.
#pragma once

#include "foundation/westring.h"
#include "panels/panel_pair.h"

namespace zt {

enum class DestinationFault {
    kNone,
    kInvalidPath,       // the way up leads past the root
    kMissingDirectory,  // written as a directory, and there is none
    kNotADirectory,     // several objects, and one name for all
};

// The other panel's directory with a '/' behind it, and with the current entry's name where
// nothing is tagged; the name alone where the other panel shows no directory, or where `bareName`
// asks for it.
Westring SuggestedDestination(const CPanel& source, const CPanel& other, bool bareName);

// The text without the white space around it. A last part that is exactly `name` keeps all of it:
// names may begin or end with blanks.
Westring AcceptedText(const Westring& typed, const Westring& name);

// For several objects: `destination` becomes an absolute path. It ends in '/' when it is the
// directory that takes them all under their own names; otherwise it goes to TargetOfMany. A text
// that ends in '/' is a directory or nothing, whatever characters its name has.
[[nodiscard]] DestinationFault ResolveForMany(const Westring& typed, const Westring& base,
                                              Westring& destination);
Westring TargetOfMany(const Westring& source, const Westring& destination);
// The directory in which the targets come to stand.
Westring DirectoryOfMany(const Westring& destination);

// For one object, `source`, that is to go to what was typed: the absolute path of the target. A
// last part that is exactly the source's name is that name, and never a mask.
[[nodiscard]] DestinationFault ResolveForOne(const Westring& typed, const Westring& source,
                                             const Westring& base, Westring& target);

// True when both are on one file system, so that a rename can do. Directories that cannot be
// examined count as such.
bool OnSameFileSystem(const Westring& directoryA, const Westring& directoryB);

}  // namespace zt
