/*
 * DataImportDialog.cpp - the data import dialog ("Data Import Instructions",
 * dialog 5). It writes into the current instruction set only on OK, so
 * Cancel has nothing to undo.
 */
#include "DataImportDialog.h"

#include "AddOnHost.h"
#include "DialogFields.h"
#include "Library.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

#define TW_MAX_DATA_WIDTH 6400

LgIndex_t Dialog5Manager = CVNGUI_BAD_ID;

static LgIndex_t StartID_RADIO_D5 = CVNGUI_BAD_ID;
static LgIndex_t StartKeyword_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t StartKeyword_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t StartLine_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t StartLine_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t EndID_RADIO_D5 = CVNGUI_BAD_ID;
static LgIndex_t EndKeyword_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t EndKeyword_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t EndLine_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t EndLine_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t DataID_RADIO_D5 = CVNGUI_BAD_ID;
static LgIndex_t ValueDel_OPT_D5 = CVNGUI_BAD_ID;
static LgIndex_t Width_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t Width_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t Format_RADIO_D5 = CVNGUI_BAD_ID;
static LgIndex_t IMax_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t IMax_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t JMax_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t JMax_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t KMax_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t KMax_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t AllowMultipl_TOG_D5 = CVNGUI_BAD_ID;
static LgIndex_t ZoneKeyword_LBL_D5 = CVNGUI_BAD_ID;
static LgIndex_t ZoneKeyword_TF_D5 = CVNGUI_BAD_ID;
static LgIndex_t Ignore_TOG_D5 = CVNGUI_BAD_ID;

/* The markers of the start and end radio items, item 1 first. */
static const TW_FileMarker_e StartMarkers[] = {FileMarker_FirstNumericLine, FileMarker_Keyword,
                                               FileMarker_Line};
static const TW_FileMarker_e EndMarkers[] = {FileMarker_FirstNonNumericLine, FileMarker_Line,
                                             FileMarker_Keyword, FileMarker_EOF};

/* The radio items of the data format and the dimension. */
#define TW_ITEM_POINT 1
#define TW_ITEM_BLOCK 2
#define TW_ITEM_AUTO_DIMENSION 1
#define TW_ITEM_GIVEN_DIMENSION 2

/* The 1-based item of Marker among Count markers; item 1 for a marker the
   radio box does not offer. */
static LgIndex_t MarkerItem(const TW_FileMarker_e *Markers, int Count, TW_FileMarker_e Marker)
{
    for (int Item = 0; Item < Count; Item++)
        if (Markers[Item] == Marker)
            return Item + 1;
    return 1;
}

/* Makes a label and its field sensitive together. */
static void SetRowSensitivity(LgIndex_t Label, LgIndex_t Field, bool IsSensitive)
{
    CvnGUISetSensitivity(Label, IsSensitive ? TRUE : FALSE);
    CvnGUISetSensitivity(Field, IsSensitive ? TRUE : FALSE);
}

void RefreshDialog5Sensitivities()
{
    LgIndex_t Start = CvnGUIRadioBoxGetSelectedOption(StartID_RADIO_D5);
    LgIndex_t End = CvnGUIRadioBoxGetSelectedOption(EndID_RADIO_D5);
    bool Given = CvnGUIRadioBoxGetSelectedOption(Format_RADIO_D5) == TW_ITEM_GIVEN_DIMENSION;
    bool Point = CvnGUIRadioBoxGetSelectedOption(DataID_RADIO_D5) == TW_ITEM_POINT;

    SetRowSensitivity(StartKeyword_LBL_D5, StartKeyword_TF_D5, Start == 2);
    SetRowSensitivity(StartLine_LBL_D5, StartLine_TF_D5, Start == 3);
    SetRowSensitivity(EndKeyword_LBL_D5, EndKeyword_TF_D5, End == 3);
    SetRowSensitivity(EndLine_LBL_D5, EndLine_TF_D5, End == 2);
    SetRowSensitivity(IMax_LBL_D5, IMax_TF_D5, Given);
    SetRowSensitivity(JMax_LBL_D5, JMax_TF_D5, Given);
    SetRowSensitivity(KMax_LBL_D5, KMax_TF_D5, Given);
    SetRowSensitivity(ZoneKeyword_LBL_D5, ZoneKeyword_TF_D5,
                      Point && !Given && CvnGUIToggleGet(AllowMultipl_TOG_D5));
    SetRowSensitivity(Width_LBL_D5, Width_TF_D5,
                      CvnGUIOptionMenuGet(ValueDel_OPT_D5) == Delimiter_Fixed);
}

