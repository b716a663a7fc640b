/*
 * LoaderSelected.cpp - opens the main import dialog when the user picks the
 * loader: the file information, the library (entry 0 from the set last
 * used, the rest from the library directory) and the dialog.
 */
#include "LoaderSelected.h"

#include <cstdio>

#include "AddOnHost.h"
#include "FileInfo.h"
#include "Library.h"
#include "MainDialog.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

/* The user picked the loader: prepares the file information and the
   library (entry 0 from LastUsedConfig, the rest from the library
   directory) and launches the main dialog. When the previous data file is
   no longer there, everything made is freed and no dialog is shown. */
void LoaderSelectedCallback(StringList_s *Instructions, char Flag, long ClientData)
{
    (void)Flag;
    (void)ClientData;
    CvnUtilLockStart(AddOnID);
    FileInfoDealloc(&GlobalFileInfo);

    GlobalFileInfo = FileInfoAlloc();
    if (GlobalFileInfo == nullptr) {
        char Message[256];
        snprintf(Message, sizeof(Message), "Not enough memory to run %s", TW_LOADER_NAME);
        ShowDialogErrorMessage(Message);
        CvnUtilLockFinish(AddOnID);
        return;
    }

    /* Entry 0 is the dialog's unsaved set, started from the last one used. */
    ImportInstructionsDealloc(&GlobalConfigInfoArray[0]);
    GlobalConfigInfoArray[0] = ImportInstructionsAlloc();
    if (GlobalConfigInfoArray[0] != nullptr) {
        TW_Strncpy(GlobalConfigInfoArray[0]->DisplayName, "<untitled>",
                   sizeof(GlobalConfigInfoArray[0]->DisplayName));
        TW_Strncpy(GlobalConfigInfoArray[0]->FilePath, "<untitled>",
                   sizeof(GlobalConfigInfoArray[0]->FilePath));
    }
    if (LastUsedConfig != nullptr)
        CopyInstructionSet(&GlobalConfigInfoArray[0], LastUsedConfig);

    char *PreviousFile = nullptr;
    if (Instructions != nullptr && CvnUtilStringListGetCount(Instructions) >= 1)
        PreviousFile = CvnUtilStringListGetString(Instructions, 1);

    if (ResetFile(PreviousFile, false)) {
        FillInstructionSetArray();
        BuildDialog1(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog1Manager);
    } else {
        FileInfoDealloc(&GlobalFileInfo);
        CvnUtilLockStart(AddOnID);
        for (int Entry = 0; Entry < TW_MAX_CONFIGS; Entry++)
            ImportInstructionsDealloc(&GlobalConfigInfoArray[Entry]);
        CvnUtilLockFinish(AddOnID);
    }

    CvnUtilStringDealloc(&PreviousFile);
    CvnUtilLockFinish(AddOnID);
}

} // namespace corvane::cvnutildataio
