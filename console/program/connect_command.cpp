// The connecting command: the host put in, and the words it consists of.
#include "console/program/connect_command.h"

#include "foundation/settings.h"

namespace zt {

Westring BuildConnectCommand(const Estring& host) {
    Westring wideHost;
    for (const char* at = host.c_str(); *at != 0; at++)
        wideHost += static_cast<wchar_t>(static_cast<unsigned char>(*at));
    Westring command;
    // What was put in is not looked at again: a host may be called "%h".
    for (const wchar_t* at = settings.connectRemote.c_str(); *at != 0; at++) {
        if (at[0] == L'%' && at[1] == L'h') {
            command += wideHost;
            at++;
        } else {
            command += *at;
        }
    }
    return command;
}

std::vector<std::string> SplitConnectCommand(const Westring& command) {
    std::vector<std::string> words;
    Westring rest = command;
    while (!rest.IsEmpty()) {
        const int blank = rest.FindOutsideQuotes(L' ');
        Westring word = blank < 0 ? rest : rest.Left(blank);
        rest = blank < 0 || blank + 1 >= rest.Length() ? Westring() : rest.Mid(blank + 1);
        const bool isThere = !word.IsEmpty();
        word.ReplaceAll(L"\"", L"");
        if (isThere) words.emplace_back(word.ToUtf8().c_str());
    }
    return words;
}

}  // namespace zt
