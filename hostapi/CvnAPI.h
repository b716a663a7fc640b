/*
 * CvnAPI.h - the Corvane host programming interface seen by add-ons.
 *
 * Every operation an add-on may call on the host, with the host types and
 * enumerations they use. C linkage throughout, so that an add-on built by
 * anyone links against any host that implements these declarations.
 *
 * Conventions:
 *  - Host strings are allocated by the host (CvnUtilStringAlloc or any call
 *    documented as returning a new string) and released with
 *    CvnUtilStringDealloc.
 *  - Release functions take the address of the handle, accept NULL and clear
 *    the handle.
 *  - Numbers of list items, set members, zones, variables and points are
 *    1-based.
 */
#ifndef CVNAPI_H
#define CVNAPI_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------- types */

typedef char Boolean_t; /* host Boolean: FALSE 0, TRUE 1 */
#ifndef TRUE
#define TRUE ((Boolean_t)1)
#endif
#ifndef FALSE
#define FALSE ((Boolean_t)0)
#endif

typedef int64_t LgIndex_t;  /* host index integer */
typedef int32_t EntIndex_t; /* zone and variable numbers */

typedef struct StringList_s StringList_s; /* list of host strings */
typedef struct Set_s Set_s;               /* set of 1-based numbers */
typedef struct ArgList_s ArgList_s;       /* named-argument list */
typedef struct AddOn_s *AddOn_pa;         /* registered add-on id */
typedef struct FieldData_s *FieldData_pa; /* handle of one field's values */

typedef enum {
    PlotType_Automatic = 0,
    PlotType_Cartesian3D = 1,
    PlotType_Cartesian2D = 2,
    PlotType_XYLine = 3,
    PlotType_Sketch = 4
} PlotType_e;

typedef enum {
    FieldDataType_Float = 1,
    FieldDataType_Double = 2,
    FieldDataType_Int32 = 3,
    FieldDataType_Int16 = 4,
    FieldDataType_Byte = 5
} FieldDataType_e;

typedef enum {
    ZoneType_Ordered = 0
} ZoneType_e;

typedef enum {
    DataFormat_IJKBlock = 0,
    DataFormat_IJKPoint = 1,
    DataFormat_FEBlock = 2,
    DataFormat_FEPoint = 3
} DataFormat_e;

typedef enum {
    StateChange_VarsAltered = 0,
    StateChange_VarsAdded = 1,
    StateChange_ZonesDeleted = 2,
    StateChange_ZonesAdded = 3,
    StateChange_DataSetReset = 8,
    StateChange_NewLayout = 9,
    StateChange_Quit = 15
} StateChange_e;

typedef enum {
    MessageBox_Error = 0,
    MessageBox_Warning = 1,
    MessageBox_Information = 2,
    MessageBox_Question = 3,
    MessageBox_YesNo = 4
} MessageBoxType_e;

typedef enum {
    SelectFileOption_ReadSingleFile = 0,
    SelectFileOption_ReadMultiFile = 1,
    SelectFileOption_WriteFile = 2
} SelectFileOption_e;

/* Callbacks an add-on registers with the host. */
typedef void (*StateChangeCallback_pf)(StateChange_e StateChange, long CallData);
typedef Boolean_t (*QueryQuitCallback_pf)(void);
/* Replays a load from stored instructions; TRUE when the load succeeded. */
typedef Boolean_t (*DataLoaderCallback_pf)(StringList_s *Instructions, long ClientData);
/* The user picked the loader; Instructions holds those of the previous load. */
typedef void (*DataLoaderSelectedCallback_pf)(StringList_s *Instructions, char Flag, long ClientData);

/* ------------------------------------------------------ version, add-ons */

/* The host version as an integer: major*100000 + minor*10000 + ... */
LgIndex_t CvnUtilGetCorvaneVersion(void);
AddOn_pa CvnUtilAddOnRegister(int CvnUtilVersion, const char *Name, const char *Version,
                              const char *Author);
