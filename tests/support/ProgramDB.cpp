#include "support/ProgramDB.h"

#include "support/HostPlaces.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tavel::test {

ProgramDB::ProgramDB(const std::string& contents)
    : m_lock(ProgramHostFolder()), m_path(ProgramHostFolder() + "/db.txt") {
    std::ofstream(m_path, std::ios::binary) << contents;
}

ProgramDB::~ProgramDB() { Remove(); }

std::string ProgramDB::Read() const {
    std::ifstream file(m_path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void ProgramDB::Remove() const {
    std::error_code ignored;
    std::filesystem::remove(m_path, ignored);
}

}  // namespace tavel::test
