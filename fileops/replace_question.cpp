// Asks as deleting asks, by the rights of the file and its directory.
#include "fileops/replace_question.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "fileops/read_only_question.h"
#include "fileops/target_look.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

constexpr int kStays = 0;
constexpr int kMayGo = 1;

int Writable(const Estring& path, int flags) {
    auto ask = [&] { return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS | flags); };
    return Uninterrupted(ask) < 0 ? errno : 0;
}

bool IsReadOnly(const Westring& path) {
    Westring directory = ParentOfPath(path);
    if (directory.IsEmpty()) directory = L".";
    return Writable(NameToBytes(path), 0) == EACCES && Writable(NameToBytes(directory), 0) == 0;
}

}  // namespace

int AskToReplace(FileOperation& operation, const Westring& path, IPausablePainter* painter) {
    for (;;) {
        const Estring bytes = NameToBytes(path);
        struct stat status;
        int code = LinkStatus(bytes, status);
        if (code == 0)
            code = S_ISDIR(status.st_mode) ? EISDIR : Writable(bytes, AT_SYMLINK_NOFOLLOW);
        if (code == 0 || code == ENOENT || code == ENOTDIR) return kMayGo;
        if (code == EACCES && IsReadOnly(path)) return AskAboutReadOnly(operation, path, painter);
        bool stop = true;
        operation.user.TellError(painter, code, stop, path, Westring());
        if (code == kCancelled) return kCancelled;
        if (stop) return kStays;
    }
}

}  // namespace zt
