/*
 * TitleDialog.cpp - the title dialog ("Dataset Title", dialog 3): where the
 * current instruction set finds the data set's title. The dialog edits its
 * controls only; OK writes them into the set, Cancel writes nothing.
 */
#include "TitleDialog.h"

#include "AddOnHost.h"
#include "DialogFields.h"
#include "Instructions.h"
#include "Library.h"

namespace corvane::cvnutildataio {

#define TW_MAX_TITLE_WIDTH 6400

LgIndex_t Dialog3Manager = CVNGUI_BAD_ID;

static LgIndex_t Title_RADIO_D3 = CVNGUI_BAD_ID;
static LgIndex_t Title_LBL_D3 = CVNGUI_BAD_ID;
static LgIndex_t Title_TF_D3 = CVNGUI_BAD_ID;
static LgIndex_t LineNumber_LBL_D3 = CVNGUI_BAD_ID;
static LgIndex_t LineNumber_TF_D3 = CVNGUI_BAD_ID;
static LgIndex_t Keyword_LBL_D3 = CVNGUI_BAD_ID;
static LgIndex_t Keyword_TF_D3 = CVNGUI_BAD_ID;
static LgIndex_t TitleTextDel_LBL_D3 = CVNGUI_BAD_ID;
static LgIndex_t Delimiter_OPT_D3 = CVNGUI_BAD_ID;
static LgIndex_t Width_LBL_D3 = CVNGUI_BAD_ID;
static LgIndex_t Width_TF_D3 = CVNGUI_BAD_ID;

/* Radio items 1, 2, 3 stand for the search modes None, Line, Keyword. */
static LgIndex_t RadioItemOfSearchMode(TW_SearchMode_e Mode)
{
    switch (Mode) {
    case SearchMode_Line:
        return 2;
    case SearchMode_Keyword:
        return 3;
    default:
        return 1;
    }
}

static TW_SearchMode_e SearchModeOfRadioItem(LgIndex_t Item)
{
    switch (Item) {
    case 2:
        return SearchMode_Line;
    case 3:
        return SearchMode_Keyword;
    default:
        return SearchMode_None;
    }
}

/* Each field (with its label) is sensitive for its radio item; the
   delimiter for any item but "Use Title"; the width follows the delimiter
   alone ("Fixed"), whatever the radio box says. */
void RefreshDialog3Sensitivities()
{
    LgIndex_t Item = CvnGUIRadioBoxGetSelectedOption(Title_RADIO_D3);
    Boolean_t Fixed = CvnGUIOptionMenuGet(Delimiter_OPT_D3) == Delimiter_Fixed;
    CvnGUISetSensitivity(Title_LBL_D3, Item == 1);
    CvnGUISetSensitivity(Title_TF_D3, Item == 1);
    CvnGUISetSensitivity(LineNumber_LBL_D3, Item == 2);
    CvnGUISetSensitivity(LineNumber_TF_D3, Item == 2);
    CvnGUISetSensitivity(Keyword_LBL_D3, Item == 3);
    CvnGUISetSensitivity(Keyword_TF_D3, Item == 3);
    CvnGUISetSensitivity(TitleTextDel_LBL_D3, Item != 1);
    CvnGUISetSensitivity(Delimiter_OPT_D3, Item != 1);
    CvnGUISetSensitivity(Width_LBL_D3, Fixed);
    CvnGUISetSensitivity(Width_TF_D3, Fixed);
}

/* Fills the controls from the current set, applies the sensitivities and
   takes the lock that OK or Cancel gives back. */
static void Dialog3Init_CB(void)
{
    const TW_ConfigInstructions_s *Current = GetCurConfigPtr();
    CvnGUIRadioBoxSetSelectedOption(Title_RADIO_D3,
                                    RadioItemOfSearchMode(Current->TitleSearchMode));
    CvnGUITextFieldSetString(Title_TF_D3, Current->TitleName);
    CvnGUITextFieldSetLgIndex(LineNumber_TF_D3, Current->TitleLine, FALSE);
    CvnGUITextFieldSetString(Keyword_TF_D3, Current->TitleKeyword);
    CvnGUIOptionMenuSet(Delimiter_OPT_D3, Current->TitleDelimiter);
    CvnGUITextFieldSetLgIndex(Width_TF_D3, Current->TitleWidth, FALSE);
    RefreshDialog3Sensitivities();
    CvnUtilLockStart(AddOnID);
}

/* Stores the controls in the current set; an integer the host rejects
   (with its message) leaves the old value. The dialog closes either way. */
static void Dialog3OkButton_CB(void)
{
    TW_ConfigInstructions_s *Current = GetCurConfigPtr();
    Current->TitleSearchMode =
        SearchModeOfRadioItem(CvnGUIRadioBoxGetSelectedOption(Title_RADIO_D3));
    TW_GetFieldText(Title_TF_D3, Current->TitleName, 1024);
    TW_GetValidInteger(LineNumber_TF_D3, "Line Number", 1, TW_MAX_INT32, &Current->TitleLine);
    TW_GetFieldText(Keyword_TF_D3, Current->TitleKeyword, 257);
    Current->TitleDelimiter = (TW_Delimiter_e)CvnGUIOptionMenuGet(Delimiter_OPT_D3);
    TW_GetValidInteger(Width_TF_D3, "Width", 1, TW_MAX_TITLE_WIDTH, &Current->TitleWidth);
    CvnGUIDialogDrop(Dialog3Manager);
    CvnUtilLockFinish(AddOnID);
}

/* Closes the dialog; the set was never written. */
static void Dialog3CancelButton_CB(void)
{
    CvnGUIDialogDrop(Dialog3Manager);
    CvnUtilLockFinish(AddOnID);
}

static void Dialog3HelpButton_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilHelp("addon_ordalis_loader_titles.html", FALSE, 0);
    CvnUtilLockFinish(AddOnID);
}