void CvnUtilStateChangeAddCallback(StateChangeCallback_pf Callback);
void CvnUtilQuitAddQueryCallback(QueryQuitCallback_pf Callback);
/* New host string holding the host's home directory. */
char *CvnUtilCorvaneGetHomeDirectory(void);

/* --------------------------------------------------------------- locking */

void CvnUtilLockOn(void);
void CvnUtilLockOff(void);
void CvnUtilLockStart(AddOn_pa AddOnID);
void CvnUtilLockFinish(AddOn_pa AddOnID);

/* --------------------------------------------------------------- strings */

/* A zero-filled string with room for MaxLength characters and the NUL;
   NULL when out of memory. DebugInfo names the allocating operation. */
char *CvnUtilStringAlloc(LgIndex_t MaxLength, const char *DebugInfo);
void CvnUtilStringDealloc(char **String);

StringList_s *CvnUtilStringListAlloc(void);
void CvnUtilStringListDealloc(StringList_s **StringList);
void CvnUtilStringListClear(StringList_s *StringList);
Boolean_t CvnUtilStringListAppendString(StringList_s *StringList, const char *String);
LgIndex_t CvnUtilStringListGetCount(const StringList_s *StringList);
/* New host string: a copy of string Index (1-based); NULL when out of range
   or out of memory. */
char *CvnUtilStringListGetString(const StringList_s *StringList, LgIndex_t Index);

/* Releases an array the host handed out (e.g. selected list items). */
void CvnUtilArrayDealloc(void **Array);

/* ------------------------------------------------------------------ sets */

#define CVN_NO_MEMBER ((LgIndex_t)0) /* "no member" for CvnUtilSetGetNextMember */

Set_s *CvnUtilSetAlloc(Boolean_t ShowErr);
void CvnUtilSetDealloc(Set_s **Set);
void CvnUtilSetClear(Set_s *Set);
Boolean_t CvnUtilSetAddMember(Set_s *Set, LgIndex_t Member, Boolean_t ShowErr);
Boolean_t CvnUtilSetRemoveMember(Set_s *Set, LgIndex_t Member);
Boolean_t CvnUtilSetIsMember(const Set_s *Set, LgIndex_t Member);
/* Adds the members of Src to Dst. */
Boolean_t CvnUtilSetCopy(Set_s *Dst, const Set_s *Src, Boolean_t ShowErr);
Boolean_t CvnUtilSetIsEmpty(const Set_s *Set);
LgIndex_t CvnUtilSetGetMemberCount(const Set_s *Set);
/* The smallest member above Member (CVN_NO_MEMBER for the first one);
   CVN_NO_MEMBER when there is none. */
LgIndex_t CvnUtilSetGetNextMember(const Set_s *Set, LgIndex_t Member);

/* -------------------------------------------------------- argument lists */

ArgList_s *CvnUtilArgListAlloc(void);
void CvnUtilArgListDealloc(ArgList_s **ArgList);
Boolean_t CvnUtilArgListAppendString(ArgList_s *ArgList, const char *Name, const char *Value);
Boolean_t CvnUtilArgListAppendInt(ArgList_s *ArgList, const char *Name, LgIndex_t Value);
Boolean_t CvnUtilArgListAppendFunction(ArgList_s *ArgList, const char *Name, const void *Function);
/* Stores a copy of the list. */
Boolean_t CvnUtilArgListAppendStringList(ArgList_s *ArgList, const char *Name,
                                         const StringList_s *StringList);

/* --------------------------------------------------- loaders, data sets */

Boolean_t CvnUtilImportAddLoaderX(ArgList_s *ArgList);
/* Stores a copy of Instructions with the data set being loaded. */
Boolean_t CvnUtilImportSetLoaderInstr(const char *LoaderName, const StringList_s *Instructions);

Boolean_t CvnUtilDataLoadStart(void);
/* Ends the data load begun by CvnUtilDataLoadStart; key "InitialPlotType". */
Boolean_t CvnUtilDataLoadFinishX(ArgList_s *ArgList);
/* Keys "LoaderName", "DataSetTitle", "VarNames" (string list). On failure
   the reason is kept for CvnUtilPostLastErrorMessage. */
