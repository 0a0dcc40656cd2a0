// The plan of faults, in a file that the program under test maps too.
#include "tests/support/fault_control.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <linux/futex.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <algorithm>
#include <climits>
#include <cstring>

namespace zt::headless {

using faults::FaultPlan;

FaultControl::FaultControl(const std::string& where, const std::string& separate)
    : folder(where), apart(separate), file("/tmp/zt-faults-XXXXXX") {
    static_assert(sizeof(FaultPlan) < 1u << 20);
    const int descriptor = mkstemp(file.data());
    // The program may run as another user.
    if (descriptor < 0 || fchmod(descriptor, 0666) != 0 ||
        ftruncate(descriptor, sizeof(FaultPlan)) != 0) {
        ADD_FAILURE() << file << ": " << strerror(errno);
    }
    void* const mapped =
        mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    close(descriptor);
    if (mapped == MAP_FAILED) {
        perror("the plan of faults");
        abort();
    }
    plan = static_cast<FaultPlan*>(mapped);
}

FaultControl::~FaultControl() {
    munmap(plan, sizeof(FaultPlan));
    unlink(file.c_str());
}

std::map<std::string, std::string> FaultControl::Environment() const {
    const char* asked = getenv("ZT_FAULT_LIBRARY");
    std::map<std::string, std::string> all = {
        {"LD_PRELOAD", asked && *asked ? asked : ZT_FAULT_LIBRARY},
        {faults::kPlanVariable, file},
        {faults::kFolderVariable, folder}};
    if (!apart.empty()) all[faults::kApartVariable] = apart;
    return all;
}

void FaultControl::Arm(const FaultOrder& order) {
    plan->armed = 0;
    plan->fault = static_cast<uint32_t>(order.fault);
    plan->error = order.error;
    plan->firstHit = order.first == 0 ? UINT32_MAX : order.first;
    plan->lastHit = order.lasting ? UINT32_MAX - 1 : order.first;
    plan->calls = order.calls;
    ASSERT_LT(order.ending.size(), sizeof plan->ending);
    strcpy(plan->ending, order.ending.c_str());
    ASSERT_LT(order.untilListed.size(), sizeof plan->untilListed);
    strcpy(plan->untilListed, order.untilListed.c_str());
    plan->seen = 0;
    plan->hits = 0;
    plan->pausing = 0;
    plan->armed = 1;
}

void FaultControl::GoOn() {
    plan->goOn = 1;
    syscall(SYS_futex, &plan->goOn, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

uint32_t FaultControl::Recorded() const {
    return std::min(Seen(), FaultPlan::kRecords);
}

faults::Call FaultControl::CallAt(uint32_t number) const {
    if (number == 0 || number > Recorded()) return faults::Call::kCount;
    return static_cast<faults::Call>(plan->records[number - 1].call);
}

std::string FaultControl::NameOf(uint32_t number) const {
    const faults::Call call = CallAt(number);
    if (call == faults::Call::kCount) return "no call";
    return std::string(faults::kCallNames[static_cast<size_t>(call)]) + " " +
           plan->records[number - 1].path;
}

uint32_t FaultControl::Find(faults::Call call, const std::string& ending, uint32_t from) const {
    for (uint32_t i = std::max(1u, from); i <= Recorded(); i++) {
        if (CallAt(i) == call && std::string(plan->records[i - 1].path).ends_with(ending)) return i;
    }
    return 0;
}

std::string FaultControl::History() const {
    std::string all;
    for (uint32_t i = 1; i <= Recorded(); i++)
        all += std::to_string(i) + " " + NameOf(i) + "\n";
    return all;
}

}  // namespace zt::headless
