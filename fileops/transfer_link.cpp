// A symbolic link is made anew with the same text; nobody looks at what it points to.
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <vector>

#include "fileops/delete.h"
#include "fileops/rename_object.h"
#include "fileops/temporary_name.h"
#include "fileops/transfer.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"

namespace zt {

namespace {

// The text with a zero behind it; 0 or an errno value.
int ReadLink(const Estring& path, std::vector<char>& text) {
    text.resize(PATH_MAX + 1);
    const ssize_t length =
        Uninterrupted([&] { return readlink(path.c_str(), text.data(), text.size() - 1); });
    if (length < 0) return errno;
    text[static_cast<size_t>(length)] = 0;
    return static_cast<size_t>(length) < text.size() - 1 ? 0 : ENAMETOOLONG;
}

int MakeLink(const char* text, const char* path) {
    return Uninterrupted([&] { return symlink(text, path); }) < 0 ? errno : 0;
}

// The link is made beside what stands there, and takes its name.
int ReplaceByLink(const char* text, const Estring& target) {
    Estring temporary;
    int code =
        MakeTemporary(target, temporary, [text](const char* path) { return MakeLink(text, path); });
    if (code != kDone) return code;
    code = RenameOver(temporary, target);
    if (code != kDone) unlink(temporary.c_str());
    return code;
}

// kDone also when the user lets the link stay.
int RemoveSource(Transfer& transfer) {
    if (Uninterrupted([&] { return unlink(transfer.sourcePath.c_str()); }) == 0) return kDone;
    const int gone = DeleteFile(transfer.operation, transfer.source, DeleteFileMode::kNoWindow,
                                transfer.progress);
    return gone < 0 ? gone : kDone;
}

}  // namespace

int TransferLink(Transfer& transfer) {
    std::vector<char> text;
    int code = ReadLink(transfer.sourcePath, text);
    if (code != kDone || text[0] == 0) return code;
    code = MakeLink(text.data(), transfer.targetPath.c_str());
    if (code == EEXIST && transfer.Has(kTransferMayReplace)) {
        code = ReplaceByLink(text.data(), transfer.targetPath);
    }
    return code == kDone && transfer.move ? RemoveSource(transfer) : code;
}

}  // namespace zt
