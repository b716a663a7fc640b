/*
 * FiltersDialog.cpp - the general filters dialog ("General Filters", dialog
 * 6). A bad number list switches its filter off in the current set at
 * once, so the dialog keeps a copy of the filters for Cancel to restore.
 */
#include "FiltersDialog.h"

#include <cfloat>
#include <cstdio>
#include <cstring>

#include "AddOnHost.h"
#include "DialogFields.h"
#include "Library.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

LgIndex_t Dialog6Manager = CVNGUI_BAD_ID;

static LgIndex_t Comment_TOG_D6 = CVNGUI_BAD_ID;
static LgIndex_t Comment_TF_D6 = CVNGUI_BAD_ID;
static LgIndex_t Keyword_TOG_D6 = CVNGUI_BAD_ID;
static LgIndex_t Keyword_TF_D6 = CVNGUI_BAD_ID;
static LgIndex_t Columns_TOG_D6 = CVNGUI_BAD_ID;
static LgIndex_t Columns_TF_D6 = CVNGUI_BAD_ID;
static LgIndex_t Lines_TOG_D6 = CVNGUI_BAD_ID;
static LgIndex_t Lines_TF_D6 = CVNGUI_BAD_ID;
static LgIndex_t Blank_TOG_D6 = CVNGUI_BAD_ID;
static LgIndex_t Blanked_TF_D6 = CVNGUI_BAD_ID;

/* The filters as they were when the dialog came up. */
static TW_GlobalFilters_s SaveGlobalFilters;

bool TextFieldGetNumList(LgIndex_t TextFieldID, TW_NumList_s *List)
{
    List->NumRanges = 0;
    char *Text = CvnGUITextFieldGetString(TextFieldID);
    const char *Cursor = Text != nullptr ? Text : "";
    char *Message = nullptr;
    bool IsOk = ReadNumList(&Cursor, List, false, &Message);
    if (!IsOk && Message != nullptr)
        CvnUtilDialogErrMsg(Message);
    CvnUtilStringDealloc(&Message);
    CvnUtilStringDealloc(&Text);
    return IsOk;
}

void TextFieldSetNumList(LgIndex_t TextFieldID, const TW_NumList_s *List)
{
    CvnGUITextFieldSetString(TextFieldID, Export_GetNumList(List));
}

/* Blank cells exist only where values are cut at a semicolon or comma. */
static bool DelimiterHasBlankCells(TW_Delimiter_e Delimiter)
{
    return Delimiter == Delimiter_Semicolon || Delimiter == Delimiter_Comma;
}

void RefreshDialog6Sensitivities()
{
    bool BlankCells = DelimiterHasBlankCells(GetCurConfigPtr()->DataDelimiter);
    CvnGUISetSensitivity(Comment_TF_D6, CvnGUIToggleGet(Comment_TOG_D6));
    CvnGUISetSensitivity(Keyword_TF_D6, CvnGUIToggleGet(Keyword_TOG_D6));
    CvnGUISetSensitivity(Columns_TF_D6, CvnGUIToggleGet(Columns_TOG_D6));
    CvnGUISetSensitivity(Lines_TF_D6, CvnGUIToggleGet(Lines_TOG_D6));
    CvnGUISetSensitivity(Blank_TOG_D6, BlankCells ? TRUE : FALSE);
    CvnGUISetSensitivity(Blanked_TF_D6, BlankCells && CvnGUIToggleGet(Blank_TOG_D6) ? TRUE : FALSE);
}

