/*
 * FileInfo.cpp - the file information of the open main dialog.
 */
#include "FileInfo.h"

#include "AddOnHost.h"
#include "TW_Alloc.h"

namespace corvane::cvnutildataio {

TW_FileInfo_s *GlobalFileInfo = nullptr;

TW_FileInfo_s *FileInfoAlloc()
{
    TW_FileInfo_s *FileInfo = (TW_FileInfo_s *)TW_Calloc(1, sizeof(TW_FileInfo_s));
    if (FileInfo == nullptr) {
        ShowDialogErrorMessage("Out of memory. Unable to allocate file map structure");
        return nullptr;
    }
    FileInfo->FileName[0] = '\0';
    FileInfo->DisplayName[0] = '\0';
    FileInfo->FileSize = 0;
    FileInfo->CurConfigIndex = 0;
    return FileInfo;
}

void FileInfoDealloc(TW_FileInfo_s **FileInfo)
{
    if (FileInfo == nullptr || *FileInfo == nullptr)
        return;
    TW_Free(*FileInfo);
    *FileInfo = nullptr;
}

} // namespace corvane::cvnutildataio
