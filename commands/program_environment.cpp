#include "commands/program_environment.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "foundation/configuration.h"
#include "foundation/file_name.h"

namespace zt {

namespace {

bool IsNameCharacter(wchar_t ch) {
    return (ch >= L'A' && ch <= L'Z') || (ch >= L'a' && ch <= L'z') || (ch >= L'0' && ch <= L'9') ||
           ch == L'_';
}

// Where the name that begins at `start` ends.
int NameEnd(const Westring& text, int start) {
    int end = start;
    while (end < text.Length() && IsNameCharacter(text[end]))
        end++;
    return end;
}

}  // namespace

ProcessEnvironment::ProcessEnvironment() {
    for (char** line = environ; line && *line; line++) {
        const char* equals = strchr(*line, '=');
        if (!equals || equals == *line) continue;
        AddCopy(Estring::FromBuffer(*line, static_cast<int>(equals - *line)), equals + 1);
    }
}

Environment& SessionEnvironment() {
    static ProcessEnvironment process;
    configuration.environment.parent = &process;
    static Environment session(&configuration.environment);
    return session;
}

void ExpandVariables(Westring& text) {
    Westring expanded;
    int place = 0;
    const char* home = getenv("HOME");
    if (home && text[0] == L'~' && text[1] == L'/') {
        expanded = NameFromBytes(home);
        expanded.AddTrailingSlash();
        place = 2;
    }
    while (place < text.Length()) {
        const int end = text[place] == L'$' ? NameEnd(text, place + 1) : place;
        const char* value = nullptr;
        if (end > place + 1) {
            const Westring name = text.Mid(place + 1, end - place - 1);
            value = SessionEnvironment().Get(name.ToNarrow().c_str());
        }
        if (!value) {
            expanded += static_cast<wchar_t>(text[place++]);
            continue;
        }
        // Values are bytes, most often names of files: they go as names do.
        expanded += NameFromBytes(value);
        place = text[end] == L'$' ? end + 1 : end;
    }
    text = expanded;
}

}  // namespace zt
