#pragma once

#include <windows.h>

// The host's calls by their own names alone (CopyFileW): its macros for them would rename our
// routines in those files alone that see them.
#undef CopyFile
#undef CreateFile
#undef DeleteFile
#undef GetPrivateProfileString
#undef MoveFile
#undef ReplaceFile
#undef WritePrivateProfileString
