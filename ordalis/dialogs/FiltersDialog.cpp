/*
 * FiltersDialog.cpp - the general filters dialog ("General Filters", dialog 6).
 */
#include "FiltersDialog.h"

namespace corvane::cvnutildataio {

LgIndex_t Dialog6Manager = CVNGUI_BAD_ID;

void BuildDialog6(LgIndex_t ParentDialogID)
{
    if (Dialog6Manager != CVNGUI_BAD_ID)
        return;
    Dialog6Manager = CvnGUIDialogCreateModal(ParentDialogID, 300, 200, "General Filters", nullptr,
                                                nullptr, nullptr, nullptr, nullptr);
}

} // namespace corvane::cvnutildataio
