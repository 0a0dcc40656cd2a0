#include "commands/separate_session.h"

#include "foundation/settings.h"

namespace zt {

Westring SeparateSessionCommand(const Westring& command) {
    const Westring& prefix = settings.background;
    const int place = prefix.Find(L'!');
    if (place < 0) return prefix + L" " + command;
    return prefix.Left(place) + command + prefix.Right(prefix.Length() - place - 1);
}

}  // namespace zt
