/*
 * MainDialog.cpp - the main import dialog ("Ordalis Loader"): the chosen
 * data file, the launchers of the section dialogs, the preview controls,
 * and OK, which loads the file with the current instruction set.
 *
 * The dialog holds the add-on lock from its init callback until OK or
 * Cancel gives it back; every other callback takes it for its own work.
 * The list of instruction sets and its buttons are in InstructionSetList.
 */
#include "MainDialog.h"

#include <cstdio>
#include <sys/stat.h>

#include "AddOnHost.h"
#include "DataImportDialog.h"
#include "FileInfo.h"
#include "FiltersDialog.h"
#include "InstructionSetList.h"
#include "Library.h"
#include "LoaderCallbacks.h"
#include "Preview.h"
#include "Progress.h"
#include "StringUtil.h"
#include "TextScan.h"
#include "TitleDialog.h"
#include "VariablesDialog.h"
#include "ViewOptionsDialog.h"
#include "Writer.h"

namespace corvane::cvnutildataio {

#define TW_DISPLAY_NAME_WIDTH 37
#define TW_FIRST_RAW_VIEW_LIMIT 200 /* lines of the raw view when the dialog opens */
#define TW_NO_FILE_TEXT "No file selected."
#define TW_OVERVIEW_HELP "addon_ordalis_loader_overview.html"

/* Host dialog id of the main dialog; CVNGUI_BAD_ID until BuildDialog1 made
   it. The dialog is built once and then only launched and dropped. */
LgIndex_t Dialog1Manager = CVNGUI_BAD_ID;

static LgIndex_t FNLabel_LBL_D1 = CVNGUI_BAD_ID;
static LgIndex_t FileName_LBL_D1 = CVNGUI_BAD_ID;
static LgIndex_t Browse_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t Title_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t Variables_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t Data_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t Filters_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t ConfigFiles_LBL_D1 = CVNGUI_BAD_ID;
static LgIndex_t New_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t Delete_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t View_RADIO_D1 = CVNGUI_BAD_ID;
static LgIndex_t Refresh_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t ShowISPath_TOG_D1 = CVNGUI_BAD_ID;
static LgIndex_t ViewOptions_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t Save_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t Rename_BTN_D1 = CVNGUI_BAD_ID;
static LgIndex_t DbgSel_LBL_D1 = CVNGUI_BAD_ID;
static LgIndex_t Load_BTN_D1 = CVNGUI_BAD_ID;

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

/* True when a data file is chosen. */
static bool FileIsChosen()
{
    return GlobalFileInfo != nullptr && GlobalFileInfo->FileName[0] != '\0';
}

/* The file name label and the controls that need a file: the preview, the
   view radio box and "Scan File" work only when one is chosen. */
static void ShowChosenFile()
{
    CvnGUILabelSetText(FileName_LBL_D1,
                       FileIsChosen() ? GlobalFileInfo->DisplayName : TW_NO_FILE_TEXT);
    Boolean_t HasFile = FileIsChosen() ? TRUE : FALSE;
    CvnGUISetSensitivity(Preview_T_D1, HasFile);
    CvnGUISetSensitivity(View_RADIO_D1, HasFile);
    CvnGUISetSensitivity(Refresh_BTN_D1, HasFile);
}

/* Browse...: the user picks the data file; the preview shows it (raw, or
   processed when auto-processing is on). */
static void Browse_BTN_D1_CB(void)
{
    CvnUtilLockStart(AddOnID);
    if (ResetFile(nullptr, true)) {
        if (MainDialog_ViewData == 1)
            FormatRawData(Preview_T_D1, TW_EffectiveLimit());
        else if (MainDialog_ViewData == 2 && ViewOptionsDialog_AutoProcess)
            RefreshPreviewWindow();
        ShowChosenFile();
    }
    CvnUtilLockFinish(AddOnID);
}

/* Builds dialog N under the host's main window if needed and launches it. */
static void LaunchSectionDialog(void (*Build)(LgIndex_t), const LgIndex_t *Manager)
{
    CvnUtilLockStart(AddOnID);
    Build(CVNGUI_MAIN_DIALOG_ID);
    CvnGUIDialogLaunch(*Manager);
    CvnUtilLockFinish(AddOnID);
}

static void Title_BTN_D1_CB(void) { LaunchSectionDialog(BuildDialog3, &Dialog3Manager); }
static void Variables_BTN_D1_CB(void) { LaunchSectionDialog(BuildDialog4, &Dialog4Manager); }
static void Data_BTN_D1_CB(void) { LaunchSectionDialog(BuildDialog5, &Dialog5Manager); }
static void Filters_BTN_D1_CB(void) { LaunchSectionDialog(BuildDialog6, &Dialog6Manager); }
static void ViewOptions_BTN_D1_CB(void) { LaunchSectionDialog(BuildDialog2, &Dialog2Manager); }

/* The view radio box: the raw view at once; the processed view only when
   auto-processing is on (otherwise "Scan File" makes it). */
static void View_RADIO_D1_CB(const LgIndex_t *Value)
{
    CvnUtilLockStart(AddOnID);
    MainDialog_ViewData = Value != nullptr ? (int32_t)*Value : 1;
    if (MainDialog_ViewData != 2)
        FormatRawData(Preview_T_D1, TW_EffectiveLimit());
    else if (ViewOptionsDialog_AutoProcess)
        RefreshPreviewWindow();
    CvnUtilLockFinish(AddOnID);
}

/* "Scan File": a fresh scan of the chosen file with the current set, then
   the preview; a failed scan leaves its reason in the preview. */
static void Refresh_BTN_D1_CB(void)
{
    CvnUtilLockStart(AddOnID);
    ReleaseFileData(&GlobalFileData);
    GlobalCancelled = FALSE;
    if (ScanTextFile(&GlobalFileData, GlobalFileInfo->FileName, GetCurConfigPtr(), true))
        RefreshPreviewWindow();
    else
        CvnGUITextSetString(Preview_T_D1,
                            GlobalCancelled ? "File scan cancelled." : "[Error scanning file]");
    CvnUtilLockFinish(AddOnID);
}

/* Takes the add-on lock for as long as the dialog is up, shows the first
   raw view (at most 200 lines, whatever the view options say) and sets
   every control from the dialog's state. */
static void Dialog1Init_CB(void)
{
    CvnUtilLockStart(AddOnID);
    FormatRawData(Preview_T_D1, TW_FIRST_RAW_VIEW_LIMIT);
    DlgUpdateConfigFileListBox(false, MainDialog_ShowFullPath);
    CvnGUIToggleSet(ShowISPath_TOG_D1, MainDialog_ShowFullPath ? TRUE : FALSE);
    CvnGUIRadioBoxSetSelectedOption(View_RADIO_D1, MainDialog_ViewData);
    ShowChosenFile();
}

/* Loads the scanned file into the host: the file name and the current set
   in compact form become the loader instructions of internalLoaderCallback,
   which scans and transfers it and stores them with the data set. */
static void LoadIntoHost(TW_ConfigInstructions_s *Current)
{
    StringList_s *Instructions = CvnUtilStringListAlloc();
    if (Instructions == nullptr) {
        ShowDialogErrorMessage("Error saving layout instructions: Out of memory");
        return;
    }
    char *SetText = nullptr;
    PrintInstructionSet(Current, true, &SetText);
    CvnUtilStringListAppendString(Instructions, GlobalFileInfo->FileName);
    CvnUtilStringListAppendString(Instructions, SetText);
    internalLoaderCallback(Instructions, TRUE);
    CvnUtilStringDealloc(&SetText);
    CvnUtilStringListDealloc(&Instructions);
}

/* OK: keeps the current set for the next dialog, offers to save it when
   it was never saved and is marked modified, then scans the chosen file
   and loads it. Without a file the dialog comes back. The library is
   emptied without questions and the lock given back. */
static void Dialog1OkButton_CB(void)
{
    TW_ConfigInstructions_s *Current = GetCurConfigPtr();
    CopyInstructionSet(&LastUsedConfig, Current);
    CvnGUIDialogDrop(Dialog1Manager);

    if (Current->IsNew && Current->IsModified &&
        CvnUtilDialogMessageBox("Save changes to <untitled> configuration file?",
                                MessageBox_YesNo))
        DlgSaveConfigFile(Current);

    if (!FileIsChosen()) {
        ShowDialogErrorMessage("Please enter a file name.");
        CvnUtilLockFinish(AddOnID);
        BuildDialog1(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog1Manager);
        return;
    }

    ReleaseFileData(&GlobalFileData);
    GlobalCancelled = FALSE;
    ScanTextFile(&GlobalFileData, GlobalFileInfo->FileName, Current, true);
    if (!GlobalCancelled) {
        if (GlobalFileData == nullptr)
            ShowDialogErrorMessage("Error importing data into Corvane");
        else
            LoadIntoHost(Current);
    }

    ReleaseFileData(&GlobalFileData);
    ClearInstructionSetArray(false);
    CvnUtilLockFinish(AddOnID);
}

/* Cancel: empties the library, offering to save each modified set, drops
   the scan and the dialog and gives the lock back. */
static void Dialog1CancelButton_CB(void)
{
    ClearInstructionSetArray(true);
    ReleaseFileData(&GlobalFileData);
    CvnGUIDialogDrop(Dialog1Manager);
    CvnUtilLockFinish(AddOnID);
}

static void Dialog1HelpButton_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilHelp(TW_OVERVIEW_HELP, FALSE, 0);
    CvnUtilLockFinish(AddOnID);
}

