// Sorting the entries of a panel.
//
// The documented order is a comparison of two entries; sorting a large directory by it would look
// into names twenty times each. Instead each group is sorted for itself by 64-bit words: the time
// or the size first, then eight bytes of the name's key at a time, taking only runs of equal words
// further. A key is made once per entry and only where the earlier word did not decide.
#include "panels/entry_sorting.h"

#include <endian.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <vector>

#include "foundation/settings.h"
#include "panels/panel.h"
#include "panels/sort_key.h"

namespace zt {

namespace {

int CompareTimes(const TTime& a, const TTime& b) {
    if (a.seconds != b.seconds) return a.seconds < b.seconds ? -1 : 1;
    if (a.nanoseconds != b.nanoseconds) return a.nanoseconds < b.nanoseconds ? -1 : 1;
    return 0;
}

// Without the sign; larger times and sizes come first.
int CompareByOrder(const entry& a, const entry& b, int order) {
    const bool natural = settings.naturalSort;
    int result = 0;
    switch (order) {
        case kSortExtension:
            result = CompareNames(ExtensionOf(a.name), ExtensionOf(b.name), natural);
            break;
        case kSortTime:
            result = CompareTimes(b.time, a.time);
            break;
        case kSortSize:
            result = a.size == b.size ? 0 : a.size > b.size ? -1 : 1;
            break;
        case kSortUnsorted:
            return 0;
        default:
            break;
    }
    return result != 0 ? result : CompareNames(a.name, b.name, natural);
}

struct SortItem {
    uint64_t word;  // what the present pass compares
    size_t key;     // where the name's bytes begin, zero-ended
    entry* item;
};

using ItemIterator = std::vector<SortItem>::iterator;

constexpr size_t kWordBytes = sizeof(uint64_t);

// Eight bytes in the order of comparison; what lies behind the key's end counts as zeros.
uint64_t WordAt(const uint8_t* bytes) {
    uint64_t word;
    memcpy(&word, bytes, sizeof word);
    word = be64toh(word);
    const size_t length = strnlen(reinterpret_cast<const char*>(bytes), kWordBytes);
    return length == kWordBytes ? word : length == 0 ? 0 : word & ~uint64_t{0} << (64 - 8 * length);
}

// Calls `further` for each run of at least two items with the same word.
template <class Further>
void SortByWord(ItemIterator first, ItemIterator last, Further further) {
    const auto before = [](const SortItem& a, const SortItem& b) { return a.word < b.word; };
    // Often so: one group, a common beginning of all names, one size, an order that is there.
    if (!std::is_sorted(first, last, before)) std::sort(first, last, before);
    for (auto run = first; run != last;) {
        auto end = run + 1;
        while (end != last && end->word == run->word)
            ++end;
        if (end - run > 1) further(run, end);
        run = end;
    }
}

void SortByKey(ItemIterator first, ItemIterator last, const uint8_t* bytes) {
    for (auto it = first; it != last; ++it)
        it->word = WordAt(bytes + it->key);
    SortByWord(first, last, [bytes](ItemIterator run, ItemIterator end) {
        // A last byte of 0 means that the keys of this run have ended, all of them alike.
        if ((run->word & 0xFF) != 0) SortByKey(run, end, bytes + kWordBytes);
    });
}

class GroupSorter {
public:
    explicit GroupSorter(int order) : order_(order) {}

    void Sort(ItemIterator first, ItemIterator last) {
        if (order_ == kSortTime) {
            SortBy(
                first, last, [](const entry& e) { return ~SignedWord(e.time.seconds); },
                [](const entry& e) { return ~SignedWord(e.time.nanoseconds); });
        } else if (order_ == kSortSize) {
            SortBy(
                first, last, [](const entry& e) { return ~e.size; }, nullptr);
        } else {
            SortByNames(first, last);
        }
    }

private:
    // Keeps the order of signed numbers.
    static uint64_t SignedWord(int64_t value) {
        return static_cast<uint64_t>(value) ^ (uint64_t{1} << 63);
    }

