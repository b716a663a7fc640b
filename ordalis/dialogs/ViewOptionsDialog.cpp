/*
 * ViewOptionsDialog.cpp - the view options dialog ("View Options", dialog 2).
 */
#include "ViewOptionsDialog.h"

namespace corvane::cvnutildataio {

LgIndex_t Dialog2Manager = CVNGUI_BAD_ID;

void BuildDialog2(LgIndex_t ParentDialogID)
{
    if (Dialog2Manager != CVNGUI_BAD_ID)
        return;
    Dialog2Manager = CvnGUIDialogCreateModal(ParentDialogID, 300, 200, "View Options", nullptr,
                                                nullptr, nullptr, nullptr, nullptr);
}

} // namespace corvane::cvnutildataio
