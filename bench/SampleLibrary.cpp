#include "SampleLibrary.h"

#include <string>
#include <vector>

namespace tavel::bench {

namespace {

constexpr int membersOfGroup = 20;

struct Kind {
    std::string prefix;
    std::string type;
    std::string extension;
    std::vector<std::string> extraKeys;
};

class LibraryText {
  public:
    explicit LibraryText(int perKind) : m_perKind(perKind), m_groups(perKind / 100) {}

    std::string Build() {
        m_text =
            "[options]\r\nbFirstTime=0\r\nbGroupZip=0\r\nbAutoGroup=0\r\nbScanOnAppStart=0\r\n"
            "bAddHiddenFiles=0\r\n[musicsupport]\r\nno=1\r\n0=mp3\r\n[videosupport]\r\nno=1\r\n"
            "0=mp4\r\n[photosupport]\r\nno=1\r\n0=jpg\r\n[watch]\r\nnoofflds=0\r\ndelay=60\r\n";
        Items({"ph", "0", "jpg", {"SizeW=4000", "SizeH=3000"}}, "ma");
        Items({"mu", "5", "mp3", {"Artist=An Artist of Some Length", "Album=The Album"}}, "pl");
        Items({"vd", "3", "mp4", {"ThumbPath="}}, "vs");
        if (m_groups > 0) AllGroups();
        m_text += "[DB]\r\nNoOfItems=" + std::to_string(m_section) + "\r\n";
        return std::move(m_text);
    }

  private:
    void AllGroups() {
        Groups("ma", "1", "NoOfPages", "ph", m_groups);
        Groups("pa", "2", "NoOfPages", "ph", m_groups);
        Groups("vs", "4", "NoOfEpisodes", "vd", m_groups - 1);
        Groups("pl", "8", "NoOfTracks", "mu", 1);
    }

    static std::string Id(const std::string& prefix, int number) {
        if (prefix == "pl") return "pl_";
        std::string digits = std::to_string(number);
        digits.insert(0, 8 - digits.size(), '0');
        return prefix + "_Itemnumbe" + digits + "abcdefgh";
    }

    void Line(const std::string& line) { m_text += line + "\r\n"; }

    void Section(const std::string& id, const std::string& name, const std::string& type) {
        Line("[" + std::to_string(++m_section) + "]");
        Line("ID=" + id);
        Line("Name=" + name);
        Line("Type=" + type);
    }

    void Items(const Kind& kind, const std::string& groupPrefix) {
        for (int i = 0; i < m_perKind; ++i) {
            const std::string name = "Item number " + std::to_string(i);
            Section(Id(kind.prefix, i), name, kind.type);
            Line("Path=C:\\Media\\Some folder " + std::to_string(i / 100) + "\\" + name + "." +
                 kind.extension);
            const std::string format = "Format=" + kind.extension;
            const std::string size = "Size=" + std::to_string(1000000 + i * 37);
            const bool sizeFirst = kind.type == "5";  // as SaveDB puts them
            Line(sizeFirst ? size : format);
            Line(sizeFirst ? format : size);
            for (const std::string& key : kind.extraKeys) Line(key);
            const bool grouped = i < (groupPrefix == "pl" ? 1 : m_groups) * membersOfGroup;
            Line(grouped ? "NoOfGroups=1" : "NoOfGroups=0");
            if (grouped) Line("group0=" + Id(groupPrefix, i / membersOfGroup));
        }
    }

    void Groups(const std::string& prefix, const std::string& type, const std::string& countKey,
                const std::string& memberPrefix, int count) {
        for (int group = 0; group < count; ++group) {
            Section(Id(prefix, group), "Group number " + std::to_string(group), type);
            Line(countKey + "=" + std::to_string(membersOfGroup));
            for (int i = 0; i < membersOfGroup; ++i) {
                Line(std::to_string(i) + "=" + Id(memberPrefix, group * membersOfGroup + i));
            }
        }
    }

    int m_perKind;
    int m_groups;
    int m_section = 0;
    std::string m_text;
};

}  // namespace

std::string SampleLibrary(int perKind) { return LibraryText(perKind).Build(); }

}  // namespace tavel::bench
