#include "platform/FileService.h"

#include "platform/Text.h"

namespace tavel {

bool IsPathTooLong(std::string_view path) {
    // No character is shorter than a byte.
    return path.size() > MaxPathCharacters && CharacterCount(path) > MaxPathCharacters;
}

std::string FileService::StablePath(std::string_view path) {
    const std::string hostPath = HostPath(path);
    return hostPath.empty() ? std::string(path) : FromHostPath(hostPath);
}

}  // namespace tavel
