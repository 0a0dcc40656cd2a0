#include "panels/colour_rules.h"

#include "foundation/configuration.h"
#include "ui/colour_text.h"

namespace zt {

Attribute ColourRules::ColourOf(const CPanel&, const entry& e, Attribute base) {
    const bool isDirectory = e.IsDirectory();
    const RuleList which = isDirectory ? kDirectoryColourRules : kFileColourRules;
    const AssociationSet& rules = configuration.rules[which];
    const Westring* colour = (isDirectory ? directories_ : files_).FirstMatch(rules, e);
    return colour ? ParseColourText(colour->ToUtf8().c_str(), base) : base;
}

const Westring* ColourRules::List::FirstMatch(const AssociationSet& rules, const entry& e) {
    if (rules.Count() == 0) return nullptr;
    ForgetFilesInTime();
    for (int i = 0; i < rules.Count(); ++i) {
        const Association& rule = *rules.Peek(i);
        if (Compiled(i, rule.mask).Matches(e) > 0) return &rule.command;
    }
    return nullptr;
}

// The configuration may have been read again since: the text decides.
CompiledFilter& ColourRules::List::Compiled(int index, const Westring& mask) {
    const auto at = static_cast<size_t>(index);
    if (at == compiled_.size()) {
        compiled_.emplace_back(mask);
    } else if (!compiled_[at].StandsFor(mask)) {
        compiled_[at] = CompiledFilter(mask);
    }
    return compiled_[at];
}

// A screen of entries is drawn within one second: the files are not looked for at each of them.
void ColourRules::List::ForgetFilesInTime() {
    const time_t now = time(nullptr);
    if (now == lookedUp_) return;
    lookedUp_ = now;
    for (CompiledFilter& filter : compiled_)
        filter.ForgetFiles();
}

}  // namespace zt
