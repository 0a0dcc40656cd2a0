// The table that the whole-task benchmarks print: our figure beside the yardstick's, the ratio,
// and what it may be at most.
#pragma once

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace zt::bench {

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? -1 : values[values.size() / 2];
}

class Figures {
public:
    explicit Figures(const char* title) {
        std::setvbuf(stdout, nullptr, _IOLBF, 0);
        std::printf("\n%s\n%-46s %12s %12s %8s %8s\n", title, "", "ours", "yardstick", "ratio",
                    "at most");
    }

    // Ours beside the yardstick's.
    void Ratio(const std::string& task, double ours, double theirs, const char* unit,
               double atMost) {
        if (ours < 0 || theirs <= 0) return Missing(task);
        const double ratio = ours / theirs;
        std::printf("%-46s %9.1f %-2s %9.1f %-2s %8.2f %8.2f%s\n", task.c_str(), ours, unit, theirs,
                    unit, ratio, atMost, Verdict(ratio, atMost));
    }

    // Ours beside a fixed budget.
    void Budget(const std::string& task, double ours, const char* unit, double atMost) {
        if (ours < 0) return Missing(task);
        std::printf("%-46s %9.1f %-2s %12s %8s %8.1f%s\n", task.c_str(), ours, unit, "", "", atMost,
                    Verdict(ours, atMost));
    }

    int Failures() const { return failures; }

private:
    const char* Verdict(double value, double atMost) {
        if (value <= atMost) return "";
        failures++;
        return "  OVER";
    }
    void Missing(const std::string& task) {
        failures++;
        std::printf("%-46s not measured\n", task.c_str());
    }

    int failures = 0;
};

}  // namespace zt::bench
