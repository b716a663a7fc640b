/*
 * VariablesDialog.cpp - the variable import dialog ("Variable Import
 * Instructions", dialog 4): whether the current instruction set scans the
 * data file for variable names (and on which lines, how delimited) or
 * takes names the user types, and the way to the choice of the variables
 * to load (dialog 7). The set's variable record is saved when the dialog
 * opens so that Cancel can undo everything done under it.
 */
#include "VariablesDialog.h"

#include <cstdio>
#include <initializer_list>

#include "AddOnHost.h"
#include "DialogFields.h"
#include "DialogText.h"
#include "EnteredVarNames.h"
#include "FileInfo.h"
#include "Library.h"
#include "Preview.h"
#include "Progress.h"
#include "TW_Alloc.h"
#include "TextScan.h"
#include "VariableSelectionDialog.h"

namespace corvane::cvnutildataio {

#define TW_MAX_VARS_WIDTH 6400

LgIndex_t Dialog4Manager = CVNGUI_BAD_ID;

static LgIndex_t VariableNa_RADIO_D4 = CVNGUI_BAD_ID;
static LgIndex_t StartLine_LBL_D4 = CVNGUI_BAD_ID;
static LgIndex_t StartLine_TF_D4 = CVNGUI_BAD_ID;
static LgIndex_t EndLine_LBL_D4 = CVNGUI_BAD_ID;
static LgIndex_t EndLine_TF_D4 = CVNGUI_BAD_ID;
static LgIndex_t Delimiter_LBL_D4 = CVNGUI_BAD_ID;
static LgIndex_t Delimiter_OPT_D4 = CVNGUI_BAD_ID;
static LgIndex_t Width_LBL_D4 = CVNGUI_BAD_ID;
static LgIndex_t Width_TF_D4 = CVNGUI_BAD_ID;
static LgIndex_t VarNames_LBL_D4 = CVNGUI_BAD_ID;
static LgIndex_t VarNames_T_D4 = CVNGUI_BAD_ID;
static LgIndex_t SelVars_BTN_D4 = CVNGUI_BAD_ID;

/* The set's variable record as it was when the dialog opened; NULL when
   it could not be saved. Given back by Cancel, dropped by OK. */
static TW_Variables_s *SaveVars = nullptr;

bool TW_VariableNamesEntered()
{
    return CvnGUIRadioBoxGetSelectedOption(VariableNa_RADIO_D4) == 2;
}

int32_t GetEnteredVarNames(TW_Variable_s **Names, int32_t *Count)
{
    char *Text = CvnGUITextGetString(VarNames_T_D4);
    int32_t N = TW_ParseEnteredVarNames(Text, Names, Count);
    CvnUtilStringDealloc(&Text);
    return N;
}

/* Scan mode: the line, delimiter and width controls (the width only with
   "Fixed"); enter mode: the names. The button needs a chosen data file. */
void RefreshDialog4Sensitivities()
{
    bool Scan = !TW_VariableNamesEntered();
    bool Fixed = CvnGUIOptionMenuGet(Delimiter_OPT_D4) == Delimiter_Fixed;
    bool HasFile = GlobalFileInfo != nullptr && GlobalFileInfo->FileName[0] != '\0';
    for (LgIndex_t Id : {StartLine_LBL_D4, StartLine_TF_D4, EndLine_LBL_D4, EndLine_TF_D4,
                         Delimiter_LBL_D4, Delimiter_OPT_D4})
        CvnGUISetSensitivity(Id, Scan);
    CvnGUISetSensitivity(Width_LBL_D4, Scan && Fixed);
    CvnGUISetSensitivity(Width_TF_D4, Scan && Fixed);
    CvnGUISetSensitivity(VarNames_LBL_D4, !Scan);
    CvnGUISetSensitivity(VarNames_T_D4, !Scan);
    CvnGUISetSensitivity(SelVars_BTN_D4, HasFile);
}

/* Writes the dialog into the current set: in scan mode the delimiter, end
   line, search mode, start line and width (an integer the host rejects
   keeps the old value); in enter mode the search mode and the names. */
static void StoreDialog4()
{
    TW_Variables_s *Vars = &GetCurConfigPtr()->Variables;
    if (!TW_VariableNamesEntered()) {
        Vars->Delimiter = (TW_Delimiter_e)CvnGUIOptionMenuGet(Delimiter_OPT_D4);
        TW_GetValidInteger(EndLine_TF_D4, "End Line", 1, TW_MAX_INT32, &Vars->EndLine);
        Vars->SearchMode = SearchMode_Line;
        TW_GetValidInteger(StartLine_TF_D4, "Start Line", 1, TW_MAX_INT32, &Vars->StartLine);
        TW_GetValidInteger(Width_TF_D4, "Width", 1, TW_MAX_VARS_WIDTH, &Vars->Width);
    } else {
        Vars->SearchMode = SearchMode_None;
        GetEnteredVarNames(&Vars->Names, &Vars->NumNames);
        /* An array that could not be made leaves the set without names. */
        if (Vars->Names == nullptr)
            Vars->NumNames = 0;
    }
}

/* Saves the set's variable record, fills the controls from it (entered
   names one a line) and takes the lock that OK or Cancel gives back. */
static void Dialog4Init_CB(void)
{
    const TW_Variables_s *Vars = &GetCurConfigPtr()->Variables;
    VariablesDealloc(&SaveVars);
    SaveVars = (TW_Variables_s *)TW_Calloc(1, sizeof(TW_Variables_s));
    if (SaveVars != nullptr)
        CopyVarInfo(SaveVars, Vars);
    else
        ShowDialogErrorMessage("Out of memory");

    CvnGUIRadioBoxSetSelectedOption(VariableNa_RADIO_D4,
                                    Vars->SearchMode != SearchMode_None ? 1 : 2);
    CvnGUITextFieldSetLgIndex(StartLine_TF_D4, Vars->StartLine, FALSE);
    CvnGUITextFieldSetLgIndex(EndLine_TF_D4, Vars->EndLine, FALSE);
    CvnGUIOptionMenuSet(Delimiter_OPT_D4, Vars->Delimiter);
    CvnGUITextFieldSetLgIndex(Width_TF_D4, Vars->Width, FALSE);

    CvnGUITextSetString(VarNames_T_D4, "");
    if (Vars->SearchMode == SearchMode_None && Vars->Names != nullptr) {
        for (int32_t I = 0; I < Vars->NumNames; I++) {
            char Line[TW_MAX_VARNAME_LENGTH + 2];
            snprintf(Line, sizeof(Line), "%s\n", Vars->Names[I].Name);
            TW_AppendText(VarNames_T_D4, Line);
        }
    }
    RefreshDialog4Sensitivities();
    CvnUtilLockStart(AddOnID);
}

static void Dialog4OkButton_CB(void)
{
    StoreDialog4();
    VariablesDealloc(&SaveVars);
    CvnGUIDialogDrop(Dialog4Manager);
    CvnUtilLockFinish(AddOnID);
}

/* Gives the saved record back, the set of variables to load emptied
   first so that it ends up exactly as saved (the copy only adds
   members): what dialog 7 chose is undone too. */
static void Dialog4CancelButton_CB(void)
{
    CvnGUIDialogDrop(Dialog4Manager);
    if (SaveVars != nullptr) {
        TW_Variables_s *Vars = &GetCurConfigPtr()->Variables;
        CvnUtilSetClear(Vars->LoadedVars);
        CopyVarInfo(Vars, SaveVars);
        VariablesDealloc(&SaveVars);
    }
    CvnUtilLockFinish(AddOnID);
}

static void Dialog4HelpButton_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilHelp("addon_ordalis_loader_variables.html", FALSE, 0);
    CvnUtilLockFinish(AddOnID);
}

