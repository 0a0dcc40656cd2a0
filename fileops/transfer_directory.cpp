// A directory tree: the directory is made, or merged with the one that is there, and each thing in
// it goes its own way, with its own questions. It is private until all of its contents are in.
#include <dirent.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cwchar>
#include <memory>

#include "fileops/abort_guard.h"
#include "fileops/delete.h"
#include "fileops/descriptions.h"
#include "fileops/inside_itself.h"
#include "fileops/name_list.h"
#include "fileops/panel_paths.h"
#include "fileops/rename_object.h"
#include "fileops/target_look.h"
#include "fileops/temporary_name.h"
#include "fileops/transfer.h"
#include "fileops/transfer_questions.h"
#include "foundation/case_fold.h"
#include "foundation/file_name.h"
#include "foundation/result_codes.h"
#include "foundation/system_call.h"
#include "ui/message_box.h"

namespace zt {

namespace {

constexpr mode_t kPrivateDirectory = 0700;
constexpr mode_t kPermissions = 07777;

// The directories that a transfer is in the middle of, from the outermost in.
class DirectoryLevel {
public:
    DirectoryLevel(FileOperation& operation, const FileIdentity& directory)
        : chain_(operation.directories) {
        chain_.push_back(directory);
    }
    ~DirectoryLevel() { chain_.pop_back(); }
    DirectoryLevel(const DirectoryLevel&) = delete;
    DirectoryLevel& operator=(const DirectoryLevel&) = delete;

private:
    std::vector<FileIdentity>& chain_;
};

int MakeDirectory(const char* path) {
    return Uninterrupted([&] { return mkdir(path, kPrivateDirectory); }) < 0 ? errno : 0;
}

class DirectoryTransfer {
public:
    explicit DirectoryTransfer(Transfer& transfer)
        : transfer_(transfer), operation_(transfer.operation) {}

    int Run();

private:
    int CheckPlace();
    int List();
    int MakeTarget();
    int MergeInto(int failure);
    int ReplaceFile();
    int AskToMerge();
    int TransferContents();
    int TransferEntry(const NameList::Name& name);
    bool LosesCase(const NameList::Name& name) const;
    int RemoveSource();

