// The block of memory that data goes through on its way, one for the whole command.
#pragma once

#include "fileops/file_operation.h"

namespace zt {

inline constexpr int kCopyBlockBytes = 32768;

inline char* CopyBlock(FileOperation& operation) {
    if (!operation.block) operation.block.reset(new char[kCopyBlockBytes]);
    return operation.block.get();
}

}  // namespace zt
