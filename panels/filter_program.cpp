// Making the steps, and taking them for an entry.
#include "panels/filter_program.h"

#include <cwchar>

#include "foundation/locale_formats.h"
#include "panels/filter_stack.h"
#include "panels/filter_stamp_file.h"

namespace zt {

struct FilterProgram::Run {
    const entry& subject;
    Westring& errorText;
    bool hadError = false;

    void Fail(const Westring& text) {
        errorText = text;
        hadError = true;
    }
};

FilterProgram::FilterProgram(const Westring& expression)
    : expression_(expression),
      dateOrder_(localeFormats.dateOrder),
      dateSeparator_(localeFormats.dateSeparator) {
    const wchar_t* text = expression_.c_str();
    ParseFilter(text, *this);
}

bool FilterProgram::StandsFor(const Westring& expression) const {
    return dateOrder_ == localeFormats.dateOrder && dateSeparator_ == localeFormats.dateSeparator &&
           wcscmp(expression_.c_str(), expression.c_str()) == 0;
}

void FilterProgram::ForgetFiles() {
    BeginAnew();
    for (Test& test : tests_)
        test.isLookedUp = false;
}

void FilterProgram::Mask(const Westring& mask) {
    Add(StepKind::kMask, masks_.size());
    masks_.emplace_back(mask);
}

void FilterProgram::Compare(const FilterComparison& comparison) {
    Test compiled;
    compiled.test = UnderstandComparison(comparison, *this);
    Add(StepKind::kTest, tests_.size());
    tests_.push_back(std::move(compiled));
}

// Of errors in a row only the last will be seen.
void FilterProgram::Error(const Westring& text) {
    if (!steps_.empty() && steps_.back().kind == StepKind::kError) {
        errors_.back() = text;
        return;
    }
    Add(StepKind::kError, errors_.size());
    errors_.push_back(text);
}

int FilterProgram::Evaluate(const entry& subject, Westring& errorText) {
    Run run{subject, errorText};
    int32_t cells[kFilterStackCells];
    int32_t top = -1;
    FilterStack stack(cells, top);
    const auto push = [&](bool value) {
        if (!stack.Push(value)) run.Fail(kFilterStackFull);
    };
    for (const Step& step : steps_) {
        switch (step.kind) {
            case StepKind::kMask:
                push(masks_[step.index].Matches(subject.name));
                break;
            case StepKind::kTest:
                push(ResultOf(tests_[step.index], run));
                break;
            case StepKind::kNot:
                stack.Not();
                break;
            case StepKind::kAnd:
                stack.And();
                break;
            case StepKind::kOr:
                stack.Or();
                break;
            case StepKind::kError:
                run.Fail(errors_[step.index]);
                break;
        }
    }
    return run.hadError ? -1 : stack.Top();
}

bool FilterProgram::ResultOf(Test& test, Run& run) {
    const FilterTest& meaning = test.test;
    const int64_t right = meaning.hasStampFile ? TimeOfStampFile(test, run) : meaning.right;
    const int64_t left = surroundings_.LeftSide(meaning, run.subject);
    const int result = zt::Compare(meaning.relation, left, right);
    if (result < 0) run.Fail(ComparatorFault(meaning));
    return result > 0;
}

// A file that is missing is a fault for the first entry only, unless a test with another file comes
// between: what is remembered is the time of one file, 0 for one that is missing.
int64_t FilterProgram::TimeOfStampFile(Test& test, Run& run) {
    if (!test.isLookedUp) {
        test.isLookedUp = true;
        test.path = StampFilePath(test.test.stampFile);
        test.hasFile = StampFileTime(test.path, test.time);
    }
    if (lastStamp_ == &test) return test.time;
    const bool isSameFile = lastStamp_ && wcscmp(lastStamp_->path.c_str(), test.path.c_str()) == 0;
    lastStamp_ = &test;
    if (!isSameFile && !test.hasFile) run.Fail(StampFileMissing(test.path));
    return test.time;
}

}  // namespace zt
