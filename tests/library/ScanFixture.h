#pragma once

#include "library/LibraryFixture.h"
#include "library/Scan.h"

namespace tavel::test {

// The background scan of watch folders in the fixture's folder.
class Scan : public LibraryTest {
  protected:
    void ExpectAdded(Calls& expected, const std::string& name) const {
        const std::string sPath = temp.DrivePath(name);
        expected.insert(expected.end(), {"Yield", "Log NEW FILE: New File Found - " + sPath,
                                         "frmAdd.SetPath " + sPath, "frmAdd.Repaint"});
    }

    const Calls start{"tmrBack off", "Log BACK SCAN: Begginging background scan"};
    const Calls end{"Log BACK SCAN: Background scan finished", "tmrBack on"};
};

}  // namespace tavel::test
