#pragma once

#include "platform/DrivePath.h"

#include <string>
#include <string_view>

namespace tavel {

// Paths of the host, as texts.

std::string HostJoin(std::string_view folder, std::string_view name);

// What stands in front of the last separator, with the separator; and what follows it.
std::string FolderOf(std::string_view hostPath);
std::string_view LastName(std::string_view hostPath);

// True when the path is the root or lies beneath it, by its names alone.
bool IsBelow(std::string_view hostPath, std::string_view root);

// A host path as a path of c:, and as its text.
DrivePath OnFixedDrive(std::string_view hostPath);
std::string FixedDrivePath(std::string_view hostPath);

// The path of what is there, behind all symbolic links; empty when it leads nowhere.
std::string RealPath(const std::string& hostPath);
// The same of what is open, if only to be looked at; and of the program.
std::string PathOf(int file);
std::string PathOfProgram();

// A path that leads to what is open, for calls of the host that take no descriptor.
std::string PathThrough(int file);

}  // namespace tavel
