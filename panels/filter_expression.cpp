// The evaluator that computes while it parses.
#include "panels/filter_expression.h"

#include <cwchar>

#include "foundation/wild_match.h"
#include "panels/filter_comparison.h"
#include "panels/filter_parser.h"
#include "panels/filter_stack.h"
#include "panels/filter_stamp_file.h"

namespace zt {

namespace {

class Interpreter : public IFilterActions {
public:
    explicit Interpreter(FilterEvaluator& evaluator) : evaluator_(evaluator) {}

    void Mask(const Westring& mask) override {
        Push(WildMatchWide(mask.c_str(), evaluator_.subject->name));
    }
    void Compare(const FilterComparison& comparison) override;
    void Not() override { Stack().Not(); }
    void And() override { Stack().And(); }
    void Or() override { Stack().Or(); }
    void Error(const Westring& text) override {
        evaluator_.errorText = text;
        evaluator_.hadError = true;
    }

private:
    FilterStack Stack() { return {evaluator_.stack, evaluator_.stackTop}; }
    void Push(bool value) {
        if (!Stack().Push(value)) Error(kFilterStackFull);
    }
    int64_t TimeOfStampFile(const Westring& written);

    FilterEvaluator& evaluator_;
};

int64_t Interpreter::TimeOfStampFile(const Westring& written) {
    const Westring path = StampFilePath(written);
    if (wcscmp(path.c_str(), evaluator_.stampFileName.c_str()) != 0) {
        evaluator_.stampFileName = path;
        if (!StampFileTime(path, evaluator_.stampFileTime)) Error(StampFileMissing(path));
    }
    return evaluator_.stampFileTime;
}

void Interpreter::Compare(const FilterComparison& comparison) {
    const FilterTest test = UnderstandComparison(comparison, *this);
    const int64_t right = test.hasStampFile ? TimeOfStampFile(test.stampFile) : test.right;
    const int64_t left = LeftSideAnew(test, *evaluator_.subject);
    const int result = zt::Compare(test.relation, left, right);
    if (result < 0) Error(ComparatorFault(test));
    Push(result > 0);
}

}  // namespace

int EvaluateFilter(FilterEvaluator& evaluator, const wchar_t* expression, const entry& subject) {
    evaluator.text = expression;
    evaluator.subject = &subject;
    evaluator.stackTop = -1;
    evaluator.hadError = false;
    Interpreter interpreter(evaluator);
    ParseFilter(evaluator.text, interpreter);
    return evaluator.hadError ? -1 : evaluator.stack[evaluator.stackTop];
}

int EvaluateFilterName(FilterEvaluator& evaluator, const wchar_t* expression, const wchar_t* name) {
    const OwnedEntry subject(NewEntry(name));
    return EvaluateFilter(evaluator, expression, *subject);
}

int MatchesFilter(const wchar_t* expression, const entry& subject) {
    FilterEvaluator evaluator;
    return EvaluateFilter(evaluator, expression, subject);
}

int MatchesFilterName(const wchar_t* expression, const wchar_t* name) {
    FilterEvaluator evaluator;
    return EvaluateFilterName(evaluator, expression, name);
}

}  // namespace zt
