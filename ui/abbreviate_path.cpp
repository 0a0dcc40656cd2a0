// Where a path may lose characters.
#include "ui/abbreviate_path.h"

namespace zt {

namespace {

constexpr wchar_t kCutMark = 0x25BA;
constexpr const wchar_t* kGap = L"...";
constexpr int kGapLength = 3;

// The length of the first component with its slash; 0 when the path has no directory part. A
// name that starts with two slashes always has one, so it needs no case of its own.
int HeadLength(const Westring& path) {
    if (path.DirectoryPart().IsEmpty()) return 0;
    return path.FindNth(L'/', path[0] == L'/' ? 2 : 1) + 1;
}

}  // namespace

void AbbreviatePath(Westring& path, int maxWidth) {
    const int length = path.Length();
    if (length <= maxWidth) return;
    if (maxWidth <= 0) {
        path.Clear();
        return;
    }
    const int head = HeadLength(path);
    if (head > 0 && maxWidth > head + kGapLength) {
        path = path.Left(head) + kGap + path.Right(maxWidth - head - kGapLength);
        return;
    }
    path = path.Left(maxWidth - 1);
    path += kCutMark;
}

}  // namespace zt
