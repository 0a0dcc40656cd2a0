// The compiled form as others see it.
#include "panels/filter_compiled.h"

#include "panels/filter_program.h"

namespace zt {

CompiledFilter::CompiledFilter(const Westring& expression)
    : program_(std::make_unique<FilterProgram>(expression)) {}

CompiledFilter::~CompiledFilter() = default;
CompiledFilter::CompiledFilter(CompiledFilter&&) noexcept = default;
CompiledFilter& CompiledFilter::operator=(CompiledFilter&&) noexcept = default;

int CompiledFilter::Evaluate(const entry& subject) {
    return program_->Evaluate(subject, errorText);
}

int CompiledFilter::EvaluateName(const wchar_t* name) {
    const OwnedEntry subject(NewEntry(name));
    return Evaluate(*subject);
}

int CompiledFilter::Matches(const entry& subject) {
    program_->BeginAnew();
    return Evaluate(subject);
}

int CompiledFilter::MatchesName(const wchar_t* name) {
    program_->BeginAnew();
    return EvaluateName(name);
}

void CompiledFilter::ForgetFiles() {
    program_->ForgetFiles();
}

bool CompiledFilter::StandsFor(const Westring& expression) const {
    return program_->StandsFor(expression);
}

}  // namespace zt
