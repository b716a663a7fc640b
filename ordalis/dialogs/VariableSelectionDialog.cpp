/*
 * VariableSelectionDialog.cpp - the variable selection dialog ("Variables to load", dialog 7).
 */
#include "VariableSelectionDialog.h"

namespace corvane::cvnutildataio {

LgIndex_t Dialog7Manager = CVNGUI_BAD_ID;

void BuildDialog7(LgIndex_t ParentDialogID)
{
    if (Dialog7Manager != CVNGUI_BAD_ID)
        return;
    Dialog7Manager = CvnGUIDialogCreateModal(ParentDialogID, 300, 200, "Variables to load", nullptr,
                                                nullptr, nullptr, nullptr, nullptr);
}

} // namespace corvane::cvnutildataio
