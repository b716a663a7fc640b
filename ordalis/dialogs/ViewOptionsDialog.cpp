/*
 * ViewOptionsDialog.cpp - the view options dialog ("View Options", dialog
 * 2): what the processed preview shows, the line limit and automatic
 * re-processing. Cancel restores the options as they were when the dialog
 * opened.
 */
#include "ViewOptionsDialog.h"

#include "AddOnHost.h"
#include "DialogFields.h"
#include "Preview.h"

namespace corvane::cvnutildataio {

#define TW_VIEW_OPTIONS_HELP "addon_ordalis_loader_view_options.html"

LgIndex_t Dialog2Manager = CVNGUI_BAD_ID;

static LgIndex_t Limit_RADIO_D2 = CVNGUI_BAD_ID;
static LgIndex_t LimitLines_TF_D2 = CVNGUI_BAD_ID;
static LgIndex_t lines_LBL_D2 = CVNGUI_BAD_ID;
static LgIndex_t AutoProcess_TOG_D2 = CVNGUI_BAD_ID;
static LgIndex_t Show_RADIO_D2 = CVNGUI_BAD_ID;
static LgIndex_t ShowFormat_RADIO_D2 = CVNGUI_BAD_ID;

/* The options as they were when the dialog opened, for Cancel. */
static int32_t SaveViewOptionsDialog_Limit = 1;
static int32_t SaveViewOptionsDialog_LimitLines = 200;
static bool SaveViewOptionsDialog_AutoProcess = false;
static int32_t SaveViewOptionsDialog_Show = 1;
static int32_t SaveViewOptionsDialog_ShowFormat = 1;

/* The line count applies only to a limited view, the column or block form
   only to names and data. */
static void UpdateSensitivity()
{
    CvnGUISetSensitivity(LimitLines_TF_D2, ViewOptionsDialog_Limit == 1 ? TRUE : FALSE);
    CvnGUISetSensitivity(ShowFormat_RADIO_D2, ViewOptionsDialog_Show == 1 ? TRUE : FALSE);
}

/* Stores the new value of a radio box into *Option. */
static void StoreOption(int32_t *Option, const LgIndex_t *Value)
{
    CvnUtilLockStart(AddOnID);
    if (Value != nullptr)
        *Option = (int32_t)*Value;
    UpdateSensitivity();
    CvnUtilLockFinish(AddOnID);
}

static void Limit_RADIO_D2_CB(const LgIndex_t *Value)
{
    StoreOption(&ViewOptionsDialog_Limit, Value);
}

static void Show_RADIO_D2_CB(const LgIndex_t *Value)
{
    StoreOption(&ViewOptionsDialog_Show, Value);
}

static void ShowFormat_RADIO_D2_CB(const LgIndex_t *Value)
{
    StoreOption(&ViewOptionsDialog_ShowFormat, Value);
}

static void AutoProcess_TOG_D2_CB(const LgIndex_t *Value)
{
    CvnUtilLockStart(AddOnID);
    ViewOptionsDialog_AutoProcess = Value != nullptr && *Value != 0;
    UpdateSensitivity();
    CvnUtilLockFinish(AddOnID);
}

/* The line limit: an integer from 1 to 2147483647 is kept; anything else
   is refused (the host names the field "Limit") and the field reset to 1. */
static LgIndex_t LimitLines_TF_D2_CB(const char *Text)
{
    (void)Text;
    CvnUtilLockStart(AddOnID);
    LgIndex_t Accepted = TW_CheckIntegerField(LimitLines_TF_D2, "Limit", 1, TW_MAX_INT32);
    LgIndex_t Lines = 0;
    if (Accepted && CvnGUITextFieldGetLgIndex(LimitLines_TF_D2, &Lines))
        ViewOptionsDialog_LimitLines = (int32_t)Lines;
    CvnUtilLockFinish(AddOnID);
    return Accepted;
}

/* Takes the add-on lock until OK or Cancel, shows the options and keeps a
   copy of them for Cancel. */
static void Dialog2Init_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnGUIRadioBoxSetSelectedOption(Limit_RADIO_D2, ViewOptionsDialog_Limit);
    CvnGUITextFieldSetLgIndex(LimitLines_TF_D2, ViewOptionsDialog_LimitLines, FALSE);
    CvnGUIToggleSet(AutoProcess_TOG_D2, ViewOptionsDialog_AutoProcess ? TRUE : FALSE);
    CvnGUIRadioBoxSetSelectedOption(Show_RADIO_D2, ViewOptionsDialog_Show);
    CvnGUIRadioBoxSetSelectedOption(ShowFormat_RADIO_D2, ViewOptionsDialog_ShowFormat);
    SaveViewOptionsDialog_Limit = ViewOptionsDialog_Limit;
    SaveViewOptionsDialog_LimitLines = ViewOptionsDialog_LimitLines;
    SaveViewOptionsDialog_AutoProcess = ViewOptionsDialog_AutoProcess;
    SaveViewOptionsDialog_Show = ViewOptionsDialog_Show;
    SaveViewOptionsDialog_ShowFormat = ViewOptionsDialog_ShowFormat;
    UpdateSensitivity();
}

