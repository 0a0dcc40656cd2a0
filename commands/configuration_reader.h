// Reads the configuration file into `settings` and `configuration`. First thread only. Nothing on
// the disk is changed.
#pragma once

#include "commands/configuration_host.h"
#include "foundation/configuration.h"
#include "foundation/estring.h"

namespace zt {

// With false: sets all defaults, reads everything and mends values that are out of range. With
// true: takes only the rules, the environment and the archivers from the file, replacing the rules
// and the environment that were there, and leaves the settings alone.
// False when there is a file but it cannot be read, which has then been told; the lists then stay
// as they were. A file that is missing counts as an empty one.
bool ReadConfiguration(bool reloadListsOnly, IConfigurationHost& host);

// The sections, in the order of the file: 14 archivers, five lists of rules, and two more.
inline constexpr int kFirstRuleSection = kArchiverCount;
inline constexpr int kEnvironmentSection = kFirstRuleSection + kRuleListCount;
inline constexpr int kGeneralSection = kEnvironmentSection + 1;
inline constexpr int kSectionCount = kGeneralSection + 1;
Estring SectionHeader(int section);

// Takes the lines of a configuration file one by one.
class ConfigurationReader {
public:
    // Everything but the general options goes to `target`.
    ConfigurationReader(bool listsOnly, IConfigurationHost& host, Configuration& target)
        : listsOnly_(listsOnly), host_(host), target_(target) {}

    void TakeLine(const char* line);

private:
    bool SelectSection(const Estring& line);
    void TakePair(const Estring& name, const Estring& value);
    void TakeOption(const Estring& name, const Estring& value);
    void TakeRule(const Estring& line);
    bool InRuleSection() const {
        return section_ >= kFirstRuleSection && section_ < kEnvironmentSection;
    }

    bool listsOnly_;
    IConfigurationHost& host_;
    Configuration& target_;
    int section_ = kGeneralSection;  // for the lines before any header
    int lineNumber_ = 0;
};

}  // namespace zt
