# What the engine stands on, as packaging/windows/libraries has built it: all of it static but FreeImage, which
# carries the TIFF library with it.
find_library(UTF8PROC utf8proc REQUIRED)
find_library(ZIP zip REQUIRED)
find_library(ZLIB libz.a REQUIRED)
find_library(FREEIMAGE FreeImage REQUIRED)
target_link_libraries(tavel_libraries INTERFACE ${ZIP} ${FREEIMAGE} ${UTF8PROC} ${ZLIB} bcrypt)
target_include_directories(tavel_libraries SYSTEM INTERFACE ${TAVEL_WINDOWS_LIBRARIES}/sysroot/include)
target_compile_definitions(tavel_libraries INTERFACE UTF8PROC_STATIC ZIP_STATIC UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
    _WIN32_WINNT=0x0A00)
# Beside every program that is run.
set(TAVEL_DLLS ${TAVEL_WINDOWS_LIBRARIES}/sysroot/bin/FreeImage.dll)
# One exe without the compiler's DLLs beside it.
target_link_options(tavel_options INTERFACE -static)
