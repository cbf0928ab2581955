#include "platform/linux/HostErrors.h"
#include "support/Support.h"

#include <cerrno>
#include <cstring>

namespace tavel::test {

TEST(HostErrors, Errors_of_the_host_become_the_run_times_numbers) {
    struct Row {
        int error;
        Long number;
    };
    for (const Row& row :
         {Row{ENOENT, 53},    Row{ENOTDIR, 76},   Row{ELOOP, 76},  Row{EEXIST, 58},
          Row{ENOSPC, 61},    Row{EDQUOT, 61},    Row{EFBIG, 61},  Row{EROFS, 70},
          Row{EACCES, 70},    Row{EPERM, 70},     Row{EISDIR, 70}, Row{EBUSY, 70},
          Row{ETXTBSY, 70},   Row{ENODEV, 71},    Row{ENXIO, 71},  Row{ENOTCONN, 71},
          Row{ENOMEDIUM, 71}, Row{ESHUTDOWN, 71}, Row{EINVAL, 52}, Row{ENAMETOOLONG, 52},
          Row{EILSEQ, 52},    Row{EIO, 57},       Row{EMFILE, 57}}) {
        EXPECT_EQ(FailureOfHostError(row.error), row.number) << std::strerror(row.error);
    }
    errno = ENOSPC;
    EXPECT_EQ(FailureOf([] { FailWithHostError(); }), 61);
}

}  // namespace tavel::test
