// The plan mapped into the program, the descriptors that are followed, and the count.
#include "tests/support/fault_injector/fault_verdict.h"

#include <fcntl.h>
#include <linux/futex.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace zt::faults {

namespace {

constexpr int kMostDescriptors = 1024;
constexpr size_t kLongestPath = 2 * PATH_MAX;

FaultPlan* plan = nullptr;
const char* folder = nullptr;
size_t folderLength = 0;
const char* apart = nullptr;
size_t apartLength = 0;

// Below the folder: where a descriptor was opened. An empty path is no descriptor of ours.
struct Watched {
    std::atomic<bool> followed;
    char path[sizeof(CallRecord::path)];
};
Watched watched[kMostDescriptors];

// The system's own calls: the names of the C library are hooked here.
void MapPlan(const char* path) {
    const long descriptor = syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC, 0);
    if (descriptor < 0) return;
    void* const mapped = mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED,
                              static_cast<int>(descriptor), 0);
    syscall(SYS_close, descriptor);
    if (mapped == MAP_FAILED) return;
    plan = static_cast<FaultPlan*>(mapped);
    plan->loaded = 1;
}

__attribute__((constructor)) void Begin() {
    const char* path = getenv(kPlanVariable);
    folder = getenv(kFolderVariable);
    if (!path || !folder) return;
    folderLength = strlen(folder);
    apart = getenv(kApartVariable);
    apartLength = apart ? strlen(apart) : 0;
    MapPlan(path);
    // What the program starts is none of the test's business.
    unsetenv("LD_PRELOAD");
}

bool IsBelow(const char* path) {
    return strncmp(path, folder, folderLength) == 0 &&
           (path[folderLength] == '/' || path[folderLength] == '\0');
}

const Watched* Found(int descriptor) {
    if (descriptor < 0 || descriptor >= kMostDescriptors) return nullptr;
    return watched[descriptor].followed ? &watched[descriptor] : nullptr;
}

// The end of a path, cut to the room of a record.
void KeepEnd(char (&out)[sizeof(CallRecord::path)], const char* path) {
    const size_t length = strlen(path);
    const size_t room = sizeof(out) - 1;
    const char* from = length > room ? path + (length - room) : path;
    strncpy(out, from, room);
    out[room] = '\0';
}

void Append(char* whole, const char* tail) {
    const size_t length = strlen(whole);
    if (length + 2 >= kLongestPath) return;
    whole[length] = '/';
    strncpy(whole + length + 1, tail, kLongestPath - length - 2);
    whole[kLongestPath - 1] = '\0';
}

// What follows "/proc/self/fd/N/" in a path, with N in `descriptor`; null for any other path.
const char* BehindDescriptor(const char* path, int* descriptor) {
    constexpr char kPrefix[] = "/proc/self/fd/";
    if (strncmp(path, kPrefix, sizeof kPrefix - 1) != 0) return nullptr;
    char* rest = nullptr;
    const long number = strtol(path + sizeof kPrefix - 1, &rest, 10);
    if (*rest != '/' || number < 0 || number > INT_MAX) return nullptr;
    *descriptor = static_cast<int>(number);
    return rest + 1;
}

// The path as far as the folder is concerned; false when it lies elsewhere. `whole` has room for
// kLongestPath bytes.
bool Locate(int directory, const char* path, char* whole) {
    if (!plan || !path) return false;
    whole[0] = '\0';
    if (const char* rest = BehindDescriptor(path, &directory)) path = rest;
    if (path[0] == '/') {
        strncpy(whole, path, kLongestPath - 1);
        whole[kLongestPath - 1] = '\0';
        return IsBelow(whole);
    }
    if (directory == AT_FDCWD) {
        if (syscall(SYS_getcwd, whole, PATH_MAX) <= 0) return false;
        if (*path) Append(whole, path);
        return IsBelow(whole);
    }
    const Watched* base = Found(directory);
    if (!base) return false;
    strncpy(whole, base->path, kLongestPath - 1);
    if (*path) Append(whole, path);
    return true;
}

