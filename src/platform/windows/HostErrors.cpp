#include "platform/windows/HostErrors.h"

#include "platform/Failure.h"
#include "platform/windows/WindowsApi.h"

namespace tavel {

namespace {

// The compiler's headers don't have these.
constexpr DWORD virusInfected = 225;
constexpr DWORD virusDeleted = 226;
constexpr DWORD firstProtocolMissing = 384;
constexpr DWORD noSuchDevice = 433;
constexpr DWORD guestsRefused = 1272;
constexpr DWORD diskQuotaExceeded = 1295;
constexpr DWORD linkClassDisabled = 1463;
constexpr DWORD encryptedVolumeLocked = 0x80310000;

}  // namespace

Long FailureOfHostError(unsigned long error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return failure::FileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_DIRECTORY:  // a file where a folder has to be
        case ERROR_INVALID_DRIVE:
        case ERROR_NOT_SAME_DEVICE:
        case ERROR_CANT_RESOLVE_FILENAME:  // links in a circle
        case ERROR_CANT_ACCESS_FILE:
        case linkClassDisabled:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_REM_NOT_LIST:  // the other computer does not listen
        case ERROR_NO_NET_OR_BAD_PATH:
        case ERROR_NO_NETWORK:
        case ERROR_NETWORK_UNREACHABLE:
        case ERROR_HOST_UNREACHABLE:
        case firstProtocolMissing:  // the other computer is too old
            return failure::PathNotFound;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
        case ERROR_DIR_NOT_EMPTY:
            return failure::FileAlreadyExists;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_SHARING_BUFFER_EXCEEDED:
        case ERROR_NETWORK_ACCESS_DENIED:
        case ERROR_PRIVILEGE_NOT_HELD:
        case ERROR_USER_MAPPED_FILE:
        case ERROR_DELETE_PENDING:
        case ERROR_BUSY:
        case virusInfected:
        case virusDeleted:
        case ERROR_FILE_READ_ONLY:
        case ERROR_DRIVE_LOCKED:  // it is being checked or formatted
        case ERROR_ACCESS_DISABLED_BY_POLICY:
        // The other computer knows the user under no name, or does not let the user in now.
        case ERROR_LOGON_FAILURE:
        case ERROR_INVALID_PASSWORD:
        case ERROR_SESSION_CREDENTIAL_CONFLICT:
        case guestsRefused:
        case ERROR_ACCOUNT_RESTRICTION:
        case ERROR_INVALID_LOGON_HOURS:
        case ERROR_INVALID_WORKSTATION:
        case ERROR_PASSWORD_EXPIRED:
        case ERROR_PASSWORD_MUST_CHANGE:
        case ERROR_ACCOUNT_DISABLED:
        case ERROR_ACCOUNT_EXPIRED:
        case ERROR_ACCOUNT_LOCKED_OUT:
        case ERROR_LOGON_TYPE_NOT_GRANTED:
            return failure::PermissionDenied;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case diskQuotaExceeded:
        case ERROR_CANNOT_MAKE:     // the root of a FAT file system has no entry left
        case ERROR_FILE_TOO_LARGE:  // the 4 GiB limit of a memory stick's file system
            return failure::DiskFull;
        case ERROR_NOT_READY:
        case ERROR_BAD_UNIT:
        case ERROR_DEV_NOT_EXIST:
        case noSuchDevice:
        case ERROR_NO_MEDIA_IN_DRIVE:
        case ERROR_MEDIA_CHANGED:
        case ERROR_WRONG_DISK:
        case ERROR_NOT_DOS_DISK:
        case ERROR_UNRECOGNIZED_MEDIA:
        case ERROR_UNRECOGNIZED_VOLUME:  // no file system that the host knows
        case encryptedVolumeLocked:      // until its owner gives the password
        case ERROR_FILE_INVALID:         // another medium lies in the drive since
        case ERROR_DEVICE_NOT_CONNECTED:
        case ERROR_DEVICE_NOT_AVAILABLE:
        case ERROR_DEVICE_REMOVED:
        case ERROR_NETNAME_DELETED:
            return failure::DiskNotReady;
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_NO_UNICODE_TRANSLATION:
            return failure::BadFileName;
        default:
            return failure::DeviceIO;
    }
}

void FailWithHostError() { Fail(FailureOfHostError(GetLastError())); }

}  // namespace tavel