/* A choice that only changes what can be edited. */
static void RefreshUnderLock()
{
    CvnUtilLockStart(AddOnID);
    RefreshDialog5Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

static void StartID_RADIO_D5_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void EndID_RADIO_D5_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void ValueDel_OPT_D5_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void AllowMultipl_TOG_D5_CB(const LgIndex_t *) { RefreshUnderLock(); }
static void Ignore_TOG_D5_CB(const LgIndex_t *) { RefreshUnderLock(); }

/* Block data cannot size itself: choosing it switches the dimension to
   given sizes, with a warning, when it was automatic. */
static void DataID_RADIO_D5_CB(const LgIndex_t *Value)
{
    CvnUtilLockStart(AddOnID);
    if (*Value == TW_ITEM_BLOCK &&
        CvnGUIRadioBoxGetSelectedOption(Format_RADIO_D5) == TW_ITEM_AUTO_DIMENSION) {
        CvnUtilDialogMessageBox("If the data format is BLOCK, then you must also specify the "
                                "dimensions.",
                                MessageBox_Warning);
        CvnGUIRadioBoxSetSelectedOption(Format_RADIO_D5, TW_ITEM_GIVEN_DIMENSION);
    }
    RefreshDialog5Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

/* Automatic sizes need point data: choosing them switches block data to
   point, with a warning. */
static void Format_RADIO_D5_CB(const LgIndex_t *Value)
{
    CvnUtilLockStart(AddOnID);
    if (*Value == TW_ITEM_AUTO_DIMENSION &&
        CvnGUIRadioBoxGetSelectedOption(DataID_RADIO_D5) == TW_ITEM_BLOCK) {
        CvnUtilDialogMessageBox("In order to auto-calucate IMAX, the format must be POINT.",
                                MessageBox_Warning);
        CvnGUIRadioBoxSetSelectedOption(DataID_RADIO_D5, TW_ITEM_POINT);
    }
    RefreshDialog5Sensitivities();
    CvnUtilLockFinish(AddOnID);
}

/* The integer fields: a bad entry is reported under the field's name and
   reset to 1. */
static LgIndex_t CheckField(LgIndex_t Field, const char *Name, LgIndex_t Max)
{
    return TW_CheckIntegerField(Field, Name, 1, Max);
}

static LgIndex_t StartLine_TF_D5_CB(const char *)
{
    return CheckField(StartLine_TF_D5, "Start Line", TW_MAX_INT32);
}

static LgIndex_t EndLine_TF_D5_CB(const char *)
{
    return CheckField(EndLine_TF_D5, "End Line", TW_MAX_INT32);
}

static LgIndex_t IMax_TF_D5_CB(const char *)
{
    return CheckField(IMax_TF_D5, "IMax", TW_MAX_INT32);
}

static LgIndex_t JMax_TF_D5_CB(const char *)
{
    return CheckField(JMax_TF_D5, "JMax", TW_MAX_INT32);
}

static LgIndex_t KMax_TF_D5_CB(const char *)
{
    return CheckField(KMax_TF_D5, "KMax", TW_MAX_INT32);
}

static LgIndex_t Width_TF_D5_CB(const char *)
{
    return CheckField(Width_TF_D5, "Width", TW_MAX_DATA_WIDTH);
}

/* Shows the current set. A keyword field is only filled from a keyword
   that is not empty; otherwise it keeps what it last showed. */
static void Dialog5Init_CB(void)
{
    CvnUtilLockStart(AddOnID);
    const TW_ConfigInstructions_s *Set = GetCurConfigPtr();

    CvnGUIRadioBoxSetSelectedOption(StartID_RADIO_D5,
                                    MarkerItem(StartMarkers, 3, Set->StartId.Marker));
    if (Set->StartId.Keyword[0] != '\0')
        CvnGUITextFieldSetString(StartKeyword_TF_D5, Set->StartId.Keyword);
    CvnGUITextFieldSetLgIndex(StartLine_TF_D5, Set->StartId.Line, FALSE);

    CvnGUIRadioBoxSetSelectedOption(EndID_RADIO_D5, MarkerItem(EndMarkers, 4, Set->EndId.Marker));
    if (Set->EndId.Keyword[0] != '\0')
        CvnGUITextFieldSetString(EndKeyword_TF_D5, Set->EndId.Keyword);
    CvnGUITextFieldSetLgIndex(EndLine_TF_D5, Set->EndId.Line, FALSE);

    CvnGUIRadioBoxSetSelectedOption(DataID_RADIO_D5, Set->Format == DataFormat_IJKBlock
                                                         ? TW_ITEM_BLOCK
                                                         : TW_ITEM_POINT);
    CvnGUIOptionMenuSet(ValueDel_OPT_D5, Set->DataDelimiter);
    CvnGUITextFieldSetLgIndex(Width_TF_D5, Set->DataWidth, FALSE);

    CvnGUIRadioBoxSetSelectedOption(Format_RADIO_D5, Set->Dimension.Auto
                                                         ? TW_ITEM_AUTO_DIMENSION
                                                         : TW_ITEM_GIVEN_DIMENSION);
    CvnGUITextFieldSetLgIndex(IMax_TF_D5, Set->Dimension.IMax, FALSE);
    CvnGUITextFieldSetLgIndex(JMax_TF_D5, Set->Dimension.JMax, FALSE);
    CvnGUITextFieldSetLgIndex(KMax_TF_D5, Set->Dimension.KMax, FALSE);
    CvnGUIToggleSet(AllowMultipl_TOG_D5, Set->CreateMultipleZones ? TRUE : FALSE);
    if (Set->ZoneKeyword[0] != '\0')
        CvnGUITextFieldSetString(ZoneKeyword_TF_D5, Set->ZoneKeyword);
    CvnGUIToggleSet(Ignore_TOG_D5, Set->IgnoreNonNumericTokens ? TRUE : FALSE);

    RefreshDialog5Sensitivities();
}

/* Reads the keyword field into Keyword (257 characters with the NUL) when
   it is not empty; otherwise shows Message and gives false. */
static bool GetKeyword(LgIndex_t Field, char *Keyword, const char *Message)
{
    char Text[257];
    TW_GetFieldText(Field, Text, sizeof(Text));
    if (Text[0] == '\0') {
        CvnUtilDialogErrMsg(Message);
        return false;
    }
    TW_Strncpy(Keyword, Text, sizeof(Text));
    return true;
}

/* Writes the dialog into the current set field by field. A failure keeps
   the dialog open; what was written before it stays written, and the
   start and end lines and the width are only taken while all went well. */
static void Dialog5OkButton_CB(void)
{
    TW_ConfigInstructions_s *Set = GetCurConfigPtr();
    bool IsOk = true;

    Set->Dimension.Auto =
        CvnGUIRadioBoxGetSelectedOption(Format_RADIO_D5) == TW_ITEM_AUTO_DIMENSION;
    Set->CreateMultipleZones = CvnGUIToggleGet(AllowMultipl_TOG_D5) != FALSE;

    int32_t IMax = 0;
    int32_t JMax = 0;
    int32_t KMax = 0;
    if (TW_GetValidInteger(IMax_TF_D5, "IMax", 1, TW_MAX_INT32, &IMax) &&
        TW_GetValidInteger(JMax_TF_D5, "JMax", 1, TW_MAX_INT32, &JMax) &&
        TW_GetValidInteger(KMax_TF_D5, "KMax", 1, TW_MAX_INT32, &KMax)) {
        Set->Dimension.IMax = IMax;
        Set->Dimension.JMax = JMax;
        Set->Dimension.KMax = KMax;
    } else {
        IsOk = false;
    }

    char ZoneKeyword[257];
    TW_GetFieldText(ZoneKeyword_TF_D5, ZoneKeyword, sizeof(ZoneKeyword));
    if (ZoneKeyword[0] != '\0')
        TW_Strncpy(Set->ZoneKeyword, ZoneKeyword, sizeof(Set->ZoneKeyword));

    Set->IgnoreNonNumericTokens = CvnGUIToggleGet(Ignore_TOG_D5) != FALSE;
    Set->DataDelimiter = (TW_Delimiter_e)CvnGUIOptionMenuGet(ValueDel_OPT_D5);

    LgIndex_t Start = CvnGUIRadioBoxGetSelectedOption(StartID_RADIO_D5);
    Set->StartId.Marker = StartMarkers[Start >= 1 && Start <= 3 ? Start - 1 : 0];
    if (Set->StartId.Marker == FileMarker_Keyword) {
        if (!GetKeyword(StartKeyword_TF_D5, Set->StartId.Keyword,
                        "Please enter a starting identification keyword."))
            IsOk = false;
    } else if (Set->StartId.Marker == FileMarker_Line) {
        if (!IsOk || !TW_GetValidInteger(StartLine_TF_D5, "Start Line", 1, TW_MAX_INT32,
                                         &Set->StartId.Line))
            IsOk = false;
    }

    LgIndex_t End = CvnGUIRadioBoxGetSelectedOption(EndID_RADIO_D5);
    Set->EndId.Marker = EndMarkers[End >= 1 && End <= 4 ? End - 1 : 0];
    if (Set->EndId.Marker == FileMarker_Line) {
        if (!IsOk ||
            !TW_GetValidInteger(EndLine_TF_D5, "End Line", 1, TW_MAX_INT32, &Set->EndId.Line))
            IsOk = false;
    } else if (Set->EndId.Marker == FileMarker_Keyword) {
        if (!GetKeyword(EndKeyword_TF_D5, Set->EndId.Keyword,
                        "Please enter an ending identification keyword."))
            IsOk = false;
    }

    Set->Format = CvnGUIRadioBoxGetSelectedOption(DataID_RADIO_D5) == TW_ITEM_BLOCK
                      ? DataFormat_IJKBlock
                      : DataFormat_IJKPoint;

    if (!IsOk)
        return;
    if (!TW_GetValidInteger(Width_TF_D5, "Width", 1, TW_MAX_DATA_WIDTH, &Set->DataWidth))
        return;
    CvnGUIDialogDrop(Dialog5Manager);
    CvnUtilLockFinish(AddOnID);
}

/* Nothing was written before OK: dropping the dialog is all. */
static void Dialog5CancelButton_CB(void)
{
    CvnGUIDialogDrop(Dialog5Manager);
    CvnUtilLockFinish(AddOnID);
}

static void Dialog5HelpButton_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilHelp("addon_ordalis_loader_data_import.html", FALSE, 0);
    CvnUtilLockFinish(AddOnID);
}

/* Adds a static label and its field on the same row, the field at FieldX. */
static LgIndex_t AddLabelledField(LgIndex_t Dialog, LgIndex_t X, LgIndex_t Y, const char *Label,
                                  LgIndex_t *LabelID, LgIndex_t FieldX, LgIndex_t Width,
                                  CvnGUITextCallback_pf Callback)
{
    *LabelID = CvnGUILabelAdd(Dialog, X, Y, Label);
    return CvnGUITextFieldAdd(Dialog, FieldX, Y, Width, 12, Callback);
}

void BuildDialog5(LgIndex_t ParentDialogID)
{
    if (Dialog5Manager != CVNGUI_BAD_ID)
        return;
    LgIndex_t D = CvnGUIDialogCreateModal(ParentDialogID, 420, 352, "Data Import Instructions",
                                          Dialog5Init_CB, Dialog5OkButton_CB, nullptr,
                                          Dialog5CancelButton_CB, Dialog5HelpButton_CB);
    Dialog5Manager = D;

    CvnGUILabelAdd(D, 10, 8, "Start Identification:");
    StartID_RADIO_D5 = CvnGUIRadioBoxAdd(D, 20, 22, 190, 42, "First All Numeric Line",
                                         "First Line After Line With Keyword:",
                                         "Start at Line Number:", nullptr, nullptr,
                                         StartID_RADIO_D5_CB);
    StartKeyword_TF_D5 =
        AddLabelledField(D, 220, 36, "Start Keyword:", &StartKeyword_LBL_D5, 290, 120, nullptr);
    StartLine_TF_D5 = AddLabelledField(D, 220, 50, "Start Line:", &StartLine_LBL_D5, 290, 120,
                                       StartLine_TF_D5_CB);

    CvnGUILabelAdd(D, 10, 70, "End Identification:");
    EndID_RADIO_D5 = CvnGUIRadioBoxAdd(D, 20, 84, 190, 56,
                                       "All Lines up to the First Non-numeric Line",
                                       "Stop At Line Number:", "All Lines up to Line with Keyword:",
                                       "End of File", nullptr, EndID_RADIO_D5_CB);
    EndKeyword_TF_D5 =
        AddLabelledField(D, 220, 112, "End Keyword:", &EndKeyword_LBL_D5, 290, 120, nullptr);
    EndLine_TF_D5 =
        AddLabelledField(D, 220, 98, "End Line:", &EndLine_LBL_D5, 290, 120, EndLine_TF_D5_CB);

    CvnGUILabelAdd(D, 10, 146, "Data Identification:");
    DataID_RADIO_D5 = CvnGUIRadioBoxAdd(D, 20, 160, 190, 28, "Point Format (V1,V2,...Vn)",
                                        "Block Format (All of V1, All of V2)", nullptr, nullptr,
                                        nullptr, DataID_RADIO_D5_CB);

    char Delimiters[128];
    TW_EnumLabelList(&DelimiterTable, Delimiters, sizeof(Delimiters));
    CvnGUILabelAdd(D, 10, 194, "Data Value Delimiter:");
    ValueDel_OPT_D5 = CvnGUIOptionMenuAdd(D, 110, 194, 80, 12, Delimiters, ValueDel_OPT_D5_CB);
    Width_TF_D5 = AddLabelledField(D, 220, 194, "Width:", &Width_LBL_D5, 290, 60, Width_TF_D5_CB);

    CvnGUIFrameAdd(D, 10, 214, 400, 90, "Data Dimension");
    Format_RADIO_D5 = CvnGUIRadioBoxAdd(D, 20, 228, 190, 28, "Auto-Calculate IMax",
                                        "Specify Dimensions", nullptr, nullptr, nullptr,
                                        Format_RADIO_D5_CB);
    IMax_TF_D5 = AddLabelledField(D, 20, 258, "IMax:", &IMax_LBL_D5, 50, 50, IMax_TF_D5_CB);
    JMax_TF_D5 = AddLabelledField(D, 115, 258, "JMax:", &JMax_LBL_D5, 145, 50, JMax_TF_D5_CB);
    KMax_TF_D5 = AddLabelledField(D, 210, 258, "KMax:", &KMax_LBL_D5, 240, 50, KMax_TF_D5_CB);
    AllowMultipl_TOG_D5 =
        CvnGUIToggleAdd(D, 20, 272, 150, 12, "Allow Multiple Zones", AllowMultipl_TOG_D5_CB);
    ZoneKeyword_TF_D5 = AddLabelledField(D, 20, 286, "Zones end on line with keyword:",
                                         &ZoneKeyword_LBL_D5, 160, 120, nullptr);

    CvnGUIFrameAdd(D, 10, 310, 400, 34, "Data Filters");
    Ignore_TOG_D5 =
        CvnGUIToggleAdd(D, 20, 324, 150, 12, "Ignore Non-numeric Tokens", Ignore_TOG_D5_CB);
}

} // namespace corvane::cvnutildataio