Boolean_t CvnUtilDataSetCreateX(ArgList_s *ArgList);
/* Appends a zone with one field per variable of the given types. */
Boolean_t CvnUtilDataSetAddZone(const char *Name, LgIndex_t IMax, LgIndex_t JMax, LgIndex_t KMax,
                                ZoneType_e ZoneType, const FieldDataType_e *VarDataTypes);
FieldData_pa CvnUtilDataValueGetRef(EntIndex_t Zone, EntIndex_t Var);
/* Stores Value at the 1-based PointIndex: as is in a double field, rounded
   to nearest and clamped to the type's range in an integer field. */
void CvnUtilDataValueSetByRef(FieldData_pa FieldData, LgIndex_t PointIndex, double Value);
void CvnUtilPostLastErrorMessage(void);

/* ------------------------------------------ message and progress boxes */

void CvnUtilDialogErrMsg(const char *Message);
/* Shows Message in a box of the given kind; TRUE for Yes (question kinds)
   or OK. */
Boolean_t CvnUtilDialogMessageBox(const char *Message, MessageBoxType_e MessageBoxType);
void CvnUtilDialogLaunchPercentDone(const char *Label, Boolean_t ShowStopButton);
/* Updates the bar; FALSE when the user pressed Cancel. */
Boolean_t CvnUtilDialogCheckPercentDone(int PercentDone);
void CvnUtilDialogDropPercentDone(void);
/* File chooser. On TRUE *FileName is a new host string. */
Boolean_t CvnUtilDialogGetFileName(SelectFileOption_e DialogOption, char **FileName,
                                   const char *FileTypeName, const char *DefaultFileName,
                                   const char *DefaultFilter);
Boolean_t CvnUtilHelp(const char *HelpFileOrURL, Boolean_t GoToID, int HelpID);
void CvnUtilPleaseWait(const char *WaitMessage, Boolean_t DoWait);

/* --------------------------------------------------------- dialog toolkit */

#define CVNGUI_MAIN_DIALOG_ID ((LgIndex_t)-1)
#define CVNGUI_BAD_ID ((LgIndex_t)-2)

typedef void (*CvnGUIDialogCallback_pf)(void);
typedef void (*CvnGUIButtonCallback_pf)(void);
/* Toggles, radio boxes, option menus and lists: the new value or item. */
typedef void (*CvnGUIIntCallback_pf)(const LgIndex_t *Value);
/* Text fields: the new text; return TRUE to accept it. */
typedef LgIndex_t (*CvnGUITextCallback_pf)(const char *Text);

LgIndex_t CvnGUIDialogCreateModal(LgIndex_t ParentDialogID, LgIndex_t Width, LgIndex_t Height,
                                  const char *Title, CvnGUIDialogCallback_pf InitCallback,
                                  CvnGUIDialogCallback_pf OkButtonCallback,
                                  CvnGUIDialogCallback_pf ApplyButtonCallback,
                                  CvnGUIDialogCallback_pf CancelButtonCallback,
                                  CvnGUIDialogCallback_pf HelpButtonCallback);
void CvnGUIDialogLaunch(LgIndex_t DialogID);
void CvnGUIDialogDrop(LgIndex_t DialogID);
Boolean_t CvnGUIDialogIsUp(LgIndex_t DialogID);
void CvnGUISetSensitivity(LgIndex_t ControlID, Boolean_t IsSensitive);

LgIndex_t CvnGUIFrameAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                         LgIndex_t Height, const char *Label);
LgIndex_t CvnGUILabelAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, const char *Label);
void CvnGUILabelSetText(LgIndex_t LabelID, const char *Text);
LgIndex_t CvnGUIButtonAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                          LgIndex_t Height, const char *Label, CvnGUIButtonCallback_pf Callback);

LgIndex_t CvnGUIToggleAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                          LgIndex_t Height, const char *Label, CvnGUIIntCallback_pf Callback);
void CvnGUIToggleSet(LgIndex_t ToggleID, Boolean_t SetOn);
Boolean_t CvnGUIToggleGet(LgIndex_t ToggleID);

