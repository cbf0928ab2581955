#include "device/Transfer.h"

#include "core/MessageBoxes.h"
#include "core/PublicStuff.h"
#include "core/UsefulFunctions.h"
#include "core/modRegistry.h"
#include "device/Naming.h"
#include "library/Collections.h"
#include "library/Identifiers.h"
#include "platform/Activity.h"
#include "platform/Service.h"

namespace tavel {

namespace {

// One run of the transfer list over the open frmCopy.
class Transfer {
  public:
    explicit Transfer(CopyWindow& frmCopy)
        : m_frmCopy(frmCopy), m_pgbCurr(frmCopy.pgbCurr()), m_pgbTotal(frmCopy.pgbTotal()) {}

    void Run(const std::vector<std::string>& sIDs) {
        m_pgbTotal.SetMin(0);
        m_pgbTotal.SetMax(static_cast<float>(sIDs.size()));
        m_pgbTotal.SetValue(0);
        for (const std::string& sID : sIDs) {
            Send(sID);
            m_pgbTotal.SetValue(m_pgbTotal.Value() + 1);
        }
    }

  private:
    void Send(const std::string& sID) {
        const Doing sending("Sending", sID);
        const Integer iType = GetDBIDType(sID);
        switch (iType) {
            case mtPhoto:
                return SendPhoto(colPhoto.Item(sID));
            case mtMusic:
                return SendMusic(colMusic.Item(sID));
            case mtVideo:
                return SendVideo(colVideo.Item(sID));
            case mtMagazine:
            case mtPhotoAlbum:
                return SendPages(GroupOf(iType, sID));
            case mtVidSeries:
                return SendEpisodes(colVidSeries.Item(sID));
            case mtPlaylist:
                return SendTracks(colPlaylist.Item(sID));
            default:
                return;
        }
    }

    void SendPhoto(const Photo& photo) {
        ShowItem(photo.sName);
        Copy(photo, PSPPath(PhotoFolder) + FileNameOf(photo));
    }

    void SendMusic(const Music& track) {
        ShowItem(track.sName + "-" + track.sArtist);
        Copy(track, PSPPath(MusicFolder) + FileNameOf(track));
    }

    void SendVideo(const Video& video) {
        ShowItem(video.sName);
        const std::string sFolder = PSPPath(VideoFolder);
        const std::string sFile = NextVideoName(video.sFormat);
        Copy(video, sFolder + sFile);
        const std::string sNumber = StripExt(sFile);
        if (!video.sThumbPath.empty()) {
            CopyAtOnce(video.sThumbPath, sFolder + sNumber + ".THM");
        }
        // Also for a copy that wrote nothing: the engine can't tell.
        WriteValue(sPSPDataFile, "video", sNumber, "s", video.sName);
    }

    void SendPages(const Group& group) {
        ShowGroup(group);
        const std::string sFolder = MakeGroupFolder(PhotoFolder, group);
        SendMembers(group, mtPhoto, [&](const Item& page) {
            CopyAtOnce(page.sPath(), sFolder + FileNameOf(page));
        });
    }

    void SendTracks(const Playlist& list) {
        ShowGroup(list);
        const std::string sFolder = MakeGroupFolder(MusicFolder, list);
        SendMembers(list, mtMusic,
                    [&](const Item& track) { Copy(track, sFolder + FileNameOf(track)); });
    }

    // Episodes get neither a thumbnail nor a title in the identity file, unlike single videos.
    void SendEpisodes(const VidSeries& series) {
        ShowGroup(series);
        SendMembers(series, mtVideo, [&](const Item& episode) {
            Copy(episode, PSPPath(VideoFolder) + NextVideoName(episode.sFormat));
        });
    }

    // CopyWithProgress uses pgbCurr for the bytes of a file and leaves it at 0, so in playlists and
    // series the step of 1 lands on that 0; only the pages of a group are counted by it.
    template <class Copy>
    void SendMembers(const Group& group, MediaType memberType, Copy&& copy) {
        for (Integer i = 0; i < group.Count(); ++i) {
            const Doing sending("Sending", group.Members().Get(i), "of", group.sName);
            const Item& member = ItemOf(memberType, group.Members().Get(i));
            m_frmCopy.SetSubFile(member.sName);
            m_frmCopy.Repaint();
            copy(member);
            m_pgbCurr.SetValue(m_pgbCurr.Value() + 1);
            m_frmCopy.Repaint();
        }
    }

    void Copy(const Item& item, const std::string& sTarget) {
        const Doing sending("Sending", item.sPath(), "to", sTarget);
        CopyWithProgress(item.sPath(), sTarget, m_pgbCurr);
    }

    static void CopyAtOnce(const std::string& sSource, const std::string& sTarget) {
        const Doing sending("Sending", sSource, "to", sTarget);
        oFSO().CopyFile(sSource, sTarget, true);
    }

    void ShowItem(const std::string& sText) {
        m_frmCopy.SetFile(sText);
        m_frmCopy.ShowSubFile(false);
        m_frmCopy.Repaint();
    }

    void ShowGroup(const Group& group) {
        m_frmCopy.SetFile(group.sName);
        m_frmCopy.ShowSubFile(true);
        m_pgbCurr.SetMin(0);
        m_pgbCurr.SetMax(group.Count());
        m_pgbCurr.SetValue(0);
    }

    static std::string FileNameOf(const Item& item) { return item.sName + "." + item.sFormat; }

    static std::string MakeGroupFolder(std::string_view sParent, const Group& group) {
        std::string sFolder = PSPPath(sParent) + group.sName + "\\";
        const Doing making("Making the folder", sFolder);
        if (!oFSO().FolderExists(sFolder)) oFSO().CreateFolder(sFolder);
        return sFolder;
    }

    CopyWindow& m_frmCopy;
    ProgressBarView& m_pgbCurr;
    ProgressBarView& m_pgbTotal;
};

}  // namespace

void TransferToPSP(const std::vector<std::string>& sIDs) {
    if (!bPSPConnected) {
        Service<MessageBoxes>::Get().MsgBox("No PSP Connected", MsgBoxButtons::OK, ProgramTitle);
        return;
    }
    CopyWindow& frmCopy = Service<CopyWindow>::Get();
    frmCopy.Show();
    frmCopy.Repaint();
    Transfer(frmCopy).Run(sIDs);
    frmCopy.ShowFinish();
    frmCopy.ShowOK();

    DevicePanels& panels = Service<DevicePanels>::Get();
    panels.RefreshPSPCats();
    panels.RefreshPSPStatus();
}

}  // namespace tavel
