// Writes whole frames through a buffered file. Several threads may write; a lock keeps their
// frames apart. The file's descriptor must be a blocking one.
#pragma once

#include "console/wire/parameter.h"
#include "foundation/recursive_mutex.h"
#include "foundation/std_file.h"

namespace zt {

class FrameWriter {
public:
    // Borrows both.
    FrameWriter(StdFile& output, CRecursiveMutex& lock) : output_(output), lock_(lock) {}

    void WriteRequest(Opcode opcode, CParameterList& parameters);
    void WriteReply(CParameterList& parameters);
    void WriteEvent(CParameterList& parameters);

private:
    void WriteFrame(int magic, int opcode, CParameterList& parameters);

    StdFile& output_;
    CRecursiveMutex& lock_;
};

}  // namespace zt
