#include "foundation/string_lists.h"

#include <strings.h>
#include <cwchar>

#include <memory>

namespace zt {

namespace {

// Gives the item to the list, or deletes it when the list refuses it.
template <class List, class Item>
bool InsertOrDelete(List& list, std::unique_ptr<Item> item) {
    if (!list.Insert(item.get())) return false;
    static_cast<void>(item.release());
    return true;
}

}  // namespace

bool StringCollection::AddCopy(const Estring& text) {
    return InsertOrDelete(*this, std::make_unique<Estring>(text));
}

int StringCollection::Compare(const Estring* a, const Estring* b) {
    return strcasecmp(a->c_str(), b->c_str());
}

bool WestringCollection::AddCopy(const Westring& text) {
    return InsertOrDelete(*this, std::make_unique<Westring>(text));
}

int WestringCollection::Compare(const Westring* a, const Westring* b) {
    return wcscasecmp(a->c_str(), b->c_str());
}

bool KeyedValueSet::AddCopy(const Estring& key, const Estring& value) {
    return InsertOrDelete(*this, std::make_unique<KeyedValue>(KeyedValue{key, value}));
}

int KeyedValueSet::Compare(const Estring* a, const Estring* b) {
    return strcasecmp(a->c_str(), b->c_str());
}

}  // namespace zt
