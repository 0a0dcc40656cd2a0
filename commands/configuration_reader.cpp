#include "commands/configuration_reader.h"

#include <strings.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "commands/application_paths.h"
#include "commands/archiver_keys.h"
#include "commands/rule_line.h"
#include "commands/settings_table.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"
#include "foundation/std_file.h"
#include "foundation/wild_match.h"

namespace zt {

namespace {

constexpr int kLineBytes = 4096;    // one line with its terminator; what is longer is cut
constexpr int kMessageLength = 79;  // of the message about an unknown key
constexpr char kStoredPathMask[] = "d[0-9]";
constexpr char kArchiverHeader[] = "[Archiver";
constexpr const char* kRuleHeaders[] = {"[Associations]", "[Viewer Associations]",
                                        "[Editor Associations]", "[Colours]",
                                        "[Directory Colours]"};

// The values that a setting is held to, and what it becomes outside them.
struct RangeRow {
    int32_t Settings::*variable;
    int32_t least, most, otherwise;
};

constexpr int32_t kMostColumns = 1000;
constexpr int32_t kLargestFont = 200;

constexpr RangeRow kRanges[] = {
    {&Settings::mouSpeed, 1, 1000, 8}, {&Settings::lines, INT32_MIN, 250, 25},
    {&Settings::lines, 0, 250, 0},     {&Settings::columns, 0, kMostColumns, 0},
    {&Settings::tabWidth, 1, 8, 8},    {&Settings::fontSize, 1, kLargestFont, 12},
};

void MendSettings() {
    for (const RangeRow& row : kRanges) {
        int32_t& value = settings.*row.variable;
        if (value < row.least || value > row.most) value = row.otherwise;
    }
}

template <class Set>
void MoveItems(Set& from, Set& to) {
    to.Clear();
    for (auto* item = from.First(); item; item = from.Next())
        to.Append(item);
    from.Forget();
}

void MoveLists(Configuration& from, Configuration& to) {
    for (int i = 0; i < kRuleListCount; i++)
        MoveItems(from.rules[i], to.rules[i]);
    to.environment.Clear();
    from.environment.Flatten(to.environment);
    for (int i = 0; i < kArchiverCount; i++)
        to.archivers[i] = from.archivers[i];
}

// 0 for an ordinary file; ENOENT for what counts as missing. Other things than files are not
// opened at all: the opening of a pipe would wait for its other end.
int CheckReadable(const char* path) {
    struct stat found = {};
    if (stat(path, &found) != 0) return errno;
    if (S_ISREG(found.st_mode)) return 0;
    if (S_ISCHR(found.st_mode)) return ENOENT;
    return S_ISDIR(found.st_mode) ? EISDIR : EOPNOTSUPP;
}

// 0, ENOENT, or what went wrong.
int ReadLines(const Westring& path, ConfigurationReader& reader) {
    if (const int error = CheckReadable(NameToBytes(path).c_str())) return error;
    StdFile file;
    if (const int error = file.Open(path, 0)) return error;
    char line[kLineBytes];
    int result = 0;
    while ((result = file.ReadLine(line, kLineBytes)) == 0)
        reader.TakeLine(line);
    return result == StdFile::kEndOfFile ? 0 : result;
}

bool SameScreen(const Settings& a, const Settings& b) {
    return a.lines == b.lines && a.columns == b.columns && a.fontSize == b.fontSize &&
           strcmp(a.fontFamily.c_str(), b.fontFamily.c_str()) == 0;
}

}  // namespace

Estring SectionHeader(int section) {
    if (section < kArchiverCount) return Estring::Format("[Archiver:%s]", ArchiverName(section));
    if (section < kEnvironmentSection) return kRuleHeaders[section - kFirstRuleSection];
    return section == kEnvironmentSection ? "[Environment]" : "[General Options]";
}

bool ReadConfiguration(bool reloadListsOnly, IConfigurationHost& host) {
    const Settings before = settings;
    Configuration read;
    if (reloadListsOnly) {
        for (int i = 0; i < kArchiverCount; i++)
            read.archivers[i] = configuration.archivers[i];
    } else {
        settings = Settings();
    }
    const Westring path = ConfigFilePath(false);
    ConfigurationReader reader(reloadListsOnly, host, read);
    int error = ReadLines(path, reader);
    if (error == ENOENT) error = 0;
    if (error != 0) host.ShowMessage(Estring::ErrorText(error), path.c_str());
    if (error == 0 || !reloadListsOnly) MoveLists(read, configuration);
    if (!reloadListsOnly) {
        MendSettings();
        if (!SameScreen(before, settings)) host.ScreenSettingsChanged();
    }
    return error == 0;
}

void ConfigurationReader::TakeLine(const char* line) {
    lineNumber_++;
    const Estring text = Estring(line).Trim();
    if (SelectSection(text)) return;
    const int equals = text.Find('=');
    const int colon = text.Find(':');
    const bool general = section_ == kGeneralSection;
    if (InRuleSection() || (general && colon >= 0 && (equals < 0 || colon < equals))) {
        if (colon >= 0) TakeRule(text);
    } else if (equals >= 0) {
        TakePair(text.Left(equals).Trim(), text.Right(text.Length() - equals - 1).Trim());
    }
}

bool ConfigurationReader::SelectSection(const Estring& line) {
    if (line[0] != '[') return false;
    for (int i = 0; i < kSectionCount; i++) {
        if (strcmp(line.c_str(), SectionHeader(i).c_str()) == 0) {
            section_ = i;
            return true;
        }
    }
    return false;
}

void ConfigurationReader::TakePair(const Estring& name, const Estring& value) {
    if (section_ == kGeneralSection) {
        if (!listsOnly_) TakeOption(name, value);
    } else if (section_ == kEnvironmentSection) {
        Westring expanded = NameFromBytes(value.c_str());
        host_.ExpandVariables(expanded);
        target_.environment.Set(name.c_str(), NameToBytes(expanded).c_str());
    } else {
        for (const ArchiverKey& row : kArchiverKeys) {
            if (name == row.key) target_.archivers[section_].*row.field = value;
        }
    }
}

void ConfigurationReader::TakeOption(const Estring& name, const Estring& value) {
    if (const SettingRow* row = FindSetting(name.c_str())) {
        StoreSetting(*row, value.c_str());
    } else if (WildMatch(kStoredPathMask, name.c_str())) {
        settings.storedPaths[name[1] - '0'] = NameFromBytes(value.c_str());
    } else {
        const Estring message =
            Estring::Format("Bad directive (%s) in zt.ini, line %d", name.c_str(), lineNumber_);
        host_.ShowMessage(message.Left(kMessageLength), nullptr);
    }
}

void ConfigurationReader::TakeRule(const Estring& line) {
    // The header of an archiver that is not known here.
    if (strncmp(line.c_str(), kArchiverHeader, sizeof kArchiverHeader - 1) == 0) return;
    const int list = InRuleSection() ? section_ - kFirstRuleSection : kRunRules;
    const bool colours = list == kFileColourRules || list == kDirectoryColourRules;
    Association rule;
    if (!ParseRuleLine(line, !colours, rule)) return;
    Westring error;
    if (host_.CheckRule(rule.mask, error)) {
        AddAssociation(target_.rules[list], rule);
    } else {
        const Westring name = NameFromBytes(line.c_str()) + ":" + error;
        host_.ShowMessage("Error in association", name.c_str());
    }
}

}  // namespace zt
