/*
 * DialogText.cpp - appends to multi-line text controls under the length
 * limit of small text controls.
 */
#include "DialogText.h"

#include <cstring>

#include "AddOnHost.h"

namespace corvane::cvnutildataio {

void TW_AppendText(LgIndex_t TextID, const char *Text)
{
    if (Text == nullptr)
        return;
    if (IsWin95) {
        char *Current = CvnGUITextGetString(TextID);
        size_t Length = Current != nullptr ? strlen(Current) : 0;
        CvnUtilStringDealloc(&Current);
        if (Length + strlen(Text) > TW_LIMITED_TEXT_LENGTH)
            return;
    }
    CvnGUITextAppendString(TextID, Text);
}

} // namespace corvane::cvnutildataio
