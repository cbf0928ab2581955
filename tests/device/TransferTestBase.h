#pragma once

#include "device/DeviceTest.h"
#include "library/Collections.h"

#include <initializer_list>
#include <string>

namespace tavel::test {

// A library whose files lie in the fixture's folder "lib", and a connected PSP to send them to.
class TransferTestBase : public DeviceTest {
  protected:
    TransferTestBase() { Connect(); }

    // Records with a file of these bytes; the id is the prefix, "_" and the name without blanks.
    std::string AddPhoto(const std::string& sName, const std::string& bytes = "photo");
    std::string AddTrack(const std::string& sName, const std::string& bytes = "track");
    std::string AddVideo(const std::string& sName, const std::string& bytes = "video");
    std::string AddMagazine(const std::string& sName, std::initializer_list<std::string> members);
    std::string AddAlbum(const std::string& sName, std::initializer_list<std::string> members);
    std::string AddSeries(const std::string& sName, std::initializer_list<std::string> members);
    std::string AddPlaylist(const std::string& sName, std::initializer_list<std::string> members);

  private:
    void FillItem(Item& item, const std::string& sID, const std::string& sFormat,
                  const std::string& bytes) const;
    int m_sources = 0;
};

}  // namespace tavel::test
