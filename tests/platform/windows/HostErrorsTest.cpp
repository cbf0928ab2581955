#include "platform/windows/HostErrors.h"
#include "platform/windows/WindowsApi.h"
#include "support/Support.h"

namespace tavel::test {

TEST(HostErrors, Errors_of_the_host_become_the_run_times_numbers) {
    constexpr DWORD virusInfected = 225;
    constexpr DWORD virusDeleted = 226;
    constexpr DWORD firstProtocolMissing = 384;
    constexpr DWORD noSuchDevice = 433;
    constexpr DWORD guestsRefused = 1272;
    constexpr DWORD diskQuotaExceeded = 1295;
    constexpr DWORD linkClassDisabled = 1463;
    constexpr DWORD encryptedVolumeLocked = 0x80310000;
    struct Row {
        DWORD error;
        Long number;
    };
    for (const Row& row : {Row{ERROR_FILE_NOT_FOUND, 53},
                           Row{ERROR_PATH_NOT_FOUND, 76},
                           Row{ERROR_DIRECTORY, 76},
                           Row{ERROR_INVALID_DRIVE, 76},
                           Row{ERROR_NOT_SAME_DEVICE, 76},
                           Row{ERROR_CANT_RESOLVE_FILENAME, 76},
                           Row{ERROR_BAD_NETPATH, 76},
                           Row{ERROR_BAD_NET_NAME, 76},
                           Row{ERROR_REM_NOT_LIST, 76},
                           Row{ERROR_NO_NET_OR_BAD_PATH, 76},
                           Row{ERROR_NO_NETWORK, 76},
                           Row{linkClassDisabled, 76},
                           Row{firstProtocolMissing, 76},
                           Row{ERROR_FILE_EXISTS, 58},
                           Row{ERROR_ALREADY_EXISTS, 58},
                           Row{ERROR_DIR_NOT_EMPTY, 58},
                           Row{ERROR_ACCESS_DENIED, 70},
                           Row{ERROR_WRITE_PROTECT, 70},
                           Row{ERROR_SHARING_VIOLATION, 70},
                           Row{ERROR_LOCK_VIOLATION, 70},
                           Row{ERROR_USER_MAPPED_FILE, 70},
                           Row{ERROR_DELETE_PENDING, 70},
                           Row{virusInfected, 70},
                           Row{virusDeleted, 70},
                           Row{ERROR_DRIVE_LOCKED, 70},
                           Row{ERROR_LOGON_FAILURE, 70},
                           Row{ERROR_INVALID_PASSWORD, 70},
                           Row{ERROR_SESSION_CREDENTIAL_CONFLICT, 70},
                           Row{guestsRefused, 70},
                           Row{ERROR_ACCOUNT_RESTRICTION, 70},
                           Row{ERROR_ACCOUNT_DISABLED, 70},
                           Row{ERROR_ACCOUNT_LOCKED_OUT, 70},
                           Row{ERROR_PASSWORD_EXPIRED, 70},
                           Row{ERROR_DISK_FULL, 61},
                           Row{ERROR_HANDLE_DISK_FULL, 61},
                           Row{diskQuotaExceeded, 61},
                           Row{ERROR_FILE_TOO_LARGE, 61},
                           Row{ERROR_CANNOT_MAKE, 61},
                           Row{ERROR_NOT_READY, 71},
                           Row{ERROR_NO_MEDIA_IN_DRIVE, 71},
                           Row{ERROR_DEVICE_NOT_CONNECTED, 71},
                           Row{ERROR_WRONG_DISK, 71},
                           Row{ERROR_UNRECOGNIZED_VOLUME, 71},
                           Row{ERROR_FILE_INVALID, 71},
                           Row{noSuchDevice, 71},
                           Row{encryptedVolumeLocked, 71},
                           Row{ERROR_INVALID_NAME, 52},
                           Row{ERROR_FILENAME_EXCED_RANGE, 52},
                           Row{ERROR_BAD_PATHNAME, 52},
                           Row{ERROR_IO_DEVICE, 57},
                           Row{ERROR_CRC, 57},
                           Row{ERROR_SECTOR_NOT_FOUND, 57},
                           Row{ERROR_TOO_MANY_OPEN_FILES, 57}}) {
        EXPECT_EQ(FailureOfHostError(row.error), row.number) << row.error;
    }
    SetLastError(ERROR_DISK_FULL);
    EXPECT_EQ(FailureOf([] { FailWithHostError(); }), 61);
}

}  // namespace tavel::test
