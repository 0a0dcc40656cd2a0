// A test's hand on the faults of a program: which file call fails, how, and what was seen. Belongs
// to the test's thread; the program that it is for is started with Environment().
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/fault_injector/fault_plan.h"

namespace zt::headless {

struct FaultOrder {
    faults::Fault fault = faults::Fault::kNone;
    int error = 0;                       // for kError: an errno value
    uint32_t first = 0;                  // the call to be hit, counted from 1; 0: none
    bool lasting = false;                // and all that follow
    uint32_t calls = faults::kAllCalls;  // BitOf those that count
    std::string ending;                  // only calls on a path that ends so; empty: all
    std::string untilListed;             // listing this folder ends the walk; empty: none
};

class FaultControl {
public:
    // Calls below `folder` (an absolute path without links) will count.
    // `apart`, if given, is to seem a file system of its own as far as renaming goes.
    explicit FaultControl(const std::string& folder, const std::string& apart = "");
    ~FaultControl();

    FaultControl(const FaultControl&) = delete;
    FaultControl& operator=(const FaultControl&) = delete;

    // What the program's environment needs beside the rest. ZT_FAULT_LIBRARY names another library
    // than the one built with the tests, for a program of another build (ZT_REMOTE).
    std::map<std::string, std::string> Environment() const;
    bool IsLoaded() const { return plan->loaded != 0; }

    void Arm(const FaultOrder& order);  // counting begins anew
    void Disarm() { plan->armed = 0; }
    bool IsArmed() const { return plan->armed != 0; }
    uint32_t Seen() const { return plan->seen; }
    uint32_t Hits() const { return plan->hits; }
    // The number of the call that waits for GoOn; 0: none.
    uint32_t Pausing() const { return plan->pausing; }
    void GoOn();

    // The call with that number, as "open /path"; its path may be cut at the front.
    std::string NameOf(uint32_t number) const;
    faults::Call CallAt(uint32_t number) const;
    // The first call with that number or a greater one that is `call` on a path that ends so; 0:
    // none.
    uint32_t Find(faults::Call call, const std::string& ending, uint32_t from = 1) const;
    // All that were seen, a line each, for the message of a failure.
    std::string History() const;

private:
    uint32_t Recorded() const;

    std::string folder;
    std::string apart;
    std::string file;
    faults::FaultPlan* plan;
};

}  // namespace zt::headless