/* Another way of finding names makes the old choice of variables
   meaningless: all variables are loaded again. */
static void VariableNa_RADIO_D4_CB(const LgIndex_t *Value)
{
    (void)Value;
    CvnUtilLockStart(AddOnID);
    CvnUtilSetClear(GetCurConfigPtr()->Variables.LoadedVars);
    RefreshDialog4Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

static void Delimiter_OPT_D4_CB(const LgIndex_t *Value)
{
    (void)Value;
    CvnUtilLockStart(AddOnID);
    RefreshDialog4Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

/* Integer fields: a bad entry is reported and the field reset to 1. */
static LgIndex_t StartLine_TF_D4_CB(const char *Text)
{
    (void)Text;
    return TW_CheckIntegerField(StartLine_TF_D4, "Start Line Number", 1, TW_MAX_INT32);
}

static LgIndex_t EndLine_TF_D4_CB(const char *Text)
{
    (void)Text;
    return TW_CheckIntegerField(EndLine_TF_D4, "End Line Number", 1, TW_MAX_INT32);
}

static LgIndex_t Width_TF_D4_CB(const char *Text)
{
    (void)Text;
    return TW_CheckIntegerField(Width_TF_D4, "Width", 1, TW_MAX_VARS_WIDTH);
}

/* The names take anything; they are parsed when stored. */
static LgIndex_t VarNames_T_D4_CB(const char *Text)
{
    (void)Text;
    CvnUtilLockStart(AddOnID);
    CvnUtilLockFinish(AddOnID);
    return TRUE;
}

/* Puts the variables the dialog now describes into the scanned data set:
   the names found on the file's variable lines (a scan without data and
   without a progress box of its own), or the entered names. False after
   "No variables found" when the scan fails. */
static bool GatherVariables(TW_ConfigInstructions_s *Current)
{
    if (!TW_VariableNamesEntered()) {
        TW_Free(GlobalFileData->VarList);
        GlobalFileData->VarList = nullptr;
        GlobalFileData->NumVars = 0;
        if (!ScanTextFile(&GlobalFileData, GlobalFileInfo->FileName, Current, false)) {
            ShowDialogErrorMessage("No variables found");
            return false;
        }
        return true;
    }
    TW_Variable_s *Names = nullptr;
    int32_t Count = 0;
    GetEnteredVarNames(&Names, &Count);
    CopyVarToVar(&GlobalFileData->VarList, Names, &GlobalFileData->NumVars,
                 Names != nullptr ? Count : 0);
    TW_Free(Names);
    return true;
}

/* Stores the dialog, gathers the variables it describes and lets the user
   choose among them in dialog 7. */
static void SelVars_BTN_D4_CB(void)
{
    CvnUtilLockStart(AddOnID);
    GlobalCancelled = FALSE;
    StoreDialog4();
    if (GlobalFileData == nullptr)
        GlobalFileData = FileDataSetAlloc();
    if (GlobalFileData != nullptr && GatherVariables(GetCurConfigPtr())) {
        if (GlobalFileData != nullptr && GlobalFileData->NumVars >= 1) {
            BuildDialog7(CVNGUI_MAIN_DIALOG_ID);
            CvnGUIDialogLaunch(Dialog7Manager);
        } else {
            ShowDialogErrorMessage("No variables found");
        }
    }
    CvnUtilLockFinish(AddOnID);
}

/* Layout, in dialog units: a frame around the radio box and every row
   below it; each label sits left of its control on the same row (14 units
   apart), the names' label just above the names; the button below the
   frame. */
void BuildDialog4(LgIndex_t ParentDialogID)
{
    if (Dialog4Manager != CVNGUI_BAD_ID)
        return;
    Dialog4Manager = CvnGUIDialogCreateModal(ParentDialogID, 360, 190,
                                             "Variable Import Instructions", Dialog4Init_CB,
                                             Dialog4OkButton_CB, nullptr, Dialog4CancelButton_CB,
                                             Dialog4HelpButton_CB);
    char Delimiters[128];
    TW_EnumLabelList(&DelimiterTable, Delimiters, sizeof(Delimiters));

    CvnGUIFrameAdd(Dialog4Manager, 5, 5, 350, 155, "Variable Import Instructions");
    VariableNa_RADIO_D4 = CvnGUIRadioBoxAdd(Dialog4Manager, 15, 15, 200, 28,
                                            "Scan for Variable Names", "Enter Variable Names",
                                            nullptr, nullptr, nullptr, VariableNa_RADIO_D4_CB);
    StartLine_LBL_D4 = CvnGUILabelAdd(Dialog4Manager, 15, 49, "Start Line:");
    StartLine_TF_D4 = CvnGUITextFieldAdd(Dialog4Manager, 110, 49, 60, 12, StartLine_TF_D4_CB);
    EndLine_LBL_D4 = CvnGUILabelAdd(Dialog4Manager, 190, 49, "End Line:");
    EndLine_TF_D4 = CvnGUITextFieldAdd(Dialog4Manager, 260, 49, 60, 12, EndLine_TF_D4_CB);
    Delimiter_LBL_D4 = CvnGUILabelAdd(Dialog4Manager, 15, 63, "Delimiter:");
    Delimiter_OPT_D4 = CvnGUIOptionMenuAdd(Dialog4Manager, 110, 63, 70, 12, Delimiters,
                                           Delimiter_OPT_D4_CB);
    Width_LBL_D4 = CvnGUILabelAdd(Dialog4Manager, 190, 63, "Width:");
    Width_TF_D4 = CvnGUITextFieldAdd(Dialog4Manager, 260, 63, 60, 12, Width_TF_D4_CB);
    VarNames_LBL_D4 = CvnGUILabelAdd(Dialog4Manager, 15, 82,
                                     "Variable Names: (separate by carriage return or comma)");
    VarNames_T_D4 = CvnGUITextAdd(Dialog4Manager, 15, 94, 330, 60, FALSE, VarNames_T_D4_CB);
    SelVars_BTN_D4 = CvnGUIButtonAdd(Dialog4Manager, 10, 168, 150, 14,
                                     "Select Variables to Load...", SelVars_BTN_D4_CB);
}

} // namespace corvane::cvnutildataio
