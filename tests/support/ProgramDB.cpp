#include "support/ProgramDB.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tavel::test {

ProgramDB::ProgramDB(const std::string& contents) {
    const std::filesystem::path folder =
        std::filesystem::read_symlink("/proc/self/exe").parent_path();
    m_path = (folder / "db.txt").string();
    m_lock = open((folder / "db.lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0666);
    if (m_lock < 0 || flock(m_lock, LOCK_EX) != 0) throw std::runtime_error("no lock for db.txt");
    std::ofstream(m_path, std::ios::binary) << contents;
}

ProgramDB::~ProgramDB() {
    Remove();
    close(m_lock);
}

std::string ProgramDB::Read() const {
    std::ifstream file(m_path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void ProgramDB::Remove() const {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

}  // namespace tavel::test
