// A comparison of a filter expression, understood: which of the entry's values is compared, how,
// and with what. Made from the text once or for each entry, as the evaluator likes; one thread.
#pragma once

#include <cstdint>
#include <optional>

#include "foundation/westring.h"
#include "panels/effective_permissions.h"
#include "panels/entry.h"
#include "panels/filter_days.h"
#include "panels/filter_parser.h"

namespace zt {

enum class FilterField {
    kUnknown,  // both sides are 0
    kSize,
    kDate,
    kAge,
    kAttributes,
    kOwner,
    kGroup,
    kPermissions,
    kTimeStamp,
};

enum class FilterRelation {
    kLess,
    kLessOrEqual,
    kGreater,
    kGreaterOrEqual,
    kEqual,
    kNotEqual,
    kEqualOrFault,  // a fault unless both sides are equal
    kFault,
};

struct FilterTest {
    FilterField field = FilterField::kUnknown;
    FilterRelation relation = FilterRelation::kFault;
    int64_t right = 0;   // a mask is both the right side and what the left side is cut to
    Westring stampFile;  // as it is written behind the '@'; its time is then the right side
    bool hasStampFile = false;
    Westring comparator;  // as it is written, for its fault
};

// Tells `actions` of the faults that lie in the text alone.
FilterTest UnderstandComparison(const FilterComparison& comparison, IFilterActions& actions);
Westring ComparatorFault(const FilterTest& test);  // the error text

// What the entries' values are taken with: found out at first need and kept as long as this lives.
class FilterSurroundings {
public:
    int64_t LeftSide(const FilterTest& test, const entry& e);

private:
    std::optional<FilterDays> days_;
    std::optional<ProcessRights> rights_;
};

// The same for one entry alone, with nothing remembered.
int64_t LeftSideAnew(const FilterTest& test, const entry& e);

// 1 or 0, or -1 for a fault of the comparator.
int Compare(FilterRelation relation, int64_t left, int64_t right);

}  // namespace zt
