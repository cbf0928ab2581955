#pragma once

#include <string_view>

namespace tavel {

// One pass over all watch folders; returns at once while one is running.
void BackgroundScan();

// A minute has gone by: counts it, and scans when the count meets iScanDelay.
void ScanTick();

// True when a record of the file's kind has exactly this path. Yields to the event loop.
bool IsFileInDB(std::string_view sPath);

}  // namespace tavel
