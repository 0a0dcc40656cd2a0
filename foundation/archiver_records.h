// The command lines of the outside programs that change archives and extract from them, one record
// for each kind of archive. The records of the run are in configuration.h. First thread only.
//
// In a command line "%a" stands for the archive and "%f" for the names; a line without them gets
// the archive, then the names, behind it. In a directory form '!' stands for the member's path.
#pragma once

#include "foundation/estring.h"

namespace zt {

inline constexpr int kArchiverCount = 14;

struct ArchiverRecord {
    Estring extract;
    Estring extractListSwitch;  // in front of a list file's name; empty: names on the command line
    Estring compress;
    Estring compressUpdate;  // for adding to an archive; empty: `compress` serves
    Estring compressListSwitch;
    Estring remove;             // empty: members cannot be deleted
    Estring compressDirectory;  // how a directory is named to compress, compressUpdate and remove
    Estring extractDirectory;
    bool backslashToSlash = false;  // in the name prefix that the command gets
};

// Fills all records from the table that the program is built with.
void InitArchiverDefaults(ArchiverRecord (&records)[kArchiverCount]);

// What cannot be configured; the index is the kind of archive.
const char* ArchiverName(int index);       // "ZIP"; also that of its section in the configuration
const char* ArchiverExtension(int index);  // "zip"
bool ArchiverHoldsOneFile(int index);

}  // namespace zt
