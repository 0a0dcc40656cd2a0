#include "foundation/archiver_records.h"

#include <iterator>

namespace zt {

namespace {

struct ExtractRow {
    const char* name;
    const char* extension;
    bool oneFile;
    bool backslashToSlash;
    const char* extract;
    const char* listSwitch;
    const char* directory;
};

constexpr ExtractRow kExtractRows[] = {
    {"ZIP", "zip", false, false, "unzip --z", "", "!/*"},
    {"RAR", "rar", false, false, "rar x -std", "@", "!"},
    {"LHARC", "lzh", false, false, "lha x /s", "", "!/*"},
    {"ARJ", "arj", false, false, "arj x", "!", "!/*"},
    {"ACE", "ace", false, false, "unace x", "@", "!"},
    {"HA", "ha", false, false, "ha x", "", "!/*"},
    {"GZIP", "gz", true, false, "gzip -dc %a > %f", "", ""},
    {"TAR", "tar", false, true, "tar -xf", "--files-from=", "!"},
    {"7ZIP", "7z", false, false, "7z x", "@", "!"},
    {"BZIP2", "bz2", true, false, "bzip2 -dc %a > %f", "", ""},
    {"XZ", "xz", true, false, "xz -dc %a > %f", "", ""},
    {"TAR/GZIP", "tar.gz", false, true, "tar -xzf", "--files-from=", "!"},
    {"TAR/BZIP2", "tar.bz2", false, false, "tar -xjf", "--files-from=", "!"},
    {"TAR/XZ", "tar.xz", false, false, "tar --xz -xf", "--files-from=", "!"},
};
static_assert(std::size(kExtractRows) == kArchiverCount);

struct CompressRow {
    const char* compress;
    const char* update;
    const char* listSwitch;
    const char* directory;
    const char* remove;
};

constexpr CompressRow kCompressRows[] = {
    {"zip -r", "", "-@ < ", "!", "zip -d"},
    {"rar a -std -r0", "", "@", "!", "rar d -std -r"},
    {"lha a /s /e", "", "", "!/*", "lha d /s"},
    {"arj a -r", "", "!", "!/*", "arj d"},
    {"unace a -r", "", "@", "!", "unace d"},
    {"ha ar", "", "", "!/*", "ha d"},
    {"gzip -c %f > %a", "", "", "", ""},
    {"tar -rf", "", "--files-from=", "!", "tar --delete -f"},
    {"7z a", "", "@", "!", "7z d"},
    {"bzip2 -c %f > %a", "", "", "", ""},
    {"xz -c %f > %a", "", "", "", ""},
    {"tar -czf", "zttar -u %a %f", "--files-from=", "!", "zttar -d %a %f"},
    {"tar --bzip2 -cf", "zttar -ub %a %f", "--files-from=", "!", "zttar -db %a %f"},
    {"tar --xz -cf", "zttar -ux %a %f", "--files-from=", "!", "zttar -dx %a %f"},
};
static_assert(std::size(kCompressRows) == kArchiverCount);

bool InTable(int index) {
    return index >= 0 && index < kArchiverCount;
}

}  // namespace

void InitArchiverDefaults(ArchiverRecord (&records)[kArchiverCount]) {
    for (int i = 0; i < kArchiverCount; i++) {
        const ExtractRow& extract = kExtractRows[i];
        const CompressRow& compress = kCompressRows[i];
        ArchiverRecord& record = records[i];
        record.extract = extract.extract;
        record.extractListSwitch = extract.listSwitch;
        record.compress = compress.compress;
        record.compressUpdate = compress.update;
        record.compressListSwitch = compress.listSwitch;
        record.remove = compress.remove;
        record.compressDirectory = compress.directory;
        record.extractDirectory = extract.directory;
        record.backslashToSlash = extract.backslashToSlash;
    }
}

const char* ArchiverName(int index) {
    return InTable(index) ? kExtractRows[index].name : "";
}

const char* ArchiverExtension(int index) {
    return InTable(index) ? kExtractRows[index].extension : "";
}

bool ArchiverHoldsOneFile(int index) {
    return InTable(index) && kExtractRows[index].oneFile;
}

}  // namespace zt
