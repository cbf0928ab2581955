#pragma once

#include <functional>
#include <string>

namespace tavel::bench {

// Times two pieces of work in turn, `rounds` times each, and prints the medians and their ratio as
// a row of the table. The work is told the round, for those who need a fresh place for each.
// `target` is the ratio to reach; 0 where there is only a figure to report. `prepare` runs before
// our work in each round, `prepareRival` before the rival's, outside of the measured time.
void Compare(
    const std::string& work, const std::string& rivalName, int rounds, double target,
    const std::function<void(int)>& ours, const std::function<void(int)>& rival,
    const std::function<void(int)>& prepare = [](int) {},
    const std::function<void(int)>& prepareRival = [](int) {});

// The median time of a piece of work in milliseconds.
double MedianMilliseconds(int rounds, const std::function<void(int)>& work);

// The head of the table that the rows of Compare belong under.
void PrintTableHead();

// The most memory that this process has held so far, and what it holds now, in megabytes.
double PeakMegabytes();
double ResidentMegabytes();

}  // namespace tavel::bench
