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

}  // namespace
}  // namespace tavel::test
