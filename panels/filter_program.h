// What a filter expression compiles to: the steps of its evaluation in order, operands before their
// operators, each with what could be made ready beforehand. Owned by a CompiledFilter.
#pragma once

#include <cstdint>
#include <vector>

#include "foundation/westring.h"
#include "panels/filter_comparison.h"
#include "panels/filter_mask.h"

namespace zt {

class FilterProgram : private IFilterActions {
public:
    explicit FilterProgram(const Westring& expression);

    // As CompiledFilter::Evaluate.
    int Evaluate(const entry& subject, Westring& errorText);
    // The next entry is the first of an evaluator.
    void BeginAnew() { lastStamp_ = nullptr; }
    void ForgetFiles();
    bool StandsFor(const Westring& expression) const;

private:
    enum class StepKind : uint32_t { kMask, kTest, kNot, kAnd, kOr, kError };
    struct Step {
        StepKind kind;
        uint32_t index;  // of the mask, test or error
    };
    struct Test {
        FilterTest test;
        // Of a test with a file, once it is looked up.
        bool isLookedUp = false;
        bool hasFile = false;
        Westring path;
        int64_t time = 0;
    };
    struct Run;  // one evaluation

    void Mask(const Westring& mask) override;
    void Compare(const FilterComparison& comparison) override;
    void Not() override { Add(StepKind::kNot); }
    void And() override { Add(StepKind::kAnd); }
    void Or() override { Add(StepKind::kOr); }
    void Error(const Westring& text) override;

    void Add(StepKind kind, size_t index = 0) {
        steps_.push_back({kind, static_cast<uint32_t>(index)});
    }
    bool ResultOf(Test& test, Run& run);
    int64_t TimeOfStampFile(Test& test, Run& run);

    const Westring expression_;
    const int dateOrder_;
    const wchar_t dateSeparator_;
    std::vector<Step> steps_;
    std::vector<FilterMask> masks_;
    std::vector<Test> tests_;
    std::vector<Westring> errors_;
    FilterSurroundings surroundings_;
    const Test* lastStamp_ = nullptr;  // whose file was the last that a test asked for
};

}  // namespace zt
