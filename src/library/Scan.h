#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavel {

// The folders to watch, as db.txt has them now; a number that is missing reads "XYZXYZ". A missing
// count reads as -1, which no list can be sized to: 9.
std::vector<std::string> WatchFolders();

// One pass over all watch folders; returns at once while one is running.
void BackgroundScan();

// Fills the library from the watch folders, with groups and behind frmAdd. What is in it already is
// added once more. Fails with 9 over a list without folders, frmAdd left in view.
void AddWatchFolders();

// A minute has gone by: counts it, and scans when the count meets iScanDelay.
void ScanTick();

// True when a record of the file's kind has exactly this path. Yields to the event loop.
bool IsFileInDB(std::string_view sPath);

}  // namespace tavel
