// Deleting one file, link or device, with what is asked about read-only ones.
#include <fcntl.h>
#include <strings.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

#include "fileops/delete_object.h"
#include "fileops/descriptions.h"
#include "fileops/read_only_question.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"

namespace zt {

namespace {

constexpr int kGone = 1, kLeft = 0;

int Unlink(const DeleteSubject& subject) {
    return unlinkat(subject.directory, subject.name, 0) == 0 ? kDone : errno;
}

// A file that may not be written is not deleted without a question, though the system would.
int UnlinkWritable(const DeleteSubject& subject) {
    if (faccessat(subject.directory, subject.name, W_OK, AT_SYMLINK_NOFOLLOW) != 0 &&
        errno != ENOENT && errno != ENOTDIR)
        return errno;
    return Unlink(subject);
}

// The directory part of the name, for the system; "." when there is none.
std::string FolderOf(const char* name) {
    const std::string bytes = name;
    const size_t slash = bytes.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : bytes.substr(0, slash);
}

// That it may not be written, and not its directory, is what was in the way.
bool IsReadOnly(const DeleteSubject& subject) {
    if (faccessat(subject.directory, subject.name, W_OK, 0) == 0 || errno != EACCES) return false;
    return faccessat(subject.directory, FolderOf(subject.name).c_str(), W_OK, 0) == 0;
}

bool IsDescriptionFile(const char* name) {
    const char* slash = strrchr(name, '/');
    return strcasecmp(slash ? slash + 1 : name, kDescriptionFileName) == 0;
}

void DropDescription(const DeleteSubject& subject, DescriptionRemovals* removals) {
    if (removals) {
        removals->Add(subject.name);
    } else {
        RemoveDescription(subject.path);
    }
}

int DeleteWithQuestions(FileOperation& operation, const DeleteSubject& subject, DeleteFileMode mode,
                        bool isQuiet, IPausablePainter* painter, DescriptionRemovals* removals) {
    for (;;) {
        if (mode != DeleteFileMode::kNoWindow) operation.user.ShowDeleting(subject.path);
        int code = UnlinkWritable(subject);
        if (code == kDone) {
            DropDescription(subject, removals);
            return kGone;
        }
        if (painter) painter->Stop();
        if (code == EACCES && IsReadOnly(subject)) {
            const int answer = AskAboutReadOnly(operation, subject.path, painter);
            if (answer != kGone) return answer;
            code = Unlink(subject);
            if (code == kDone) return kGone;
        } else if (code == ENOENT || code == ENOTDIR) {
            // A description file may have gone by itself, with its last line.
            if (isQuiet || IsDescriptionFile(subject.name)) return kLeft;
        }
        bool stop = true;
        operation.user.TellError(painter, code, stop, subject.path, Westring());
        if (stop) return code == kCancelled ? kCancelled : kLeft;
    }
}

}  // namespace

int DeleteFileIn(FileOperation& operation, const DeleteSubject& subject, DeleteFileMode mode,
                 IPausablePainter* painter, DescriptionRemovals* removals) {
    if (mode == DeleteFileMode::kCloseWindow) {
        operation.user.HideDeleting();
        return kLeft;
    }
    const bool isQuiet = mode == DeleteFileMode::kQuiet;
    if (isQuiet) {
        operation.deleteReadOnly = ReadOnlyMode::kAlways;
        mode = DeleteFileMode::kNoWindow;
    }
    const int result = DeleteWithQuestions(operation, subject, mode, isQuiet, painter, removals);
    if (mode == DeleteFileMode::kSingle) operation.user.HideDeleting();
    return result;
}

int DeleteFile(FileOperation& operation, const Westring& path, DeleteFileMode mode,
               IPausablePainter* painter) {
    const Estring bytes = NameToBytes(path);
    return DeleteFileIn(operation, {AT_FDCWD, bytes.c_str(), path}, mode, painter, nullptr);
}

}  // namespace zt
