// What the configuration file holds beside the settings: the rules, the variables that programs
// get, and the archivers' command lines. One record for the whole program, as `settings` is.
// First thread only.
#pragma once

#include "foundation/archiver_records.h"
#include "foundation/environment.h"
#include "foundation/rule_lists.h"

namespace zt {

struct Configuration {
    Configuration() { InitArchiverDefaults(archivers); }

    AssociationSet rules[kRuleListCount];  // by RuleList
    Environment environment;
    ArchiverRecord archivers[kArchiverCount];
};

extern Configuration configuration;

}  // namespace zt
