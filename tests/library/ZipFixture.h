#pragma once

#include "library/Folders.h"
#include "library/LibraryFixture.h"
#include "library/ZipImport.h"
#include "support/FaultyFileService.h"
#include "support/ZipMaker.h"

#include <string>
#include <vector>

namespace tavel::test {

// A library folder with its tree, and archives to take in.
class ZipImportTest : public LibraryTest {
  protected:
    ZipImportTest() {
        Service<FileService>::Use(&files);
        MakeDBFolders(root);
        files.calls.clear();
    }

    void Import(const std::vector<ZipItem>& items, const std::string& name = "archive.zip") {
        ImportBytes(MakeZip(items), name);
    }
    void ImportBytes(const std::string& bytes, const std::string& name = "archive.zip") {
        AddZipFile(Write(name, bytes), bGroupZip);
    }

    // What was unpacked, by its path in the archive: where it lies on the host, and its bytes.
    std::string Unzipped(const std::string& name) const {
        return temp.HostPath("library/TEMPUNZIP/" + name);
    }
    std::string UnzippedBytes(const std::string& name) const {
        return temp.Read("library/TEMPUNZIP/" + name);
    }

    // Puts what is done with files between what is asked of the windows.
    void RecordFilesToo(const std::string& sZip) {
        files.onCall = [this, sZip](const std::string& sCall) {
            for (const std::string& sStart : {std::string("OpenRaw "), std::string("CreateFolder "),
                                              std::string("MoveFile "), "Close " + sZip}) {
                if (sCall.rfind(sStart, 0) == 0) windows.calls.push_back(sCall);
            }
            if (sCall == "FolderExists " + sFolder) windows.calls.push_back(sCall);
        };
    }

    // What stands in the list of rejected files.
    Texts Listed() const {
        const std::string add = "frmInvFiles.AddItem ";
        Texts listed;
        for (const std::string& call : windows.calls) {
            if (call.rfind(add, 0) == 0) listed.push_back(call.substr(add.size()));
        }
        return listed;
    }

    FaultyFileService files;
    std::string root = temp.DrivePath("library");
    std::string sFolder = root + "\\TEMPUNZIP";
};

}  // namespace tavel::test