/* The radio box and the delimiter change what may be edited. */
static void Title_RADIO_D3_CB(const LgIndex_t *Value)
{
    (void)Value;
    CvnUtilLockStart(AddOnID);
    RefreshDialog3Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

static void Delimiter_OPT_D3_CB(const LgIndex_t *Value)
{
    (void)Value;
    CvnUtilLockStart(AddOnID);
    RefreshDialog3Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

/* Text fields take anything; OK reads them. */
static LgIndex_t Title_TF_D3_CB(const char *Text)
{
    (void)Text;
    CvnUtilLockStart(AddOnID);
    CvnUtilLockFinish(AddOnID);
    return TRUE;
}

static LgIndex_t Keyword_TF_D3_CB(const char *Text)
{
    (void)Text;
    CvnUtilLockStart(AddOnID);
    CvnUtilLockFinish(AddOnID);
    return TRUE;
}

/* Integer fields: a bad entry is reported and the field reset to 1. */
static LgIndex_t LineNumber_TF_D3_CB(const char *Text)
{
    (void)Text;
    return TW_CheckIntegerField(LineNumber_TF_D3, "Line Number", 1, TW_MAX_INT32);
}

static LgIndex_t Width_TF_D3_CB(const char *Text)
{
    (void)Text;
    return TW_CheckIntegerField(Width_TF_D3, "Width", 1, TW_MAX_TITLE_WIDTH);
}

/* Layout, in dialog units: the radio box on top, then one row of label
   (x 10) and control (x 130) every 14 units, so that each label captions
   the control beside it. */
void BuildDialog3(LgIndex_t ParentDialogID)
{
    if (Dialog3Manager != CVNGUI_BAD_ID)
        return;
    Dialog3Manager = CvnGUIDialogCreateModal(ParentDialogID, 360, 140, "Dataset Title",
                                             Dialog3Init_CB, Dialog3OkButton_CB, nullptr,
                                             Dialog3CancelButton_CB, Dialog3HelpButton_CB);
    char Delimiters[128];
    TW_EnumLabelList(&DelimiterTable, Delimiters, sizeof(Delimiters));

    Title_RADIO_D3 = CvnGUIRadioBoxAdd(Dialog3Manager, 10, 10, 220, 42, "Use Title",
                                       "Use Line Number:", "Use First Line Containing Keyword:",
                                       nullptr, nullptr, Title_RADIO_D3_CB);
    Title_LBL_D3 = CvnGUILabelAdd(Dialog3Manager, 10, 60, "Title:");
    Title_TF_D3 = CvnGUITextFieldAdd(Dialog3Manager, 130, 60, 220, 12, Title_TF_D3_CB);
    LineNumber_LBL_D3 = CvnGUILabelAdd(Dialog3Manager, 10, 74, "Line Number:");
    LineNumber_TF_D3 = CvnGUITextFieldAdd(Dialog3Manager, 130, 74, 80, 12, LineNumber_TF_D3_CB);
    Keyword_LBL_D3 = CvnGUILabelAdd(Dialog3Manager, 10, 88, "Keyword:");
    Keyword_TF_D3 = CvnGUITextFieldAdd(Dialog3Manager, 130, 88, 220, 12, Keyword_TF_D3_CB);
    TitleTextDel_LBL_D3 = CvnGUILabelAdd(Dialog3Manager, 10, 102, "Title Text Delimeter:");
    Delimiter_OPT_D3 = CvnGUIOptionMenuAdd(Dialog3Manager, 130, 102, 100, 12, Delimiters,
                                           Delimiter_OPT_D3_CB);
    Width_LBL_D3 = CvnGUILabelAdd(Dialog3Manager, 10, 116, "Width:");
    Width_TF_D3 = CvnGUITextFieldAdd(Dialog3Manager, 130, 116, 80, 12, Width_TF_D3_CB);
}

} // namespace corvane::cvnutildataio
