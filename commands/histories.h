// The histories of the program as they are kept from run to run: the commands that were run and the
// texts of input fields. First thread only.
#pragma once

#include "commands/command_history.h"
#include "foundation/memory_pool.h"
#include "foundation/sorted_collection.h"

namespace zt {

// The commands met so far while the file is read. Texts are compared exactly.
class CommandCollection : public TSortedCollection<wchar_t, wchar_t> {
public:
    ~CommandCollection() override { Clear(); }
    // Adds a copy of the text; false when it is there already.
    bool AddCopy(const Westring& text);

protected:
    const wchar_t* KeyOf(wchar_t* item) override { return item; }
    int Compare(const wchar_t* a, const wchar_t* b) override;
    void FreeItem(void*) override {}  // the pool has it

private:
    MemoryPool pool;
};

// At start-up: fills the histories from the file, and shortens a file that has grown past the
// settings. Without a file nothing happens.
void LoadHistory(CommandHistory& history);

// The text, less the white space before it, becomes the newest command, here and in the file.
void AddCommand(CommandHistory& history, const Westring& text);
// The text becomes the newest of the field's list, here and (for the lists that are kept) in the
// file. What input fields call once SetFieldHistoryKeeper has it.
void AddFieldHistory(const Westring& text, int number);
// Takes the command out of the history and the file.
void RemoveCommand(CommandHistory& history, const Westring& text);

}  // namespace zt
