#include "library/ZipImport.h"

#include "core/MessageBoxes.h"
#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "library/Adding.h"
#include "library/Folders.h"
#include "library/Groups.h"
#include "library/Identifiers.h"
#include "library/LibraryWindows.h"
#include "library/ZipReader.h"
#include "platform/Activity.h"
#include "platform/EventLoop.h"
#include "platform/Failure.h"
#include "platform/Service.h"

#include <vector>

namespace tavel {

namespace {

AddWindow& frmAdd() { return Service<AddWindow>::Get(); }

void ShowText(const std::string& sText) {
    frmAdd().SetPath(sText);
    frmAdd().Repaint();
}

// Begins with one empty entry, which the first addition fills.
class TextList {
  public:
    void Add(const std::string& sText) {
        if (!m_sTexts.front().empty()) m_sTexts.emplace_back();
        m_sTexts.back() = sText;
    }
    bool IsEmpty() const { return m_sTexts.front().empty(); }
    const std::vector<std::string>& All() const { return m_sTexts; }

  private:
    std::vector<std::string> m_sTexts{""};
};

class Import {
  public:
    explicit Import(ZipReader& zip) : m_zip(zip) {}

    void Unzip(const std::string& sFolder) {
        const std::uint64_t count = m_zip.Count();
        for (std::uint64_t i = 0; i < count; ++i) {
            ZipEntry entry = m_zip.Item(i);
            if (entry.Name().ends_with('\\')) continue;
            m_bHasFiles = true;
            entry.bWithPath = true;
            const std::string sPath = Unpack(entry, sFolder);
            if (sPath.empty())
                m_sRejected.Add(entry.Name());
            else
                m_sPaths.push_back(sPath);
            DoEvents();
        }
    }

    // An archive without a file has no first path to look at. One whose files were all refused has
    // an empty one.
    bool HasNothingValid() const {
        if (!m_bHasFiles) Fail(failure::SubscriptOutOfRange);
        return m_sPaths.empty();
    }

    void AddToDB() {
        for (const std::string& sPath : m_sPaths) {
            // A dot in front of a name in an archive hides nothing.
            m_sIDs.push_back(AddFile(sPath, false));
            ShowText(sPath);
            if (m_sIDs.back() == "-1")
                m_sRejected.Add(sPath);
            else
                m_sValidIDs.Add(m_sIDs.back());
        }
    }

    void ShowRejected() const {
        if (!m_sRejected.IsEmpty()) ShowInvalidFiles(m_sRejected.All());
    }

    void MoveFiles() const {
        for (const std::string& sID : m_sValidIDs.All()) MoveToDBFolder(sID);
    }

    // The first file decides what kind of group it is, also when it was rejected itself: there is
    // no such group then, and making it fails.
    void MoveAsGroup() const {
        const std::string sName = StripExt(GetFileName(m_zip.ZipFile()));
        MoveToDBFolder(
            MakeGroup(m_sValidIDs.All(), sName, GetGroupType(GetDBIDType(m_sIDs.front()))));
    }

  private:
    std::string Unpack(const ZipEntry& entry, const std::string& sFolder) const {
        const Doing unpacking("Unpacking", entry.Name(), "of", m_zip.ZipFile());
        return entry.Extract(sFolder);
    }

    ZipReader& m_zip;
    bool m_bHasFiles = false;
    std::vector<std::string> m_sPaths;
    std::vector<std::string> m_sIDs;  // of the files at these paths
    TextList m_sValidIDs;
    TextList m_sRejected;
};

}  // namespace

void AddZipFile(const std::string& sZipPath, const bool& bMakeGroup) {
    const Doing importing("Importing", sZipPath);
    frmAdd().Show();
    const std::string sFolder = sDefaultDBPath + "\\TEMPUNZIP";
    ZipReader zip;
    zip.ZipFile(sZipPath);
    if (!oFSO().FolderExists(sFolder)) oFSO().CreateFolder(sFolder);
    ShowText("UNZIPPING");
    Import import(zip);
    import.Unzip(sFolder);
    if (import.HasNothingValid()) {
        Service<MessageBoxes>::Get().MsgBox("No valid picture files found in this Zip file",
                                            MsgBoxButtons::OK, ProgramTitle);
        import.ShowRejected();
    } else {
        import.AddToDB();
        import.ShowRejected();
        if (bMakeGroup)
            import.MoveAsGroup();
        else
            import.MoveFiles();
    }
    zip.Close();
    frmAdd().Unload();
}

}  // namespace tavel
