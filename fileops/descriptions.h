// The file "descript.ion" of a directory: a line a file, its name (in double quotes when it holds
// blanks), one blank, the text. Lines that are not the subject stay byte for byte as they stand,
// line ends included; the file is replaced whole, and goes with its last line. First thread only.
#pragma once

#include <string>
#include <unordered_set>

#include "foundation/std_file.h"
#include "foundation/westring.h"

namespace zt {

inline constexpr char kDescriptionFileName[] = "descript.ion";

// Opens the description file of `directory` for reading; another program that has it for itself is
// waited for (100 attempts, 50 ms apart). True when it is open.
bool OpenDescriptions(StdFile& file, const Westring& directory);

// Gives the line of `source` in `descriptions` (its directory's file, open; closed means none) to
// `target` in the target's directory. A failure leaves the target's description file as it was.
void CarryDescription(const Westring& source, const Westring& target, StdFile& descriptions);
// The same, and takes the line out of the source's file.
void CarryAndRemoveDescription(const Westring& source, const Westring& target,
                               StdFile& descriptions);
// Takes the line of `path` out of its directory's description file, if it is there.
void RemoveDescription(const Westring& path);

// The lines of many files of one directory, taken out in one go: a long description file is not
// written anew for each of them.
class DescriptionRemovals {
public:
    // `wanted` false: the directory has no description file, and nothing is kept.
    explicit DescriptionRemovals(bool wanted) : wanted_(wanted) {}

    // A name in bytes.
    void Add(const char* name) {
        if (wanted_) names_.insert(name);
    }
    // Takes the lines out of the file of the directory open at `directory` and forgets the names.
    void Apply(int directory);

private:
    bool wanted_;
    std::unordered_set<std::string> names_;
};

// The directory open at `directory` has a description file.
bool HasDescriptions(int directory);

}  // namespace zt
