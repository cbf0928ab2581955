#include "Ratio.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace tavel::bench {

namespace {

double MillisecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    const std::size_t middle = times.size() / 2;
    return times.size() % 2 == 1 ? times[middle] : (times[middle - 1] + times[middle]) / 2;
}

double StatusMegabytes(const std::string& field) {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word != field) continue;
        double kilobytes = 0;
        status >> kilobytes;
        return kilobytes / 1000;
    }
    return 0;
}

}  // namespace

void PrintTableHead() {
    std::printf("| work | ms | rival | ms | ratio | to reach |\n|---|---|---|---|---|---|\n");
}

void Compare(const std::string& work, const std::string& rivalName, int rounds, double target,
             const std::function<void(int)>& ours, const std::function<void(int)>& rival,
             const std::function<void(int)>& prepare,
             const std::function<void(int)>& prepareRival) {
    std::vector<double> ourTimes;
    std::vector<double> rivalTimes;
    for (int round = 0; round < rounds; ++round) {
        prepareRival(round);
        rivalTimes.push_back(MillisecondsOf([&] { rival(round); }));
        prepare(round);
        ourTimes.push_back(MillisecondsOf([&] { ours(round); }));
    }
    const double our = Median(ourTimes);
    const double their = Median(rivalTimes);
    std::printf("| %s | %.1f | %s | %.1f | %.2f | ", work.c_str(), our, rivalName.c_str(), their,
                our / their);
    if (target > 0) {
        std::printf("%.1f%s |\n", target, our / their <= target ? "" : " (missed)");
    } else {
        std::printf("report |\n");
    }
    std::fflush(stdout);
}

double MedianMilliseconds(int rounds, const std::function<void(int)>& work) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(MillisecondsOf([&] { work(round); }));
    }
    return Median(times);
}

double PeakMegabytes() { return StatusMegabytes("VmHWM:"); }

double ResidentMegabytes() { return StatusMegabytes("VmRSS:"); }

}  // namespace tavel::bench
