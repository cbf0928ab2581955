#include "platform/DrivePath.h"

#include "platform/Text.h"

#include <algorithm>

namespace tavel {

char DriveLetter(char c) {
    const char letter = AsciiLower(c);
    return letter >= 'a' && letter <= 'z' ? letter : '\0';
}

char DriveLetterOf(std::string_view name) {
    if (name.empty() || (name.size() > 1 && name[1] != ':')) return 0;
    return DriveLetter(name[0]);
}

std::string DrivePath::Text() const {
    std::string text = drive + '\\';
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (i > 0) text += '\\';
        text += names[i];
    }
    return text;
}

void DrivePath::Descend(std::string_view rest, char separator) {
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(separator), rest.size());
        const std::string_view name = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (name.empty() || name == ".") continue;
        if (name != "..") {
            names.emplace_back(name);
        } else if (!names.empty()) {
            names.pop_back();
        }
    }
}

bool DrivePath::HasSecondDrive() const {
    return std::any_of(names.begin(), names.end(), [](const std::string& name) {
        return name.size() == 2 && DriveLetter(name[0]) != 0 && name[1] == ':';
    });
}

std::optional<DrivePath> ParseDrivePath(std::string_view text, const DrivePath& currentFolder) {
    if (text.empty() || text.find('\0') != std::string_view::npos) return std::nullopt;
    const bool endsInSeparator = text.back() == '\\';
    DrivePath path;
    if (text.size() >= 2 && DriveLetter(text[0]) != 0 && text[1] == ':') {
        path.letter = DriveLetter(text[0]);
        path.drive = text.substr(0, 2);
        text.remove_prefix(2);
    } else {
        path = currentFolder;
        if (text.front() == '\\') path.names.clear();
    }
    path.endsInSeparator = endsInSeparator;
    path.Descend(text);
    return path;
}

std::string PathBelow(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (path.empty() || path.back() != '\\') path += '\\';
    return path.append(name);
}

}  // namespace tavel
