#include "console/program/exit_script.h"

#include "foundation/file_name.h"
#include "foundation/std_file.h"

namespace zt {

void WriteExitScript(const Westring& file, const Westring& path) {
    Estring script = NameToBytes(path.Left(1));
    script += ":\r\ncd \"";
    script += NameToBytes(path.Right(path.Length() - 2));
    script += "\"\r\n";

    StdFile out;
    if (out.Open(file, StdFile::kWrite | StdFile::kCreate) != 0) return;
    out.Write(script.c_str(), script.Length());
    out.Close();
}

}  // namespace zt