/* OK keeps the options; the preview follows them at once when it shows
   raw data or auto-processing is on. */
static void Dialog2OkButton_CB(void)
{
    CvnGUIDialogDrop(Dialog2Manager);
    if (ViewOptionsDialog_AutoProcess || MainDialog_ViewData == 1)
        RefreshPreviewWindow();
    CvnUtilLockFinish(AddOnID);
}

/* Cancel puts back the options of the dialog's opening; the preview is
   left as it is. */
static void Dialog2CancelButton_CB(void)
{
    CvnGUIDialogDrop(Dialog2Manager);
    ViewOptionsDialog_Limit = SaveViewOptionsDialog_Limit;
    ViewOptionsDialog_LimitLines = SaveViewOptionsDialog_LimitLines;
    ViewOptionsDialog_AutoProcess = SaveViewOptionsDialog_AutoProcess;
    ViewOptionsDialog_Show = SaveViewOptionsDialog_Show;
    ViewOptionsDialog_ShowFormat = SaveViewOptionsDialog_ShowFormat;
    CvnUtilLockFinish(AddOnID);
}

static void Dialog2HelpButton_CB(void)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilHelp(TW_VIEW_OPTIONS_HELP, FALSE, 0);
    CvnUtilLockFinish(AddOnID);
}

/* Creates the modal dialog once; later calls do nothing. */
void BuildDialog2(LgIndex_t ParentDialogID)
{
    if (Dialog2Manager != CVNGUI_BAD_ID)
        return;
    LgIndex_t D = CvnGUIDialogCreateModal(ParentDialogID, 260, 190, "View Options",
                                          Dialog2Init_CB, Dialog2OkButton_CB, nullptr,
                                          Dialog2CancelButton_CB, Dialog2HelpButton_CB);
    Dialog2Manager = D;

    CvnGUIFrameAdd(D, 5, 5, 250, 62, "General");
    Limit_RADIO_D2 = CvnGUIRadioBoxAdd(D, 12, 18, 150, 28, "Limit lines displayed to",
                                       "Do not limit", nullptr, nullptr, nullptr,
                                       Limit_RADIO_D2_CB);
    LimitLines_TF_D2 = CvnGUITextFieldAdd(D, 165, 18, 50, 12, LimitLines_TF_D2_CB);
    lines_LBL_D2 = CvnGUILabelAdd(D, 220, 20, "lines");
    AutoProcess_TOG_D2 =
        CvnGUIToggleAdd(D, 12, 50, 120, 12, "Auto Process", AutoProcess_TOG_D2_CB);
    CvnGUIFrameAdd(D, 5, 72, 250, 112, "Processed Data");
    Show_RADIO_D2 = CvnGUIRadioBoxAdd(D, 12, 86, 236, 42, "Show variable names and data",
                                      "Show variable names only",
                                      "Show all non-processed lines", nullptr, nullptr,
                                      Show_RADIO_D2_CB);
    ShowFormat_RADIO_D2 = CvnGUIRadioBoxAdd(D, 12, 134, 236, 28, "Show data in columns",
                                            "Show data in blocks", nullptr, nullptr, nullptr,
                                            ShowFormat_RADIO_D2_CB);
}

} // namespace corvane::cvnutildataio
