// The lists of strings that the whole program uses. All own their items; owner and thread as
// ObjectList. Sorted ones hold each text once, case ignored.
#pragma once

#include "foundation/estring.h"
#include "foundation/object_store.h"
#include "foundation/sorted_collection.h"
#include "foundation/westring.h"

namespace zt {

using EstringStore = TObjectStore<Estring>;    // in the order of appending
using WestringStore = TObjectStore<Westring>;  // in the order of appending

class StringCollection : public TSortedCollection<Estring, Estring> {
public:
    // Adds a copy of the text; false when it is there already.
    bool AddCopy(const Estring& text);
    Estring* FindText(const Estring& text) { return Find(&text); }

protected:
    const Estring* KeyOf(Estring* item) override { return item; }
    int Compare(const Estring* a, const Estring* b) override;
};

class WestringCollection : public TSortedCollection<Westring, Westring> {
public:
    bool AddCopy(const Westring& text);
    Westring* FindText(const Westring& text) { return Find(&text); }

protected:
    const Westring* KeyOf(Westring* item) override { return item; }
    int Compare(const Westring* a, const Westring* b) override;
};

// A set of file names.
class FnStringCollection : public WestringCollection {};

struct KeyedValue {
    Estring key;
    Estring value;
};

class KeyedValueSet : public TSortedCollection<KeyedValue, Estring> {
public:
    // Adds the pair; false when the key is there already, whose value then stays.
    bool AddCopy(const Estring& key, const Estring& value);
    KeyedValue* FindText(const Estring& key) { return Find(&key); }

protected:
    const Estring* KeyOf(KeyedValue* item) override { return &item->key; }
    int Compare(const Estring* a, const Estring* b) override;
};

}  // namespace zt
