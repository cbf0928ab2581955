#pragma once

#include "platform/FileService.h"
#include "platform/Numbers.h"

#include <string>
#include <vector>

namespace tavel {

// Group folders on the stick, one level deep; each fails with 76 when the stick lacks the folder.
std::vector<FolderEntry> PSPMusicFolders();
std::vector<FolderEntry> PSPPhotoFolders();

// A row of the item list in the PSP view: its key, its text and its further cells.
struct PSPRow {
    std::string sKey;
    std::string sText;
    std::vector<std::string> sSubItems;
};

// Appends what a folder of the stick holds, as rows of the list for type 0, 3 or 5; none for
// another type. When a file fails, the rows before it are there.
void ListPSPFiles(const std::string& sPath, Integer iType, std::vector<PSPRow>& rows);

// Deletes the file that a row of that list type names, a video's thumbnail with it.
void DeletePSPFile(const PSPRow& row, Integer iListType);

}  // namespace tavel
