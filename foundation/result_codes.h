// What file operations give back: 0 done, kCancelled, a positive errno value, or one of the
// private codes below.
#pragma once

namespace zt {

inline constexpr int kDone = 0;
inline constexpr int kCancelled = -1;
inline constexpr int kRenameAborted = -2;  // the user asked for the end before a renaming
inline constexpr int kSkipped = 0x10000;
inline constexpr int kOpenForWriting = 0x10001;
inline constexpr int kNoMoreEntries = 0x40000001;
inline constexpr int kDriveNotReady = 0x40000002;

}  // namespace zt
