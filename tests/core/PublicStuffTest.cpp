#include "core/PublicStuff.h"
#include "support/FaultyFileService.h"
#include "support/Support.h"

namespace tavel::test {
namespace {

TEST(PublicStuff, OFSO_is_the_hosts_service_until_another_takes_its_place) {
    EXPECT_EQ(&oFSO(), &HostFileService());
    FaultyFileService other;
    UseFileService(&other);
    EXPECT_EQ(&oFSO(), &other);
    UseFileService(nullptr);
    EXPECT_EQ(&oFSO(), &HostFileService());
}

}  // namespace
}  // namespace tavel::test
