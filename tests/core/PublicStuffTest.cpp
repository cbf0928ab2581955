#include "core/PublicStuff.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"

namespace tavel::test {
namespace {

TEST(PublicStuff, OFSO_is_the_hosts_service_until_another_takes_its_place) {
    EXPECT_EQ(&oFSO(), &oFSO());
    FaultyFileService other;
    Service<FileService>::Use(&other);
    EXPECT_EQ(&oFSO(), &other);
    Service<FileService>::Use(nullptr);
    EXPECT_EQ(&oFSO(), &oFSO());
}

TEST(PublicStuff, Reset_puts_the_flags_and_lists_back_to_what_a_process_begins_with) {
    bFirstTime = bDBChanged = bScanning = bPSPConnected = true;
    iScanTicks = iScanDelay = iVidThumbMode = 5;
    sMusicSupport = {"mp3"};
    sDBFile = sPSPName = sPSPDataFile = "x";
    ResetPublicStuff();
    EXPECT_FALSE(bFirstTime || bDBChanged || bScanning || bPSPConnected);
    EXPECT_EQ(iScanTicks + iScanDelay + iVidThumbMode, 0);
    EXPECT_TRUE(sMusicSupport.empty());
    EXPECT_EQ(sDBFile + sPSPName + sPSPDataFile, "");
}

}  // namespace
}  // namespace tavel::test