/* A toggle only changes what can be edited. */
static void RefreshUnderLock()
{
    CvnUtilLockStart(AddOnID);
    RefreshDialog6Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

static void Comment_TOG_D6_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void Keyword_TOG_D6_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void Columns_TOG_D6_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void Lines_TOG_D6_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void Blank_TOG_D6_CB(const LgIndex_t *) { RefreshUnderLock(); }

/* Checks a number list as it is typed. A text that is no list is reported
   with Message; the field is emptied and its filter switched off, in the
   dialog and in the current set (*UseFlag) at once. */
static LgIndex_t CheckNumListField(const char *Text, LgIndex_t Field, LgIndex_t Toggle,
                                   bool *UseFlag, const char *Message)
{
    CvnUtilLockStart(AddOnID);
    const char *Typed = Text != nullptr ? Text : "";
    char *Copy = CvnUtilStringAlloc((LgIndex_t)strlen(Typed), "Number list");
    if (Copy == nullptr) {
        ShowDialogErrorMessage("Out of memory");
        CvnUtilLockFinish(AddOnID);
        return FALSE;
    }
    strcpy(Copy, Typed);
    const char *Cursor = Copy;
    TW_NumList_s List;
    bool IsOk = ReadNumList(&Cursor, &List, false, nullptr);
    CvnUtilStringDealloc(&Copy);
    if (!IsOk) {
        CvnUtilDialogErrMsg(Message);
        CvnGUITextFieldSetString(Field, "");
        CvnGUIToggleSet(Toggle, FALSE);
        *UseFlag = false;
    }
    RefreshDialog6Sensitivities();
    CvnUtilLockFinish(AddOnID);
    return IsOk ? TRUE : FALSE;
}

static LgIndex_t Lines_TF_D6_CB(const char *Text)
{
    return CheckNumListField(Text, Lines_TF_D6, Lines_TOG_D6,
                             &GetCurConfigPtr()->GlobalFilters.UseRows,
                             "Invalid entry for Ignore Specific Lines");
}

static LgIndex_t Columns_TF_D6_CB(const char *Text)
{
    return CheckNumListField(Text, Columns_TF_D6, Columns_TOG_D6,
                             &GetCurConfigPtr()->GlobalFilters.UseColumns,
                             "Invalid entry for Ignore Specific Columns");
}

/* Shows a number list while its filter is on, else an empty field. */
static void ShowNumList(LgIndex_t Field, bool IsOn, const TW_NumList_s *List)
{
    if (IsOn)
        TextFieldSetNumList(Field, List);
    else
        CvnGUITextFieldSetString(Field, "");
}

/* Shows the current set's filters and keeps a copy of them for Cancel. */
static void Dialog6Init_CB(void)
{
    CvnUtilLockStart(AddOnID);
    const TW_GlobalFilters_s *Filters = &GetCurConfigPtr()->GlobalFilters;
    SaveGlobalFilters = *Filters;

    char Value[400];
    snprintf(Value, sizeof(Value), "%f", Filters->BlankCellValue);
    CvnGUIToggleSet(Blank_TOG_D6, Filters->UseBlankCellValue ? TRUE : FALSE);
    CvnGUITextFieldSetString(Blanked_TF_D6, Value);

    CvnGUIToggleSet(Comment_TOG_D6, Filters->UseComment ? TRUE : FALSE);
    CvnGUIToggleSet(Keyword_TOG_D6, Filters->UseKeyword ? TRUE : FALSE);
    CvnGUIToggleSet(Columns_TOG_D6, Filters->UseColumns ? TRUE : FALSE);
    CvnGUIToggleSet(Lines_TOG_D6, Filters->UseRows ? TRUE : FALSE);
    CvnGUITextFieldSetString(Comment_TF_D6, Filters->Comment);
    CvnGUITextFieldSetString(Keyword_TF_D6, Filters->Keyword);
    ShowNumList(Columns_TF_D6, Filters->UseColumns, &Filters->Columns);
    ShowNumList(Lines_TF_D6, Filters->UseRows, &Filters->Rows);

    RefreshDialog6Sensitivities();
}

/* Reads a string filter: on, its field's text is stored in Dest (257
   characters with the NUL) and must not be empty, else Message is shown
   and the result is false. */
static bool GetStringFilter(LgIndex_t Toggle, LgIndex_t Field, bool *UseFlag, char *Dest,
                            const char *Message)
{
    *UseFlag = CvnGUIToggleGet(Toggle) != FALSE;
    if (!*UseFlag)
        return true;
    TW_GetFieldText(Field, Dest, 257);
    if (Dest[0] != '\0')
        return true;
    CvnUtilDialogErrMsg(Message);
    return false;
}

/* Writes the dialog into the current set's filters. The dialog stays open
   when a message was shown; what was written stays written. */
static void Dialog6OkButton_CB(void)
{
    TW_ConfigInstructions_s *Set = GetCurConfigPtr();
    TW_GlobalFilters_s *Filters = &Set->GlobalFilters;
    bool IsOk = true;

    if (DelimiterHasBlankCells(Set->DataDelimiter) && CvnGUIToggleGet(Blank_TOG_D6)) {
        Filters->UseBlankCellValue = true;
        if (CvnGUITextFieldValidateDouble(Blanked_TF_D6, "Blanked Cell Value", -DBL_MAX, DBL_MAX,
                                          FALSE))
            CvnGUITextFieldGetDouble(Blanked_TF_D6, &Filters->BlankCellValue);
        else
            IsOk = false;
    } else {
        Filters->UseBlankCellValue = false;
        Filters->BlankCellValue = 0.0;
    }

    if (!GetStringFilter(Comment_TOG_D6, Comment_TF_D6, &Filters->UseComment, Filters->Comment,
                         "Please enter a string for 'Ignore all lines starting with'"))
        IsOk = false;
    if (!Filters->UseComment)
        Filters->Comment[0] = '\0';
    /* A keyword filter switched off keeps its text. */
    if (!GetStringFilter(Keyword_TOG_D6, Keyword_TF_D6, &Filters->UseKeyword, Filters->Keyword,
                         "Please enter a string for 'Ignore all lines containing'"))
        IsOk = false;

    /* A list that does not read switches its filter off; its field's
       callback has normally caught it already. */
    bool ColumnsOn = CvnGUIToggleGet(Columns_TOG_D6) != FALSE;
    Filters->UseColumns = ColumnsOn && TextFieldGetNumList(Columns_TF_D6, &Filters->Columns);
    bool LinesOn = CvnGUIToggleGet(Lines_TOG_D6) != FALSE;
    Filters->UseRows = LinesOn && TextFieldGetNumList(Lines_TF_D6, &Filters->Rows);
    if (ColumnsOn != Filters->UseColumns || LinesOn != Filters->UseRows)
        IsOk = false;

    if (!IsOk)
        return;
    CvnGUIDialogDrop(Dialog6Manager);
    CvnUtilLockFinish(AddOnID);
}

/* Puts back the filters the dialog came up with. */
static void Dialog6CancelButton_CB(void)
{
    CvnGUIDialogDrop(Dialog6Manager);
    GetCurConfigPtr()->GlobalFilters = SaveGlobalFilters;
    CvnUtilLockFinish(AddOnID);
}

static void Dialog6HelpButton_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilHelp("addon_ordalis_loader_filters.html", FALSE, 0);
    CvnUtilLockFinish(AddOnID);
}

