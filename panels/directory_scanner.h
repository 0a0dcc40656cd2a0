// Lists a real directory, "." and ".." included, in the order of the disk. One entry is used over
// and over: nothing is allocated per entry. First thread only.
#pragma once

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

#include "foundation/westring.h"
#include "panels/entry_rules.h"
#include "panels/entry_scanner.h"

namespace zt {

class DirectoryScanner : public IEntryScanner {
public:
    explicit DirectoryScanner(const Westring& directory);
    ~DirectoryScanner() override;
    DirectoryScanner(const DirectoryScanner&) = delete;
    DirectoryScanner& operator=(const DirectoryScanner&) = delete;

    // The error of a directory that cannot be opened, or of its first entry.
    int First(entry*& found) override;
    int Next(entry*& found) override;

private:
    // False when the entry is gone again.
    bool Fill(const struct dirent64& listed);

    Westring directory_;
    DIR* stream_ = nullptr;
    ProcessIdentity who_;
    entry* entry_;  // with room for the longest name
};

}  // namespace zt
