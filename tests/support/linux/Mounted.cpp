#include "support/linux/Mounted.h"

#include <cstdlib>

namespace tavel::test {

Mounted::Mounted(const std::string& source, const std::string& folder) : m_folder(folder) {
    const std::string command = "mount " + source + " '" + folder + "'";
    if (std::system((command + " 2>/dev/null").c_str()) != 0)
        m_whyNot = "'" + command + "' is not possible here";
}

Mounted::~Mounted() {
    if (m_whyNot.empty() && std::system(("umount -l '" + m_folder + "'").c_str()) != 0) abort();
}

}  // namespace tavel::test