    Transfer& transfer_;
    FileOperation& operation_;
    NameList names_;
    StdFile descriptions_;  // of this directory
    int left_ = 0;          // entries that did not go
};

int DirectoryTransfer::Run() {
    int code = CheckPlace();
    if (code == kDone) code = List();
    if (code == kDone) code = MakeTarget();
    if (code != kDone) return code;
    const DirectoryLevel level(operation_, IdentityOf(transfer_.status));
    code = TransferContents();
    if (code != kDone) return code;
    const mode_t mode = transfer_.status.st_mode & kPermissions;
    (void)Uninterrupted([&] { return chmod(transfer_.targetPath.c_str(), mode); });
    // What is not finished stays tagged, and keeps the directories that it lies in.
    if (left_ > 0) return kSkipped;
    return transfer_.move ? RemoveSource() : kDone;
}

// What lies within a directory that went through this was looked at with it. Links that are
// followed may lead back up.
int DirectoryTransfer::CheckPlace() {
    const FileIdentity identity = IdentityOf(transfer_.status);
    const auto& chain = operation_.directories;
    if (!chain.empty()) {
        return std::find(chain.begin(), chain.end(), identity) != chain.end() ? ELOOP : kDone;
    }
    return RefuseInsideItself(operation_, transfer_.progress, transfer_.source, transfer_.target,
                              identity);
}

int DirectoryTransfer::List() {
    for (;;) {
        int code = names_.Read(transfer_.sourcePath);
        if (code != EIO) return code;
        bool stop = true;
        operation_.user.TellError(transfer_.progress, code, stop, transfer_.source, Westring());
        operation_.toldReadError = true;
        if (stop) return code;
        if (transfer_.progress) transfer_.progress->Start();
    }
}

int DirectoryTransfer::MakeTarget() {
    const int code = MakeDirectory(transfer_.targetPath.c_str());
    if (code != kDone) return MergeInto(code);
    CarryDescription(transfer_.source, transfer_.target, transfer_.descriptions);
    return kDone;
}

// `failure` is what kept the directory from being made.
int DirectoryTransfer::MergeInto(int failure) {
    const TargetLook look = LookAtTarget(transfer_.targetPath);
    if (!look.Stands()) return failure;
    if (!look.isDirectory) {
        return transfer_.Has(kTransferMayReplace) ? ReplaceFile() : EEXIST;
    }
    const FileIdentity identity = IdentityOf(transfer_.status);
    if (look.Identity() == identity || (look.isLink && LeadsInto(transfer_.targetPath, identity))) {
        return RefuseInsideItself(operation_, transfer_.progress, transfer_.source,
                                  transfer_.target, identity);
    }
    return AskToMerge();
}

int DirectoryTransfer::ReplaceFile() {
    Estring temporary;
    int code = MakeTemporary(transfer_.targetPath, temporary, MakeDirectory);
    if (code != kDone) return code;
    code = RenameOver(temporary, transfer_.targetPath);
    if (code != kDone) rmdir(temporary.c_str());
    return code;
}

// Only a source without a path of its own brings up the question.
int DirectoryTransfer::AskToMerge() {
    if (operation_.mergeAll || transfer_.source.Find('/') >= 0) return kDone;
    const int answer =
        operation_.user.Ask(transfer_.progress, L"Directory already exists, merge with source?",
                            transfer_.target, kBoxOkCancelSkipAllNone);
    switch (LowerCaseOf(answer)) {
        case kAnswerEscape:
            return kCancelled;
        case 's':
            return kSkipped;
        case 'a':
            operation_.mergeAll = true;
            return kDone;
        case 'y':
            return kDone;
        default:
            return answer;
    }
}

int DirectoryTransfer::TransferContents() {
    NameList::Name name;
    bool described = false;
    while (!described && names_.Next(name))
        described = strcasecmp(name.bytes, kDescriptionFileName) == 0;
    if (described) OpenDescriptions(descriptions_, transfer_.source);
    names_.Rewind();
    while (names_.Next(name)) {
        if (strcasecmp(name.bytes, kDescriptionFileName) == 0) continue;
        const int code = TransferEntry(name);
        if (code < 0) return code;
        if (code > 0) left_++;
        if (AbortGuard::Asked(operation_)) return kCancelled;
    }
    return kDone;
}

// File systems that fold case give some names in capitals.
bool DirectoryTransfer::LosesCase(const NameList::Name& name) const {
    if (!operation_.caseFilterSource) return false;
    if (name.type != DT_UNKNOWN) return name.type != DT_DIR;
    const Westring path = PathInDirectory(transfer_.source, NameFromBytes(name.bytes));
    struct stat status;
    return LinkStatus(NameToBytes(path), status) == 0 && !S_ISDIR(status.st_mode);
}

int DirectoryTransfer::TransferEntry(const NameList::Name& listed) {
    Westring name = NameFromBytes(listed.bytes);
    if (LosesCase(listed)) name = name.ToLower();
    const Westring source = PathInDirectory(transfer_.source, name);
    const Westring target = PathInDirectory(transfer_.target, name);
    if (transfer_.move) {
        return MoveWithPrompts(operation_, source, target, 1, 1, transfer_.progress, descriptions_,
                               false);
    }
    return CopyWithQuestions(operation_, source, target, 1, 1, transfer_.progress, descriptions_,
                             transfer_.flags & ~kTransferMayReplace);
}

// What somebody has put there meanwhile keeps the directory. What else is still there, a file that
// the user let stay, is the deletion's to ask about. Where nothing is left nothing is asked, so
// that what appears from now on keeps it as well.
int DirectoryTransfer::RemoveSource() {
    descriptions_.Close();
    NameList rest;
    const int code = rest.Read(transfer_.sourcePath);
    if (code != kDone) return code;
    const bool isEmpty = rest.IsEmpty();
    if (!rest.IsPartOf(names_)) return ENOTEMPTY;
    operation_.deleteTreeDepth += isEmpty;
    const int removed = DeleteDirectory(operation_, operation_.panels, transfer_.source, nullptr,
                                        transfer_.progress);
    operation_.deleteTreeDepth -= isEmpty;
    return isEmpty && removed == 0 ? kSkipped : kDone;
}

}  // namespace

int TransferDirectory(Transfer& transfer) {
    return std::make_unique<DirectoryTransfer>(transfer)->Run();
}

}  // namespace zt
