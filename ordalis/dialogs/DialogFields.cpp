/*
 * DialogFields.cpp - integer and text fields of the dialogs.
 */
#include "DialogFields.h"

#include "AddOnHost.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

LgIndex_t TW_CheckIntegerField(LgIndex_t FieldID, const char *FieldName, LgIndex_t Min,
                               LgIndex_t Max)
{
    CvnUtilLockStart(AddOnID);
    LgIndex_t IsValid = CvnGUITextFieldValidateLgIndex(FieldID, FieldName, Min, Max, FALSE);
    if (!IsValid)
        CvnGUITextFieldSetLgIndex(FieldID, 1, FALSE);
    CvnUtilLockFinish(AddOnID);
    return IsValid;
}

bool TW_GetValidInteger(LgIndex_t FieldID, const char *FieldName, LgIndex_t Min, LgIndex_t Max,
                        int32_t *Value)
{
    if (!CvnGUITextFieldValidateLgIndex(FieldID, FieldName, Min, Max, FALSE))
        return false;
    LgIndex_t Number = 0;
    if (!CvnGUITextFieldGetLgIndex(FieldID, &Number))
        return false;
    *Value = (int32_t)Number;
    return true;
}

void TW_GetFieldText(LgIndex_t FieldID, char *Dest, size_t Size)
{
    char *Text = CvnGUITextFieldGetString(FieldID);
    TW_Strncpy(Dest, Text != nullptr ? Text : "", Size);
    CvnUtilStringDealloc(&Text);
}

} // namespace corvane::cvnutildataio
