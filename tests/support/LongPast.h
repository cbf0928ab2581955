#pragma once

#include <chrono>
#include <filesystem>

namespace tavel::test {

// A time of files long past, on both hosts: Wine tells the standard library those behind 2106 as
// the time of the last reading.
inline constexpr std::filesystem::file_time_type timeIn2004 =
    std::filesystem::file_time_type{} - std::chrono::hours(170 * 365 * 24);

}  // namespace tavel::test
