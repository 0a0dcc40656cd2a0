// The environment that the programs started from here get: three sets, each leaning on the next.
// What the user set while the program runs comes first, then the configuration's variables, then
// what the program itself was started with. First thread only.
#pragma once

#include "foundation/environment.h"
#include "foundation/westring.h"

namespace zt {

// Filled from the process's own environment when it is made.
class ProcessEnvironment : public Environment {
public:
    ProcessEnvironment();
};

// The innermost set: variables given with the command "set". The other two stand behind it.
Environment& SessionEnvironment();

// "~/" at the start becomes the home directory; "$NAME" (letters, digits and '_'; a '$' right
// behind the name ends it and goes) becomes the variable's value where there is one. What was put
// in is not expanded again.
void ExpandVariables(Westring& text);

}  // namespace zt
