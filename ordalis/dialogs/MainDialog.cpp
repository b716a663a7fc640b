/*
 * MainDialog.cpp - the main import dialog ("Ordalis Loader"): the chosen
 * data file and the construction of the dialog itself.
 */
#include "MainDialog.h"

#include <cstdio>
#include <sys/stat.h>

#include "AddOnHost.h"
#include "FileInfo.h"
#include "Library.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

#define TW_DISPLAY_NAME_WIDTH 37

/* Host dialog id of the main dialog; CVNGUI_BAD_ID until BuildDialog1 made
   it. The dialog is built once and then only launched and dropped. */
LgIndex_t Dialog1Manager = CVNGUI_BAD_ID;

/* Makes FileName (or, with NULL and AskUser, the file the user picks) the
   chosen data file of GlobalFileInfo: size, full name, cropped name. With
   NULL and not AskUser nothing changes and the result is true. False, with
   nothing changed, when the user cancels or the file has no status. */
bool ResetFile(const char *FileName, bool AskUser)
{
    char Name[1001]; /* the file being made current */

    if (FileName == nullptr) {
        if (!AskUser)
            return true;
        const TW_ConfigInstructions_s *Current = GetCurConfigPtr();
        char *Chosen = nullptr;
        if (!CvnUtilDialogGetFileName(SelectFileOption_ReadSingleFile, &Chosen,
                                      Current->FileDesc, GlobalFileInfo->FileName,
                                      Current->FileExt))
            return false;
        TW_Strncpy(Name, Chosen ? Chosen : "", sizeof(Name));
        CvnUtilStringDealloc(&Chosen);
    } else {
        TW_Strncpy(Name, FileName, sizeof(Name));
    }

    struct stat Status;
    if (stat(Name, &Status) != 0) {
        char Message[1101];
        snprintf(Message, sizeof(Message), "Could not get file information for \"%s\"", Name);
        ShowDialogErrorMessage(Message);
        return false;
    }

    char *Cropped = nullptr;
    TW_CropFileName(Name, &Cropped, TW_DISPLAY_NAME_WIDTH);
    GlobalFileInfo->FileSize = (int32_t)Status.st_size;
    TW_Strncpy(GlobalFileInfo->FileName, Name, sizeof(GlobalFileInfo->FileName));
    TW_Strncpy(GlobalFileInfo->DisplayName, Cropped ? Cropped : "",
               sizeof(GlobalFileInfo->DisplayName));
    CvnUtilStringDealloc(&Cropped);
    return true;
}

/* Creates the modal main dialog once; later calls do nothing. */
void BuildDialog1(LgIndex_t ParentDialogID)
{
    if (Dialog1Manager != CVNGUI_BAD_ID)
        return;
    Dialog1Manager = CvnGUIDialogCreateModal(ParentDialogID, 640, 520, TW_LOADER_NAME, nullptr,
                                             nullptr, nullptr, nullptr, nullptr);
}

} // namespace corvane::cvnutildataio
