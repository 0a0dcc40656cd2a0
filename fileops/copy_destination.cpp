// The rules of destinations.
#include "fileops/copy_destination.h"

#include <sys/stat.h>

#include <cwchar>

#include "fileops/destination_toggle.h"
#include "fileops/panel_paths.h"
#include "fileops/target_name.h"
#include "foundation/file_name.h"
#include "foundation/normalize_path.h"

namespace zt {

namespace {

bool IsSame(const Westring& a, const Westring& b) {
    return wcscmp(a.c_str(), b.c_str()) == 0;
}

bool EndsInSlash(const Westring& text) {
    return !text.IsEmpty() && text[text.Length() - 1] == L'/';
}

// 0 where nothing is to be seen.
mode_t KindOf(const Westring& path) {
    struct stat data;
    return stat(NameToBytes(path).c_str(), &data) == 0 ? data.st_mode & S_IFMT : 0;
}

bool IsDirectory(const Westring& path) {
    return KindOf(path) == S_IFDIR;
}

bool TakesAnything(const Westring& path) {
    const mode_t kind = KindOf(path);
    return kind == S_IFCHR || kind == S_IFBLK || kind == S_IFIFO || kind == S_IFSOCK;
}

// The panel's directory, or the working one for a panel without.
Westring BaseDirectory(const Westring& base) {
    return base.IsEmpty() ? WorkingDirectory() : base;
}

}  // namespace

Westring SuggestedDestination(const CPanel& source, const CPanel& other, bool bareName) {
    const entry* current = source.Current();
    Westring name;
    if (current) name = NameOfPath(current->name);
    if (bareName || !other.IsFiles() || other.readPath.IsEmpty()) return name;
    const Westring directory = WithTrailingSlash(PanelDirectory(other));
    return source.taggedCount > 0 ? directory : directory + name;
}

Westring AcceptedText(const Westring& typed, const Westring& name) {
    if (!IsSame(NameOfPath(typed), name)) return typed.Trim();
    return typed.Left(typed.Length() - name.Length()).TrimLeft() + name;
}

DestinationFault ResolveForMany(const Westring& typed, const Westring& base,
                                Westring& destination) {
    bool meansDirectory = EndsInSlash(typed) || IsSame(typed, L"..");
    destination = typed;
    if (NormalizePath(destination, BaseDirectory(base).c_str()) != 0) {
        return DestinationFault::kInvalidPath;
    }
    if (TakesAnything(destination)) return DestinationFault::kNone;
    if (meansDirectory && IsDirectory(destination)) {
        destination = WithTrailingSlash(destination);
        return DestinationFault::kNone;
    }
    Westring tested = destination;
    if (IsMask(NameOfPath(destination))) {
        tested = ParentOfPath(destination);
        meansDirectory = true;
    }
    if (IsDirectory(tested)) return DestinationFault::kNone;
    return meansDirectory ? DestinationFault::kMissingDirectory : DestinationFault::kNotADirectory;
}

Westring TargetOfMany(const Westring& source, const Westring& destination) {
    return EndsInSlash(destination) ? destination + NameOfPath(source)
                                    : MapTargetName(source, destination);
}

Westring DirectoryOfMany(const Westring& destination) {
    return IsDirectory(destination) ? destination : ParentOfPath(destination);
}

DestinationFault ResolveForOne(const Westring& typed, const Westring& source, const Westring& base,
                               Westring& target) {
    const Westring name = NameOfPath(source);
    const bool isUp = IsSame(typed, L"..");
    const Westring part = isUp ? Westring() : NameOfPath(typed);
    Westring directory = isUp ? typed : ParentOfPath(typed);
    if (directory.IsEmpty()) {
        directory = BaseDirectory(base);
    } else if (NormalizePath(directory, BaseDirectory(base).c_str()) != 0) {
        return DestinationFault::kInvalidPath;
    }
    if (part.IsEmpty() || IsSame(part, name)) {
        target = PathInDirectory(directory, name);
        return DestinationFault::kNone;
    }
    target = MapTargetName(source, PathInDirectory(directory, part));
    // "." and ".." as last parts have led here; boxes and comparisons want to see plain paths.
    if (MakeAbsolute(target, directory.c_str()) != 0) return DestinationFault::kInvalidPath;
    return DestinationFault::kNone;
}

bool OnSameFileSystem(const Westring& directoryA, const Westring& directoryB) {
    struct stat a, b;
    if (stat(NameToBytes(directoryA).c_str(), &a) != 0) return true;
    if (stat(NameToBytes(directoryB).c_str(), &b) != 0) return true;
    return a.st_dev == b.st_dev;
}

}  // namespace zt