// Waits without running, so that the program counts as waiting.
void Pause(uint32_t number) {
    plan->goOn = 0;
    plan->pausing = number;
    while (plan->goOn == 0) {
        syscall(SYS_futex, &plan->goOn, FUTEX_WAIT, 0, nullptr, nullptr, 0);
    }
    plan->pausing = 0;
}

Verdict Hit(uint32_t number) {
    plan->hits++;
    switch (static_cast<Fault>(plan->fault.load())) {
        case Fault::kError:
            return {plan->error, false};
        case Fault::kShort:
            return {0, true};
        case Fault::kPause:
            Pause(number);
            return {};
        case Fault::kKill:
            syscall(SYS_kill, syscall(SYS_getpid), SIGKILL);
            return {};
        case Fault::kNone:
            break;
    }
    return {};
}

bool LiesApart(const char* path) {
    return strncmp(path, apart, apartLength) == 0 && path[apartLength] == '/';
}

bool HasEnding(const char* path) {
    const size_t length = strlen(path);
    const size_t wanted = strlen(plan->ending);
    return length >= wanted && memcmp(path + (length - wanted), plan->ending, wanted) == 0;
}

Verdict Judge(Call call, const char* path) {
    if (!plan->armed || !(plan->calls & BitOf(call)) || !HasEnding(path)) return {};
    const int kept = errno;
    const uint32_t number = ++plan->seen;
    if (number <= FaultPlan::kRecords) {
        CallRecord& record = plan->records[number - 1];
        record.call = static_cast<uint32_t>(call);
        KeepEnd(record.path, path);
    }
    Verdict verdict;
    if (number >= plan->firstHit && number <= plan->lastHit) verdict = Hit(number);
    errno = kept;
    return verdict;
}

}  // namespace

Verdict JudgePath(Call call, int directory, const char* path) {
    if (!plan || !plan->armed) return {};
    char whole[kLongestPath];
    return Locate(directory, path, whole) ? Judge(call, whole) : Verdict{};
}

Verdict JudgePaths(Call call, int directory1, const char* path1, int directory2,
                   const char* path2) {
    if (!plan || (!plan->armed && !apart)) return {};
    char whole1[kLongestPath], whole2[kLongestPath];
    const bool counts1 = Locate(directory1, path1, whole1);
    const bool counts2 = Locate(directory2, path2, whole2);
    if (apart && counts1 && counts2 && LiesApart(whole1) != LiesApart(whole2))
        return {EXDEV, false};
    if (!plan->armed || (!counts1 && !counts2)) return {};
    return Judge(call, counts1 ? whole1 : whole2);
}

Verdict JudgeDescriptor(Call call, int descriptor) {
    if (!plan || !plan->armed) return {};
    const Watched* base = Found(descriptor);
    return base ? Judge(call, base->path) : Verdict{};
}

Verdict JudgeListing(int directory, const char* path) {
    if (!plan || !plan->armed) return {};
    char whole[kLongestPath];
    if (!Locate(directory, path, whole)) return {};
    if (plan->untilListed[0] && strcmp(whole, plan->untilListed) == 0) {
        plan->armed = 0;
        return {};
    }
    return Judge(Call::kOpenDirectory, whole);
}

void Watch(int descriptor, int directory, const char* path) {
    if (!plan || descriptor < 0 || descriptor >= kMostDescriptors) return;
    const int kept = errno;
    char whole[kLongestPath];
    if (Locate(directory, path, whole)) {
        KeepEnd(watched[descriptor].path, whole);
        watched[descriptor].followed = true;
    }
    errno = kept;
}

void WatchAs(int copy, int descriptor) {
    const Watched* base = Found(descriptor);
    if (!base || copy < 0 || copy >= kMostDescriptors) return;
    memcpy(watched[copy].path, base->path, sizeof base->path);
    watched[copy].followed = true;
}

void Forget(int descriptor) {
    if (descriptor >= 0 && descriptor < kMostDescriptors) watched[descriptor].followed = false;
}

}  // namespace zt::faults
