// The built-in command lines of the archivers.
#include "foundation/archiver_records.h"

#include <gtest/gtest.h>

#include "foundation/configuration.h"

namespace zt {
namespace {

TEST(ArchiverRecords, HaveTheDefaults) {
    const struct {
        int index;
        const char *name, *extension, *extract, *extractList, *extractDirectory;
        const char *compress, *update, *compressList, *compressDirectory, *remove;
        bool oneFile, slashes;
    } rows[] = {
        {0, "ZIP", "zip", "unzip --z", "", "!/*", "zip -r", "", "-@ < ", "!", "zip -d", false,
         false},
        {2, "LHARC", "lzh", "lha x /s", "", "!/*", "lha a /s /e", "", "", "!/*", "lha d /s", false,
         false},
        {6, "GZIP", "gz", "gzip -dc %a > %f", "", "", "gzip -c %f > %a", "", "", "", "", true,
         false},
        {7, "TAR", "tar", "tar -xf", "--files-from=", "!", "tar -rf", "", "--files-from=", "!",
         "tar --delete -f", false, true},
        {8, "7ZIP", "7z", "7z x", "@", "!", "7z a", "", "@", "!", "7z d", false, false},
        {11, "TAR/GZIP", "tar.gz", "tar -xzf", "--files-from=", "!", "tar -czf", "zttar -u %a %f",
         "--files-from=", "!", "zttar -d %a %f", false, true},
        {13, "TAR/XZ", "tar.xz", "tar --xz -xf", "--files-from=", "!", "tar --xz -cf",
         "zttar -ux %a %f", "--files-from=", "!", "zttar -dx %a %f", false, false},
    };
    ArchiverRecord records[kArchiverCount];
    records[7].extract = "changed";
    InitArchiverDefaults(records);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ArchiverRecord& record = records[row.index];
        EXPECT_STREQ(ArchiverName(row.index), row.name);
        EXPECT_STREQ(ArchiverExtension(row.index), row.extension);
        EXPECT_EQ(ArchiverHoldsOneFile(row.index), row.oneFile);
        EXPECT_STREQ(record.extract.c_str(), row.extract);
        EXPECT_STREQ(record.extractListSwitch.c_str(), row.extractList);
        EXPECT_STREQ(record.extractDirectory.c_str(), row.extractDirectory);
        EXPECT_STREQ(record.compress.c_str(), row.compress);
        EXPECT_STREQ(record.compressUpdate.c_str(), row.update);
        EXPECT_STREQ(record.compressListSwitch.c_str(), row.compressList);
        EXPECT_STREQ(record.compressDirectory.c_str(), row.compressDirectory);
        EXPECT_STREQ(record.remove.c_str(), row.remove);
        EXPECT_EQ(record.backslashToSlash, row.slashes);
    }
}

TEST(ArchiverRecords, RefuseKindsOutsideTheTable) {
    for (const int index : {-1, kArchiverCount, 1000}) {
        EXPECT_STREQ(ArchiverName(index), "");
        EXPECT_STREQ(ArchiverExtension(index), "");
        EXPECT_FALSE(ArchiverHoldsOneFile(index));
    }
}

TEST(Configuration, StartsWithTheBuiltInArchivers) {
    EXPECT_STREQ(configuration.archivers[0].extract.c_str(), "unzip --z");
    EXPECT_EQ(configuration.rules[kRunRules].Count(), 0);
}

}  // namespace
}  // namespace zt
