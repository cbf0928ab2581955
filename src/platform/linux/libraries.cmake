# What the engine stands on, as this host has it.
find_package(PkgConfig REQUIRED)
pkg_check_modules(MOUNT REQUIRED IMPORTED_TARGET mount)
pkg_check_modules(UDEV REQUIRED IMPORTED_TARGET libudev)
pkg_check_modules(UTF8PROC REQUIRED IMPORTED_TARGET libutf8proc)
pkg_check_modules(TIFF REQUIRED IMPORTED_TARGET libtiff-4)
pkg_check_modules(ZIP REQUIRED IMPORTED_TARGET libzip)
find_library(FREEIMAGE freeimage REQUIRED)
target_link_libraries(tavel_libraries INTERFACE PkgConfig::MOUNT PkgConfig::UDEV PkgConfig::UTF8PROC
    PkgConfig::TIFF PkgConfig::ZIP ${FREEIMAGE})
