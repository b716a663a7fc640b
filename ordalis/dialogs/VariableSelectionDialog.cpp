/*
 * VariableSelectionDialog.cpp - the variable selection dialog ("Variables
 * to load", dialog 7), opened from dialog 4: the variables of the scanned
 * data set in two lists, skipped and loaded, and the current set's
 * variables to load rebuilt from them after every move.
 */
#include "VariableSelectionDialog.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "AddOnHost.h"
#include "Library.h"
#include "Preview.h"
#include "VariablesDialog.h"

namespace corvane::cvnutildataio {

/* Members shown in the summary before "..." stands for the rest. */
#define TW_SUMMARY_MEMBERS 10

LgIndex_t Dialog7Manager = CVNGUI_BAD_ID;

static LgIndex_t VariablesLoa_LBL_D7 = CVNGUI_BAD_ID;
static LgIndex_t VarsLoaded_LBL_D7 = CVNGUI_BAD_ID;
static LgIndex_t VarsToSkip_LBL_D7 = CVNGUI_BAD_ID;
static LgIndex_t VarsToSkip_MLST_D7 = CVNGUI_BAD_ID;
static LgIndex_t VarsToLoad_LBL_D7 = CVNGUI_BAD_ID;
static LgIndex_t VarsToLoad_MLST_D7 = CVNGUI_BAD_ID;
static LgIndex_t MoveRight_BTN_D7 = CVNGUI_BAD_ID;
static LgIndex_t MoveAllRight_BTN_D7 = CVNGUI_BAD_ID;
static LgIndex_t MoveLeft_BTN_D7 = CVNGUI_BAD_ID;
static LgIndex_t MoveAllLeft_BTN_D7 = CVNGUI_BAD_ID;

static Set_s *LoadedVarsOfCurrentSet()
{
    return GetCurConfigPtr()->Variables.LoadedVars;
}

static bool HasSelection(LgIndex_t ListID)
{
    LgIndex_t *Items = nullptr;
    LgIndex_t Count = 0;
    CvnGUIListGetSelectedItems(ListID, &Items, &Count);
    CvnUtilArrayDealloc((void **)&Items);
    return Count > 0;
}

void UpdateDialog7Sensitivities()
{
    CvnGUISetSensitivity(MoveAllRight_BTN_D7, CvnGUIListGetItemCount(VarsToSkip_MLST_D7) > 0);
    CvnGUISetSensitivity(MoveAllLeft_BTN_D7, CvnGUIListGetItemCount(VarsToLoad_MLST_D7) > 0);
    CvnGUISetSensitivity(MoveRight_BTN_D7, HasSelection(VarsToSkip_MLST_D7));
    CvnGUISetSensitivity(MoveLeft_BTN_D7, HasSelection(VarsToLoad_MLST_D7));
}

void PrintVarsLoaded(const Set_s *Set)
{
    char Summary[TW_SUMMARY_MEMBERS * 21 + 8] = "";
    if (CvnUtilSetIsEmpty(Set)) {
        strcpy(Summary, "All");
    } else {
        int Written = 0;
        LgIndex_t Member = CvnUtilSetGetNextMember(Set, CVN_NO_MEMBER);
        while (Member != CVN_NO_MEMBER && Written < TW_SUMMARY_MEMBERS) {
            size_t Used = strlen(Summary);
            snprintf(Summary + Used, sizeof(Summary) - Used, Written > 0 ? ",%d" : "%d",
                     (int)Member);
            Written++;
            Member = CvnUtilSetGetNextMember(Set, Member);
        }
        /* Ten members written: the dots follow, after a comma when more
           members exist, straight after the tenth when not. */
        if (Written == TW_SUMMARY_MEMBERS)
            strcat(Summary, Member != CVN_NO_MEMBER ? ",..." : "...");
    }
    CvnGUILabelSetText(VarsLoaded_LBL_D7, Summary);
}

void GetLoadedVarsSet(Set_s *Set)
{
    CvnUtilSetClear(Set);
    LgIndex_t ToLoad = CvnGUIListGetItemCount(VarsToLoad_MLST_D7);
    if (ToLoad < 1 || CvnGUIListGetItemCount(VarsToSkip_MLST_D7) < 1)
        return;
    const TW_Variables_s *Vars = &GetCurConfigPtr()->Variables;
    const TW_Variable_s *Names = Vars->Names;
    int32_t NumNames = Vars->NumNames;
    if (!TW_VariableNamesEntered()) {
        Names = GlobalFileData != nullptr ? GlobalFileData->VarList : nullptr;
        NumNames = GlobalFileData != nullptr ? GlobalFileData->NumVars : 0;
    }
    for (LgIndex_t Item = 1; Item <= ToLoad; Item++) {
        char *Name = CvnGUIListGetString(VarsToLoad_MLST_D7, Item);
        int32_t Position = TW_GetVariablePosition(Name, Names, NumNames);
        if (Position >= 1)
            CvnUtilSetAddMember(Set, Position, TRUE);
        CvnUtilStringDealloc(&Name);
    }
}

void MoveVarItems(LgIndex_t SourceListID, LgIndex_t DestListID)
{
    LgIndex_t *Items = nullptr;
    LgIndex_t Count = 0;
    CvnGUIListGetSelectedItems(SourceListID, &Items, &Count);
    for (LgIndex_t I = 0; I < Count; I++) {
        char *Name = CvnGUIListGetString(SourceListID, Items[I]);
        CvnGUIListAppendItem(DestListID, Name);
        CvnUtilStringDealloc(&Name);
    }
    /* Highest first, so that the positions still to delete stay valid. */
    if (Items != nullptr)
        std::sort(Items, Items + Count, [](LgIndex_t A, LgIndex_t B) { return A > B; });
    for (LgIndex_t I = 0; I < Count; I++)
        CvnGUIListDeleteItemAtPos(SourceListID, Items[I]);
    CvnUtilArrayDealloc((void **)&Items);
}

/* Every item of the source, in order, to the end of the destination. */
static void MoveAllVarItems(LgIndex_t SourceListID, LgIndex_t DestListID)
{
    LgIndex_t Count = CvnGUIListGetItemCount(SourceListID);
    for (LgIndex_t Item = 1; Item <= Count; Item++) {
        char *Name = CvnGUIListGetString(SourceListID, Item);
        CvnGUIListAppendItem(DestListID, Name);
        CvnUtilStringDealloc(&Name);
    }
    CvnGUIListDeleteAllItems(SourceListID);
}

/* After a move: the set, its summary and the buttons follow the lists. */
static void AfterMove()
{
    Set_s *Set = LoadedVarsOfCurrentSet();
    GetLoadedVarsSet(Set);
    PrintVarsLoaded(Set);
    UpdateDialog7Sensitivities();
}

/* Shows the set's summary and offers every variable of the scanned data
   set for loading (nothing skipped, whatever the set says); takes the
   lock that OK or Cancel gives back. */
static void Dialog7Init_CB(void)
{
    PrintVarsLoaded(LoadedVarsOfCurrentSet());
    CvnGUIListDeleteAllItems(VarsToSkip_MLST_D7);
    CvnGUIListDeleteAllItems(VarsToLoad_MLST_D7);
    for (int32_t Var = 0; GlobalFileData != nullptr && Var < GlobalFileData->NumVars; Var++)
        CvnGUIListAppendItem(VarsToLoad_MLST_D7, GlobalFileData->VarList[Var].Name);
    UpdateDialog7Sensitivities();
    CvnUtilLockStart(AddOnID);
}

/* Keeps the dialog open (and the lock taken) while nothing is loaded. */
static void Dialog7OkButton_CB(void)
{
    GetLoadedVarsSet(LoadedVarsOfCurrentSet());
    if (CvnGUIListGetItemCount(VarsToLoad_MLST_D7) < 1) {
        ShowDialogErrorMessage("Must load at least one variable");
        return;
    }
    CvnGUIDialogDrop(Dialog7Manager);
    CvnUtilLockFinish(AddOnID);
}

/* All variables are loaded again. */
static void Dialog7CancelButton_CB(void)
{
    CvnUtilSetClear(LoadedVarsOfCurrentSet());
    CvnGUIDialogDrop(Dialog7Manager);
    CvnUtilLockFinish(AddOnID);
}

static void Dialog7HelpButton_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilHelp("addon_ordalis_loader_variables.html", FALSE, 0);
    CvnUtilLockFinish(AddOnID);
}

