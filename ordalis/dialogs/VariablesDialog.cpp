/*
 * VariablesDialog.cpp - the variable import dialog ("Variable Import Instructions", dialog 4).
 */
#include "VariablesDialog.h"

namespace corvane::cvnutildataio {

LgIndex_t Dialog4Manager = CVNGUI_BAD_ID;

void BuildDialog4(LgIndex_t ParentDialogID)
{
    if (Dialog4Manager != CVNGUI_BAD_ID)
        return;
    Dialog4Manager = CvnGUIDialogCreateModal(ParentDialogID, 300, 200, "Variable Import Instructions", nullptr,
                                                nullptr, nullptr, nullptr, nullptr);
}

} // namespace corvane::cvnutildataio
