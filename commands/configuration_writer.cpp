#include "commands/configuration_writer.h"

#include <cerrno>

#include "commands/application_paths.h"
#include "commands/archiver_keys.h"
#include "commands/configuration_reader.h"
#include "commands/replacing_file.h"
#include "commands/rule_line.h"
#include "commands/settings_table.h"
#include "foundation/configuration.h"
#include "foundation/file_name.h"
#include "foundation/settings.h"

namespace zt {

namespace {

constexpr int kLongestLine = 4095;  // what the reader takes as one line

void AddLine(Estring& text, const Estring& line) {
    if (line.Length() > kLongestLine || line.Find('\n') >= 0) return;
    text += line;
    text += '\n';
}

void AddPair(Estring& text, const char* key, const Estring& value) {
    AddLine(text, Estring(key) + "=" + value);
}

void AddHeader(Estring& text, int section) {
    AddLine(text, SectionHeader(section));
}
void AddEmptyLine(Estring& text) {
    text += '\n';
}

void AddRules(Estring& text) {
    for (int i = 0; i < kRuleListCount; i++) {
        AddHeader(text, kFirstRuleSection + i);
        AssociationSet& set = configuration.rules[i];
        for (const Association* rule = set.First(); rule; rule = set.Next()) {
            AddLine(text, RuleLine(*rule));
        }
        AddEmptyLine(text);
    }
}

void AddEnvironment(Estring& text) {
    AddHeader(text, kEnvironmentSection);
    Environment& set = configuration.environment;
    for (const KeyedValue* item = set.First(); item; item = set.Next()) {
        AddPair(text, item->key.c_str(), item->value);
    }
    AddEmptyLine(text);
}

void AddArchivers(Estring& text) {
    for (int i = 0; i < kArchiverCount; i++) {
        AddHeader(text, i);
        for (const ArchiverKey& row : kArchiverKeys) {
            const Estring& value = configuration.archivers[i].*row.field;
            if (row.writtenWhenEmpty || !value.IsEmpty()) AddPair(text, row.key, value);
        }
        AddEmptyLine(text);
    }
}

void AddGeneralOptions(Estring& text) {
    AddHeader(text, kGeneralSection);
    for (int i = 0; i < kSettingCount; i++) {
        const SettingRow& row = SettingsTable()[i];
        if (row.variable) AddPair(text, row.key, SettingText(row));
    }
    AddEmptyLine(text);
    for (int i = 0; i < 10; i++) {
        const Westring& path = settings.storedPaths[i];
        if (!path.IsEmpty()) AddPair(text, Estring::Format("d%d", i).c_str(), NameToBytes(path));
    }
}

// Opens the file, with the directory made when it is not there.
int OpenForWriting(ReplacingFile& file, const Westring& path) {
    const int result = file.Open(path);
    if (result != ENOENT) return result;
    const int made = MakePersonalDirectory();
    return made == 0 ? file.Open(path) : made;
}

}  // namespace

Estring ConfigurationText() {
    Estring text;
    AddRules(text);
    AddEnvironment(text);
    AddArchivers(text);
    AddGeneralOptions(text);
    return text;
}

bool WriteConfiguration(IConfigurationHost& host) {
    // A file that is there but cannot be read has been told of; writing over it would lose it.
    if (!ReadConfiguration(true, host)) return false;
    const int rows = host.ScreenRows();
    if (settings.lines != 0 && rows != 0) settings.lines = rows;

    const Westring path = ConfigFilePath(true);
    ReplacingFile file;
    int error = OpenForWriting(file, path);
    if (error == 0) {
        host.CopyPanelState();
        error = file.Commit(ConfigurationText());
    }
    if (error != 0 && error != ENOENT) {
        host.ShowMessage(Estring::ErrorText(error), path.c_str());
    }
    return error == 0;
}

}  // namespace zt
