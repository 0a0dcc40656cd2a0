// The keys of an archiver's section in the configuration file, in the order in which they are
// written. Pure data.
#pragma once

#include "foundation/archiver_records.h"

namespace zt {

struct ArchiverKey {
    const char* key;
    Estring ArchiverRecord::*field;
    bool writtenWhenEmpty;
};

inline constexpr ArchiverKey kArchiverKeys[] = {
    {"Compress", &ArchiverRecord::compress, true},
    {"CompressUpdate", &ArchiverRecord::compressUpdate, false},
    {"CompressListfileSwitch", &ArchiverRecord::compressListSwitch, true},
    {"Extract", &ArchiverRecord::extract, true},
    {"ExtractListfileSwitch", &ArchiverRecord::extractListSwitch, true},
    {"Delete", &ArchiverRecord::remove, true},
    {"CompressDirSpec", &ArchiverRecord::compressDirectory, true},
    {"ExtractDirSpec", &ArchiverRecord::extractDirectory, true},
};

}  // namespace zt
