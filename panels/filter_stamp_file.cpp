#include "panels/filter_stamp_file.h"

#include <sys/stat.h>

#include "foundation/file_name.h"
#include "foundation/normalize_path.h"

namespace zt {

Westring StampFilePath(const Westring& written) {
    Westring path = written;
    static_cast<void>(NormalizePath(path, nullptr));
    return path;
}

bool StampFileTime(const Westring& path, int64_t& seconds) {
    struct stat found = {};
    const bool exists = lstat(NameToBytes(path).c_str(), &found) == 0;
    seconds = exists ? found.st_mtim.tv_sec : 0;
    return exists;
}

Westring StampFileMissing(const Westring& path) {
    return L"File '" + path + L"' not found";
}

}  // namespace zt
