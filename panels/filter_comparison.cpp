// From the words of a comparison to its numbers.
#include "panels/filter_comparison.h"

#include <ctime>

#include "panels/filter_values.h"

namespace zt {

namespace {

struct Keyword {
    const wchar_t* word;
    FilterField field;
    int64_t (*valueOf)(const Westring&);  // null: the value is understood elsewhere
};

constexpr Keyword kKeywords[] = {
    {L"%size", FilterField::kSize, SizeOfValue},
    {L"%date", FilterField::kDate, DateOfValue},
    {L"%age", FilterField::kAge, AgeOfValue},
    {L"%attrib", FilterField::kAttributes, AttributesOfValue},
    {L"%owner", FilterField::kOwner, UserOfValue},
    {L"%group", FilterField::kGroup, GroupOfValue},
    {L"%perm", FilterField::kPermissions, PermissionsOfValue},
    {L"%timestamp", FilterField::kTimeStamp, nullptr},
};

// In every locale alike: not all of them have 'i' for the small form of 'I'.
bool SameWord(const wchar_t* lower, const wchar_t* text) {
    for (; *lower != 0; ++lower, ++text) {
        const wchar_t ch = *text >= L'A' && *text <= L'Z' ? *text + (L'a' - L'A') : *text;
        if (ch != *lower) return false;
    }
    return *text == 0;
}

const Keyword* FindKeyword(const Westring& word) {
    for (const Keyword& row : kKeywords) {
        if (SameWord(row.word, word.c_str())) return &row;
    }
    return nullptr;
}

FilterRelation RelationOf(const Westring& comparator) {
    const bool orEqual = comparator.Length() == 2;
    switch (comparator.IsEmpty() ? L'\0' : static_cast<wchar_t>(comparator[0])) {
        case L'<':
            return orEqual ? FilterRelation::kLessOrEqual : FilterRelation::kLess;
        case L'>':
            return orEqual ? FilterRelation::kGreaterOrEqual : FilterRelation::kGreater;
        case L'=':
            return FilterRelation::kEqual;
        case L'!':
            return orEqual ? FilterRelation::kNotEqual : FilterRelation::kFault;
        default:
            return orEqual ? FilterRelation::kEqualOrFault : FilterRelation::kFault;
    }
}

void UnderstandTimeStamp(const Westring& value, FilterTest& test, IFilterActions& actions) {
    if (!value.IsEmpty() && value[0] == L'@') {
        test.hasStampFile = true;
        test.stampFile = value.c_str() + 1;
    } else if (!TimeStampOfValue(value, test.right)) {
        actions.Error(L"Invalid timestamp value '" + value + L"'");
    }
}

}  // namespace

FilterTest UnderstandComparison(const FilterComparison& comparison, IFilterActions& actions) {
    FilterTest test;
    test.comparator = comparison.comparator;
    test.relation = RelationOf(comparison.comparator);
    if (comparison.value.IsEmpty()) actions.Error(L"Value expected");
    const Keyword* keyword = FindKeyword(comparison.keyword);
    if (!keyword) {
        actions.Error(L"Unknown operator '" + comparison.keyword + L"'");
        return test;
    }
    test.field = keyword->field;
    if (keyword->valueOf) {
        test.right = keyword->valueOf(comparison.value);
    } else {
        UnderstandTimeStamp(comparison.value, test, actions);
    }
    return test;
}

Westring ComparatorFault(const FilterTest& test) {
    return L"Invalid comparitor '" + test.comparator + L"'";
}

int64_t FilterSurroundings::LeftSide(const FilterTest& test, const entry& e) {
    switch (test.field) {
        case FilterField::kUnknown:
            return 0;
        case FilterField::kSize:
            return static_cast<int64_t>(e.size);
        case FilterField::kDate:
            if (!days_) days_.emplace();
            return days_->StartOf(e.time.seconds);
        case FilterField::kAge:
            return time(nullptr) - e.time.seconds;
        case FilterField::kAttributes:
            return e.flags & test.right;
        case FilterField::kOwner:
            return e.uid;
        case FilterField::kGroup:
            return e.gid;
        case FilterField::kPermissions:
            if (!rights_) rights_ = ProcessRights::OfThisProcess();
            return rights_->Of(e) & test.right;
        case FilterField::kTimeStamp:
            return e.time.seconds;
    }
    return 0;
}

int64_t LeftSideAnew(const FilterTest& test, const entry& e) {
    if (test.field == FilterField::kDate) return StartOfDay(e.time.seconds);
    return FilterSurroundings().LeftSide(test, e);
}

int Compare(FilterRelation relation, int64_t left, int64_t right) {
    switch (relation) {
        case FilterRelation::kLess:
            return left < right;
        case FilterRelation::kLessOrEqual:
            return left <= right;
        case FilterRelation::kGreater:
            return left > right;
        case FilterRelation::kGreaterOrEqual:
            return left >= right;
        case FilterRelation::kEqual:
            return left == right;
        case FilterRelation::kNotEqual:
            return left != right;
        case FilterRelation::kEqualOrFault:
            return left == right ? 1 : -1;
        case FilterRelation::kFault:
            break;
    }
    return -1;
}

}  // namespace zt
