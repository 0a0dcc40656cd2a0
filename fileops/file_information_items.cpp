// One function a line that needs more than a number.
#include "fileops/file_information_items.h"

#include <grp.h>
#include <pwd.h>

#include <cwchar>

#include "foundation/date_time.h"
#include "foundation/file_name.h"
#include "foundation/size_text.h"
#include "panels/entry_fields.h"
#include "ui/abbreviate_path.h"

namespace zt {

namespace {

constexpr int kLongSize = 20;
constexpr int kShortSize = 6;

struct TypeRow {
    mode_t bits;
    const char* text;
};

constexpr TypeRow kTypes[] = {
    {S_IFIFO, "Named Pipe (FIFO)"}, {S_IFCHR, "Character device"}, {S_IFDIR, "Directory"},
    {S_IFBLK, "Block device"},      {S_IFREG, "Regular file"},     {S_IFLNK, "Symbolic Link"},
    {S_IFSOCK, "Socket"},
};

const char* TypeText(mode_t mode) {
    for (const TypeRow& row : kTypes) {
        if ((mode & S_IFMT) == row.bits) return row.text;
    }
    return "Unknown";
}

Westring SizeText(uint64_t size) {
    Westring text, shortText;
    FormatSize64(size, text, kLongSize);
    FormatSize64(size, shortText, kShortSize);
    if (wcscmp(text.c_str(), shortText.c_str()) == 0) return text;
    return text + L" (" + shortText + L")";
}

Westring TimeText(const timespec& at) {
    TTime time;
    time.seconds = at.tv_sec;
    time.nanoseconds = static_cast<int32_t>(at.tv_nsec);
    return TimeToText(time);
}

Westring Decimal(uint64_t value) {
    return Estring::Format("%llu", static_cast<unsigned long long>(value));
}

Westring NameAndNumber(const char* name, uint32_t number) {
    return NameFromBytes(name) + Estring::Format("(%u)", number).c_str();
}

Westring OwnerText(uid_t user) {
    const struct passwd* account = getpwuid(user);
    if (!account) return Decimal(user);
    Westring text = NameAndNumber(account->pw_name, user);
    const Westring comment = NameFromBytes(account->pw_gecos);
    const int comma = comment.Find(L',');
    const Westring fullName = comma < 0 ? comment : comment.Left(comma);
    if (!fullName.IsEmpty()) text += L" - " + fullName;
    return text;
}

Westring GroupText(gid_t group) {
    const struct group* found = getgrgid(group);
    return found ? NameAndNumber(found->gr_name, group) : Decimal(group);
}

}  // namespace

void CFileInfoItems::Add(const char* label, const Westring& text) {
    Append(new CFileInfoItem{label, text});
}

void FillFileInfo(const struct stat& data, const Westring& target, int targetWidth,
                  CFileInfoItems& items) {
    items.Add("Size", SizeText(static_cast<uint64_t>(data.st_size)));
    items.Add("Access Time", TimeText(data.st_atim));
    items.Add("Modified Time", TimeText(data.st_mtim));
    items.Add("Changed Time", TimeText(data.st_ctim));
    items.Add("Mode", ModeField(static_cast<uint16_t>(data.st_mode)));
    items.Add("Hard Links", Decimal(data.st_nlink));
    if (data.st_ino != 0) items.Add("Inode", Decimal(data.st_ino));
    items.Add("Type", TypeText(data.st_mode));
    if (S_ISLNK(data.st_mode) && !target.IsEmpty()) {
        Westring shown = target;
        AbbreviatePath(shown, targetWidth);
        items.Add("Target", shown);
    }
    items.Add("Owner", OwnerText(data.st_uid));
    items.Add("Group", GroupText(data.st_gid));
}

}  // namespace zt