static void VarsList_MLST_D7_CB(const LgIndex_t *Value)
{
    (void)Value;
    CvnUtilLockStart(AddOnID);
    UpdateDialog7Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

static void MoveRight_BTN_D7_CB(void)
{
    CvnUtilLockStart(AddOnID);
    MoveVarItems(VarsToSkip_MLST_D7, VarsToLoad_MLST_D7);
    AfterMove();
    CvnUtilLockFinish(AddOnID);
}

static void MoveAllRight_BTN_D7_CB(void)
{
    CvnUtilLockStart(AddOnID);
    MoveAllVarItems(VarsToSkip_MLST_D7, VarsToLoad_MLST_D7);
    AfterMove();
    CvnUtilLockFinish(AddOnID);
}

static void MoveLeft_BTN_D7_CB(void)
{
    CvnUtilLockStart(AddOnID);
    MoveVarItems(VarsToLoad_MLST_D7, VarsToSkip_MLST_D7);
    AfterMove();
    CvnUtilLockFinish(AddOnID);
}

static void MoveAllLeft_BTN_D7_CB(void)
{
    CvnUtilLockStart(AddOnID);
    MoveAllVarItems(VarsToLoad_MLST_D7, VarsToSkip_MLST_D7);
    AfterMove();
    CvnUtilLockFinish(AddOnID);
}

/* Layout, in dialog units: the summary row on top, the two lists side by
   side under their labels, the move buttons in the column between. */
void BuildDialog7(LgIndex_t ParentDialogID)
{
    if (Dialog7Manager != CVNGUI_BAD_ID)
        return;
    Dialog7Manager = CvnGUIDialogCreateModal(ParentDialogID, 370, 175, "Variables to load",
                                             Dialog7Init_CB, Dialog7OkButton_CB, nullptr,
                                             Dialog7CancelButton_CB, Dialog7HelpButton_CB);
    VariablesLoa_LBL_D7 = CvnGUILabelAdd(Dialog7Manager, 10, 10, "Variables Loaded:");
    VarsLoaded_LBL_D7 = CvnGUILabelAdd(Dialog7Manager, 100, 10,
                                       "                                                  ");
    VarsToSkip_LBL_D7 = CvnGUILabelAdd(Dialog7Manager, 10, 30, "Variables to skip:");
    VarsToLoad_LBL_D7 = CvnGUILabelAdd(Dialog7Manager, 220, 30, "Variables to load:");
    VarsToSkip_MLST_D7 = CvnGUIListAdd(Dialog7Manager, 10, 42, 140, 120, TRUE,
                                       VarsList_MLST_D7_CB);
    VarsToLoad_MLST_D7 = CvnGUIListAdd(Dialog7Manager, 220, 42, 140, 120, TRUE,
                                       VarsList_MLST_D7_CB);
    MoveRight_BTN_D7 = CvnGUIButtonAdd(Dialog7Manager, 158, 60, 56, 14, "Move >>",
                                       MoveRight_BTN_D7_CB);
    MoveAllRight_BTN_D7 = CvnGUIButtonAdd(Dialog7Manager, 158, 80, 56, 14, "Move All >>",
                                          MoveAllRight_BTN_D7_CB);
    MoveLeft_BTN_D7 = CvnGUIButtonAdd(Dialog7Manager, 158, 110, 56, 14, "<< Move",
                                      MoveLeft_BTN_D7_CB);
    MoveAllLeft_BTN_D7 = CvnGUIButtonAdd(Dialog7Manager, 158, 130, 56, 14, "<< Move All",
                                         MoveAllLeft_BTN_D7_CB);
}

} // namespace corvane::cvnutildataio
