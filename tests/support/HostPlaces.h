#pragma once

#include <filesystem>
#include <string>

namespace tavel::test {

// Places of the host, whose paths have "/" between their names in tests.

// The path as the engine speaks it: c:\... with backslashes.
std::string OnDrive(const std::string& hostPath);

// The same for the standard library, with all letters of engine text.
std::filesystem::path AsHostPath(const std::string& hostPath);

// The folder that the running program lies in, and the program's own name there.
std::string ProgramHostFolder();
std::string ProgramHostName();

// Gives a file the hidden attribute where hiding takes more than the dot that its name begins with.
void Hide(const std::filesystem::path& hostPath);

}  // namespace tavel::test