/* Creates the modal main dialog once; later calls do nothing. Controls are
   created in tab order; each value-showing control sits to the right of or
   below the label that names it. */
void BuildDialog1(LgIndex_t ParentDialogID)
{
    if (Dialog1Manager != CVNGUI_BAD_ID)
        return;
    LgIndex_t D = CvnGUIDialogCreateModal(ParentDialogID, 460, 420, TW_LOADER_NAME,
                                          Dialog1Init_CB, Dialog1OkButton_CB, nullptr,
                                          Dialog1CancelButton_CB, Dialog1HelpButton_CB);
    Dialog1Manager = D;

    CvnGUIFrameAdd(D, 5, 5, 450, 150, "File Import Instructions");
    CvnGUIFrameAdd(D, 5, 160, 450, 255, "Data Preview");
    FNLabel_LBL_D1 = CvnGUILabelAdd(D, 12, 20, "FileName:");
    FileName_LBL_D1 = CvnGUILabelAdd(D, 70, 20, "                                     ");
    Browse_BTN_D1 = CvnGUIButtonAdd(D, 370, 18, 78, 13, "Browse...", Browse_BTN_D1_CB);
    Title_BTN_D1 = CvnGUIButtonAdd(D, 12, 36, 80, 13, "Title...", Title_BTN_D1_CB);
    Variables_BTN_D1 = CvnGUIButtonAdd(D, 98, 36, 80, 13, "Variables...", Variables_BTN_D1_CB);
    Data_BTN_D1 = CvnGUIButtonAdd(D, 184, 36, 80, 13, "Data...", Data_BTN_D1_CB);
    Filters_BTN_D1 =
        CvnGUIButtonAdd(D, 270, 36, 95, 13, "General Filters...", Filters_BTN_D1_CB);
    ConfigFiles_LBL_D1 = CvnGUILabelAdd(D, 12, 56, "Config Files:");
    InstrSet_SLST_D1 = CvnGUIListAdd(D, 12, 68, 300, 66, FALSE, InstrSet_SLST_D1_CB);
    New_BTN_D1 = CvnGUIButtonAdd(D, 320, 68, 70, 12, "New", New_BTN_D1_CB);
    Delete_BTN_D1 = CvnGUIButtonAdd(D, 320, 124, 70, 12, "Delete", Delete_BTN_D1_CB);
    View_RADIO_D1 = CvnGUIRadioBoxAdd(D, 12, 174, 160, 28, "View Raw Data",
                                      "View Processed Data", nullptr, nullptr, nullptr,
                                      View_RADIO_D1_CB);
    Refresh_BTN_D1 = CvnGUIButtonAdd(D, 190, 174, 80, 13, "Scan File", Refresh_BTN_D1_CB);
    Preview_T_D1 = CvnGUITextAdd(D, 12, 208, 436, 200, TRUE, nullptr);
    ShowISPath_TOG_D1 =
        CvnGUIToggleAdd(D, 12, 138, 120, 12, "Show Full Path", ShowISPath_TOG_D1_CB);
    ViewOptions_BTN_D1 =
        CvnGUIButtonAdd(D, 280, 174, 90, 13, "View Options...", ViewOptions_BTN_D1_CB);
    Save_BTN_D1 = CvnGUIButtonAdd(D, 320, 96, 70, 12, "Save...", Save_BTN_D1_CB);
    Rename_BTN_D1 = CvnGUIButtonAdd(D, 320, 110, 70, 12, "Rename...", Rename_BTN_D1_CB);
    DbgSel_LBL_D1 = CvnGUILabelAdd(D, 372, 38, "          ");
    Load_BTN_D1 = CvnGUIButtonAdd(D, 320, 82, 70, 12, "Load...", Load_BTN_D1_CB);
}

} // namespace corvane::cvnutildataio
