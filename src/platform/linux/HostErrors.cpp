#include "platform/linux/HostErrors.h"

#include "platform/Failure.h"

#include <cerrno>

namespace tavel {

Long FailureOfHostError(int error) {
    switch (error) {
        case ENOENT:
            return failure::FileNotFound;
        case ENOTDIR:
        case ELOOP:
        case EXDEV:
            return failure::PathNotFound;
        case EEXIST:
        case ENOTEMPTY:
            return failure::FileAlreadyExists;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case EBUSY:
        case ETXTBSY:
            return failure::PermissionDenied;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:  // the 4 GiB limit of a memory stick's file system
            return failure::DiskFull;
        case ENODEV:
        case ENXIO:
        case ENOMEDIUM:
        case ENOTCONN:   // the file system's own process has ended
        case ESHUTDOWN:  // the file system has shut itself down
            return failure::DiskNotReady;
        case EINVAL:
        case ENAMETOOLONG:
        case EILSEQ:
            return failure::BadFileName;
        default:
            return failure::DeviceIO;
    }
}

void FailWithHostError() { Fail(FailureOfHostError(errno)); }

}  // namespace tavel