/* Up to five items; NULL or "" labels end the list. Items are 1-based. */
LgIndex_t CvnGUIRadioBoxAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                            LgIndex_t Height, const char *Label1, const char *Label2,
                            const char *Label3, const char *Label4, const char *Label5,
                            CvnGUIIntCallback_pf Callback);
void CvnGUIRadioBoxSetSelectedOption(LgIndex_t RadioBoxID, LgIndex_t Option);
LgIndex_t CvnGUIRadioBoxGetSelectedOption(LgIndex_t RadioBoxID);

/* OptionList: the item labels separated by commas. Items are 1-based. */
LgIndex_t CvnGUIOptionMenuAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                              LgIndex_t Height, const char *OptionList,
                              CvnGUIIntCallback_pf Callback);
void CvnGUIOptionMenuSet(LgIndex_t OptionMenuID, LgIndex_t Option);
LgIndex_t CvnGUIOptionMenuGet(LgIndex_t OptionMenuID);

/* One-line text fields. */
LgIndex_t CvnGUITextFieldAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                             LgIndex_t Height, CvnGUITextCallback_pf Callback);
void CvnGUITextFieldSetString(LgIndex_t TextFieldID, const char *Text);
/* New host string. */
char *CvnGUITextFieldGetString(LgIndex_t TextFieldID);
void CvnGUITextFieldSetLgIndex(LgIndex_t TextFieldID, LgIndex_t Value, Boolean_t IsPercent);
Boolean_t CvnGUITextFieldGetLgIndex(LgIndex_t TextFieldID, LgIndex_t *Value);
Boolean_t CvnGUITextFieldGetDouble(LgIndex_t TextFieldID, double *Value);
/* Checks that the field holds an integer in Min..Max; otherwise shows the
   host's message naming FieldName and returns FALSE. */
Boolean_t CvnGUITextFieldValidateLgIndex(LgIndex_t TextFieldID, const char *FieldName,
                                         LgIndex_t Min, LgIndex_t Max, Boolean_t IsPercent);
Boolean_t CvnGUITextFieldValidateDouble(LgIndex_t TextFieldID, const char *FieldName, double Min,
                                        double Max, Boolean_t IsPercent);

/* Multi-line text. */
LgIndex_t CvnGUITextAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                        LgIndex_t Height, Boolean_t IsReadOnly, CvnGUITextCallback_pf Callback);
void CvnGUITextSetString(LgIndex_t TextID, const char *Text);
/* New host string. */
char *CvnGUITextGetString(LgIndex_t TextID);
void CvnGUITextAppendString(LgIndex_t TextID, const char *Text);

/* Lists; items are 1-based. */
LgIndex_t CvnGUIListAdd(LgIndex_t ParentDialogID, LgIndex_t X, LgIndex_t Y, LgIndex_t Width,
                        LgIndex_t Height, Boolean_t IsMultiSelection,
                        CvnGUIIntCallback_pf Callback);
void CvnGUIListAppendItem(LgIndex_t ListID, const char *Item);
void CvnGUIListDeleteAllItems(LgIndex_t ListID);
void CvnGUIListDeleteItemAtPos(LgIndex_t ListID, LgIndex_t Position);
LgIndex_t CvnGUIListGetItemCount(LgIndex_t ListID);
/* New host string. */
char *CvnGUIListGetString(LgIndex_t ListID, LgIndex_t Position);
void CvnGUIListSetSelectedItem(LgIndex_t ListID, LgIndex_t Position);
LgIndex_t CvnGUIListGetSelectedItem(LgIndex_t ListID);
void CvnGUIListSetSelectedItems(LgIndex_t ListID, const LgIndex_t *Items, LgIndex_t Count);
/* *Items is a host array released with CvnUtilArrayDealloc; in selection
   order. */
void CvnGUIListGetSelectedItems(LgIndex_t ListID, LgIndex_t **Items, LgIndex_t *Count);

#ifdef __cplusplus
}
#endif

#endif /* CVNAPI_H */
