/*
 * TitleDialog.cpp - the title dialog ("Dataset Title", dialog 3).
 */
#include "TitleDialog.h"

namespace corvane::cvnutildataio {

LgIndex_t Dialog3Manager = CVNGUI_BAD_ID;

void BuildDialog3(LgIndex_t ParentDialogID)
{
    if (Dialog3Manager != CVNGUI_BAD_ID)
        return;
    Dialog3Manager = CvnGUIDialogCreateModal(ParentDialogID, 300, 200, "Dataset Title", nullptr,
                                                nullptr, nullptr, nullptr, nullptr);
}

} // namespace corvane::cvnutildataio