/* Adds a filter's toggle and, on the same row to its right, its field. */
static LgIndex_t AddFilterRow(LgIndex_t Dialog, LgIndex_t Y, const char *Label, LgIndex_t *Toggle,
                              CvnGUIIntCallback_pf ToggleCallback,
                              CvnGUITextCallback_pf FieldCallback)
{
    *Toggle = CvnGUIToggleAdd(Dialog, 10, Y, 150, 12, Label, ToggleCallback);
    return CvnGUITextFieldAdd(Dialog, 170, Y, 160, 12, FieldCallback);
}

void BuildDialog6(LgIndex_t ParentDialogID)
{
    if (Dialog6Manager != CVNGUI_BAD_ID)
        return;
    LgIndex_t D = CvnGUIDialogCreateModal(ParentDialogID, 340, 104, "General Filters",
                                          Dialog6Init_CB, Dialog6OkButton_CB, nullptr,
                                          Dialog6CancelButton_CB, Dialog6HelpButton_CB);
    Dialog6Manager = D;

    CvnGUILabelAdd(D, 10, 8, "These filters apply to all lines in the input file");
    Comment_TF_D6 = AddFilterRow(D, 28, "Ignore All Lines Starting With", &Comment_TOG_D6,
                                 Comment_TOG_D6_CB, nullptr);
    Keyword_TF_D6 = AddFilterRow(D, 42, "Ignore All Lines Containing", &Keyword_TOG_D6,
                                 Keyword_TOG_D6_CB, nullptr);
    Columns_TF_D6 = AddFilterRow(D, 56, "Ignore Char Column Position(s)", &Columns_TOG_D6,
                                 Columns_TOG_D6_CB, Columns_TF_D6_CB);
    Lines_TF_D6 = AddFilterRow(D, 70, "Ignore  Specific Lines", &Lines_TOG_D6, Lines_TOG_D6_CB,
                               Lines_TF_D6_CB);
    Blanked_TF_D6 = AddFilterRow(D, 84, "Specify Value for Blanked Cell", &Blank_TOG_D6,
                                 Blank_TOG_D6_CB, nullptr);
}

} // namespace corvane::cvnutildataio
