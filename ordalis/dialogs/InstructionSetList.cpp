/*
 * InstructionSetList.cpp - the main dialog's list of instruction sets: its
 * refill from the library, the choice of the current set, and the New,
 * Load..., Save..., Rename..., Delete and "Show Full Path" controls.
 *
 * The list's items are the library's entries in order (item = index + 1).
 * Every callback holds the add-on lock for its own work.
 */
#include "InstructionSetList.h"

#include <cstdio>
#include <unistd.h>

#include "AddOnHost.h"
#include "FileInfo.h"
#include "FileOpen.h"
#include "Library.h"
#include "Preview.h"
#include "Reader.h"
#include "StringUtil.h"
#include "Writer.h"

namespace corvane::cvnutildataio {

#define TW_SET_CHOOSER_TITLE "tabwise file configuration"
#define TW_SET_CHOOSER_FILTER "*.twc"
#define TW_UNTITLED_FILE_NAME "untitled.twc"
#define TW_RENAME_MESSAGE_LENGTH 2101 /* characters of the rename warning */

LgIndex_t InstrSet_SLST_D1 = CVNGUI_BAD_ID;
bool MainDialog_ShowFullPath = false;

/* Number of library entries before the first empty one. */
static int LibraryCount()
{
    int Count = 0;
    while (Count < TW_MAX_CONFIGS && GlobalConfigInfoArray[Count] != nullptr)
        Count++;
    return Count;
}

/* Makes entry Index the current set. The preview follows at once with
   auto-processing on; otherwise a scan made for it is marked stale. */
static void MakeCurrentSet(int Index)
{
    GlobalFileInfo->CurConfigIndex = Index;
    if (ViewOptionsDialog_AutoProcess)
        RefreshPreviewWindow();
    else if (GlobalFileData != nullptr)
        GlobalFileData->NeedsRescan = true;
}

/* After a set was added at the end of the library: refills the list,
   makes the last set current and selects it. */
static void ShowAddedSet()
{
    DlgUpdateConfigFileListBox(true, MainDialog_ShowFullPath);
    int Last = LibraryCount();
    MakeCurrentSet(Last - 1);
    CvnGUIListSetSelectedItem(InstrSet_SLST_D1, Last);
}

/* Copies the library folder followed by "/" and Name into Path (room for
   Size characters). False after "Out of memory" when the folder's string
   cannot be made. */
static bool LibraryPath(const char *Name, char *Path, size_t Size)
{
    char *Dir = nullptr;
    if (!GetBaseInstructionSetDir(&Dir))
        return false;
    snprintf(Path, Size, "%s/%s", Dir, Name);
    CvnUtilStringDealloc(&Dir);
    return true;
}

/* Set belongs to the file Path from now on: its full path, its file name
   with extension as display name, and no unsaved or never-saved mark. */
static void AttachToFile(TW_ConfigInstructions_s *Set, const char *Path)
{
    static char Name[1000];
    char Ext[256];
    TW_splitpath(Path, nullptr, nullptr, Name, Ext);
    TW_Strncpy(Set->FilePath, Path, sizeof(Set->FilePath));
    /* Each part of a split path holds at most 255 characters. */
    snprintf(Set->DisplayName, sizeof(Set->DisplayName), "%.255s%.255s", Name, Ext);
    Set->IsModified = false;
    Set->IsNew = false;
}

void DlgUpdateConfigFileListBox(bool KeepSelection, bool ShowFullPath)
{
    CvnUtilLockStart(AddOnID);
    LgIndex_t Selected = KeepSelection ? CvnGUIListGetSelectedItem(InstrSet_SLST_D1) : 1;
    CvnGUIListDeleteAllItems(InstrSet_SLST_D1);
    for (int Index = 0; Index < TW_MAX_CONFIGS && GlobalConfigInfoArray[Index] != nullptr;
         Index++) {
        const TW_ConfigInstructions_s *Set = GlobalConfigInfoArray[Index];
        char Item[sizeof(Set->FilePath) + 2];
        snprintf(Item, sizeof(Item), "%s%s", ShowFullPath ? Set->FilePath : Set->DisplayName,
                 Set->IsModified ? " *" : "");
        CvnGUIListAppendItem(InstrSet_SLST_D1, Item);
    }
    CvnGUIListSetSelectedItem(InstrSet_SLST_D1, Selected);
    CvnUtilLockFinish(AddOnID);
}

/* False when Path names an existing file and the user declines to
   overwrite it. */
static bool MayWriteFile(const char *Path)
{
    FILE *Existing = corvane::filesystem::fileOpen(Path, "r");
    if (Existing == nullptr)
        return true;
    fclose(Existing);
    char Question[1200];
    snprintf(Question, sizeof(Question), "File \"%s\" exists. Overwrite?", Path);
    return CvnUtilDialogMessageBox(Question, MessageBox_YesNo) != FALSE;
}

void DlgSaveConfigFile(TW_ConfigInstructions_s *Set)
{
    CvnUtilLockStart(AddOnID);
    char Proposed[1001];
    bool HaveProposal = true;
    if (Set->IsNew)
        HaveProposal = LibraryPath(TW_UNTITLED_FILE_NAME, Proposed, sizeof(Proposed));
    else
        TW_Strncpy(Proposed, Set->FilePath, sizeof(Proposed));

    char *Chosen = nullptr;
    if (HaveProposal &&
        CvnUtilDialogGetFileName(SelectFileOption_WriteFile, &Chosen, TW_SET_CHOOSER_TITLE,
                                 Proposed, TW_SET_CHOOSER_FILTER) &&
        Chosen != nullptr && MayWriteFile(Chosen)) {
        AttachToFile(Set, Chosen);
        SaveConfigFile(Set->FilePath, Set);
        DlgUpdateConfigFileListBox(true, MainDialog_ShowFullPath);
    }
    CvnUtilStringDealloc(&Chosen);
    CvnUtilLockFinish(AddOnID);
}

/* A list item was picked: its set becomes current. */
void InstrSet_SLST_D1_CB(const LgIndex_t *Item)
{
    CvnUtilLockStart(AddOnID);
    if (Item != nullptr && *Item >= 1 && *Item <= LibraryCount())
        MakeCurrentSet((int)(*Item - 1));
    CvnUtilLockFinish(AddOnID);
}

/* New: a set with every default, never saved, added at the end of the
   library and made current. */
void New_BTN_D1_CB(void)
{
    CvnUtilLockStart(AddOnID);
    TW_ConfigInstructions_s *Set = ImportInstructionsAlloc();
    if (Set == nullptr) {
        ShowDialogErrorMessage("Out of memory");
    } else if (!AddConfigToInstructionSetArray(Set)) {
        ImportInstructionsDealloc(&Set);
    } else {
        ShowAddedSet();
    }
    CvnUtilLockFinish(AddOnID);
}

/* Load...: a set read from an instruction-set file the user picks, added at
   the end of the library and made current. A file that cannot be read
   adds nothing (the reader says why). */
void Load_BTN_D1_CB(void)
{
    CvnUtilLockStart(AddOnID);
    char Folder[1001];
    char *Chosen = nullptr;
    TW_ConfigInstructions_s *Set = nullptr;
    if (LibraryPath("", Folder, sizeof(Folder)) &&
        CvnUtilDialogGetFileName(SelectFileOption_ReadSingleFile, &Chosen, TW_SET_CHOOSER_TITLE,
                                 Folder, TW_SET_CHOOSER_FILTER) &&
        Chosen != nullptr && LoadConfigFile(Chosen, &Set)) {
        if (AddConfigToInstructionSetArray(Set))
            ShowAddedSet();
        else
            ImportInstructionsDealloc(&Set);
    }
    CvnUtilStringDealloc(&Chosen);
    CvnUtilLockFinish(AddOnID);
}

void Save_BTN_D1_CB(void)
{
    CvnUtilLockStart(AddOnID);
    DlgSaveConfigFile(GetCurConfigPtr());
    CvnUtilLockFinish(AddOnID);
}

/* Rename...: moves the current set's file to a name the user picks (the
   content is not rewritten). A set never saved is saved instead. When the
   file cannot be moved a warning says so and the set keeps its file. */
void Rename_BTN_D1_CB(void)
{
    CvnUtilLockStart(AddOnID);
    TW_ConfigInstructions_s *Set = GetCurConfigPtr();
    if (Set->IsNew) {
        DlgSaveConfigFile(Set);
        CvnUtilLockFinish(AddOnID);
        return;
    }

    char Folder[1001];
    char *Chosen = nullptr;
    if (LibraryPath("", Folder, sizeof(Folder)) &&
        CvnUtilDialogGetFileName(SelectFileOption_WriteFile, &Chosen, TW_SET_CHOOSER_TITLE,
                                 Folder, TW_SET_CHOOSER_FILTER) &&
        Chosen != nullptr) {
        if (rename(Set->FilePath, Chosen) != 0) {
            char *Message = CvnUtilStringAlloc(TW_RENAME_MESSAGE_LENGTH, "RenameMessage");
            if (Message != nullptr) {
                snprintf(Message, TW_RENAME_MESSAGE_LENGTH + 1,
                         "Unable to rename disk file \"%s\" to \"%s\"\n"
                         "Check disk space or permissions.",
                         Set->FilePath, Chosen);
                CvnUtilDialogMessageBox(Message, MessageBox_Warning);
                CvnUtilStringDealloc(&Message);
            }
        } else {
            AttachToFile(Set, Chosen);
            DlgUpdateConfigFileListBox(true, MainDialog_ShowFullPath);
        }
    }
    CvnUtilStringDealloc(&Chosen);
    CvnUtilLockFinish(AddOnID);
}

/* Delete: after the user agrees, removes the current set from the library
   and deletes its file (a set never saved has none). The library keeps at
   least one set. The set before the deleted one becomes current (the new
   first one when the first was deleted). */
void Delete_BTN_D1_CB(void)
{
    CvnUtilLockStart(AddOnID);
    if (CvnGUIListGetItemCount(InstrSet_SLST_D1) == 1) {
        ShowDialogErrorMessage("Must have at least one configuration");
        CvnUtilLockFinish(AddOnID);
        return;
    }

    int Index = GlobalFileInfo->CurConfigIndex;
    const TW_ConfigInstructions_s *Set = GetCurConfigPtr();
    char Question[1200];
    if (Set->IsNew)
        snprintf(Question, sizeof(Question), "Delete %s?", Set->DisplayName);
    else
        snprintf(Question, sizeof(Question),
                 "Are you sure you want to permanently delete the file \"%s\" ?", Set->FilePath);
    if (!CvnUtilDialogMessageBox(Question, MessageBox_YesNo)) {
        CvnUtilLockFinish(AddOnID);
        return;
    }

    if (!Set->IsNew) {
        /* The outcome is worded but not shown: the set leaves the library
           whether or not its file could be deleted. */
        char Outcome[1200];
        if (unlink(Set->FilePath) == 0)
            snprintf(Outcome, sizeof(Outcome), "File \"%s\" has been deleted.", Set->FilePath);
        else
            snprintf(Outcome, sizeof(Outcome), "Could not delete file \"%s\"", Set->FilePath);
    }

    DeleteConfigFromInstructionSetArray(Index);
    DlgUpdateConfigFileListBox(false, MainDialog_ShowFullPath);
    int NewIndex = Index == 0 ? 0 : Index - 1;
    MakeCurrentSet(NewIndex);
    CvnGUIListSetSelectedItem(InstrSet_SLST_D1, NewIndex + 1);
    CvnUtilLockFinish(AddOnID);
}

/* "Show Full Path": the list shows full paths or file names, the selected
   item kept. */
void ShowISPath_TOG_D1_CB(const LgIndex_t *Value)
{
    CvnUtilLockStart(AddOnID);
    MainDialog_ShowFullPath = Value != nullptr && *Value != 0;
    LgIndex_t Selected = CvnGUIListGetSelectedItem(InstrSet_SLST_D1);
    DlgUpdateConfigFileListBox(true, MainDialog_ShowFullPath);
    CvnGUIListSetSelectedItem(InstrSet_SLST_D1, Selected);
    CvnUtilLockFinish(AddOnID);
}

} // namespace corvane::cvnutildataio