    using WordOf = uint64_t (*)(const entry&);

    void SortBy(ItemIterator first, ItemIterator last, WordOf wordOf, WordOf second) {
        for (auto it = first; it != last; ++it)
            it->word = wordOf(*it->item);
        SortByWord(first, last, [this, second](ItemIterator run, ItemIterator end) {
            if (second) {
                SortBy(run, end, second, nullptr);
            } else {
                SortByNames(run, end);
            }
        });
    }

    void SortByNames(ItemIterator first, ItemIterator last) {
        bytes_.clear();
        bytes_.reserve(BytesFor(first, last));
        const bool natural = settings.naturalSort;
        for (auto it = first; it != last; ++it) {
            it->key = bytes_.size();
            if (order_ == kSortExtension) AppendMarked(ExtensionOf(it->item->name), natural);
            AppendSortBytes(it->item->name, natural, bytes_);
            bytes_.push_back(0);
        }
        bytes_.insert(bytes_.end(), kWordBytes, 0);  // the last word may be read past its end
        SortByKey(first, last, bytes_.data());
    }

    // Enough for names of ASCII letters: a large list is not moved about while its keys are made.
    size_t BytesFor(ItemIterator first, ItemIterator last) const {
        size_t bytes = kWordBytes;
        for (auto it = first; it != last; ++it) {
            bytes += wcslen(it->item->name) + 1;
            if (order_ == kSortExtension) bytes += 2 * wcslen(ExtensionOf(it->item->name)) + 1;
        }
        return bytes;
    }

    // The extension goes before the whole name. Byte 0 cannot part the two, and 1 is an
    // underscore's key: so every byte is put behind a 2, and a 1 ends them.
    void AppendMarked(const wchar_t* extension, bool natural) {
        extensionBytes_.clear();
        AppendSortBytes(extension, natural, extensionBytes_);
        for (const uint8_t byte : extensionBytes_) {
            bytes_.push_back(2);
            bytes_.push_back(byte);
        }
        bytes_.push_back(1);
    }

    int order_;
    std::vector<uint8_t> bytes_;
    std::vector<uint8_t> extensionBytes_;
};

}  // namespace

int CompareEntries(const entry& a, const entry& b, int sort) {
    if (a.group != b.group) return a.group < b.group ? -1 : 1;
    const int result = CompareByOrder(a, b, sort % kReversed);
    return sort < kReversed ? result : -result;
}

void SortEntries(const CPanel&, int sort, entry** items, int count) {
    const int order = sort % kReversed;
    if (order == kSortUnsorted || count < 2) return;
    std::vector<SortItem> sorted;
    sorted.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const auto group = static_cast<uint8_t>(items[i]->group);
        sorted.push_back({group, 0, items[i]});
    }
    GroupSorter sorter(order);
    SortByWord(sorted.begin(), sorted.end(), [&](ItemIterator run, ItemIterator end) {
        sorter.Sort(run, end);
        if (sort >= kReversed) std::reverse(run, end);
    });
    for (int i = 0; i < count; ++i)
        items[i] = sorted[static_cast<size_t>(i)].item;
}

// Each group lies together, so that looking for its end touches few entries of a long list.
static void TurnGroups(entry** items, int count) {
    for (entry **at = items, **const end = items + count; at != end;) {
        const char group = (*at)->group;
        entry** const next =
            std::partition_point(at, end, [group](const entry* e) { return e->group == group; });
        std::reverse(at, next);
        at = next;
    }
}

void SortPanel(CPanel& panel) {
    EntryArray& entries = panel.entries;
    const bool isTurned =
        panel.sort % kReversed != kSortUnsorted &&
        entries.Order() == EntryOrder{ReversedSort(panel.sort), settings.naturalSort};
    if (isTurned) {
        TurnGroups(entries.Items(), entries.Count());
    } else {
        SortEntries(panel, panel.sort, entries.Items(), entries.Count());
    }
    entries.SetOrder({panel.sort, settings.naturalSort});
}

}  // namespace zt
