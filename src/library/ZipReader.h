#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tavel {

class ZipArchive;

// A file or folder in an archive; not to be used once the archive has been closed.
class ZipEntry {
  public:
    ZipEntry(ZipArchive& archive, std::uint64_t number);

    // Its path inside the archive, with backslashes; a folder's ends in one.
    const std::string& Name() const { return m_sName; }

    // Extract puts the file under its path inside the archive; else under its own name alone.
    bool bWithPath = false;

    // Writes the file below a folder that is there, over what lies there under its name, and dates
    // it as the archive does. Links in that folder are replaced, also where they stand for a folder
    // on the way. Returns the path of the file. The empty text means that the entry is refused and
    // nothing was made: its name would lead out of the folder, or no drive makes such a name; its
    // path would be too long; it is a link, encrypted or packed in an unknown way.
    // Fails with 321 when it is damaged, else as the file service does; what was written stays.
    std::string Extract(const std::string& sFolder) const;

  private:
    ZipArchive& m_archive;
    std::uint64_t m_number;
    std::string m_sName;
};

// Takes zip archives apart.
class ZipReader {
  public:
    ZipReader();
    ~ZipReader();

    // Opens the archive at a path. Fails with 321 when it is none, or one that can't be read, else
    // as the file service does.
    void ZipFile(const std::string& sPath);
    const std::string& ZipFile() const { return m_sPath; }

    std::uint64_t Count() const;
    ZipEntry Item(std::uint64_t number) const;  // from 0 on

    void Close();

  private:
    std::string m_sPath;
    std::unique_ptr<ZipArchive> m_archive;
};

}  // namespace tavel
