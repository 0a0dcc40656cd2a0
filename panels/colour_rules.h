// The colours of names by the rules of the configuration. Owned by the application; first thread
// only.
#pragma once

#include <ctime>
#include <vector>

#include "foundation/rule_lists.h"
#include "panels/filter_compiled.h"
#include "panels/panel_seams.h"

namespace zt {

class ColourRules : public IEntryColours {
public:
    Attribute ColourOf(const CPanel& panel, const entry& e, Attribute base) override;

private:
    // The rules of one list, made ready; brought up to date as they are used.
    class List {
    public:
        // The command of the first rule that matches, or null. A rule in error matches nothing.
        const Westring* FirstMatch(const AssociationSet& rules, const entry& e);

    private:
        CompiledFilter& Compiled(int index, const Westring& mask);
        void ForgetFilesInTime();

        std::vector<CompiledFilter> compiled_;  // as the rules stand in the set
        time_t lookedUp_ = 0;
    };

    List files_;
    List directories_;
};

}  // namespace zt
