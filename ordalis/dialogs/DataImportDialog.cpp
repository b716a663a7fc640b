/*
 * DataImportDialog.cpp - the data import dialog ("Data Import Instructions", dialog 5).
 */
#include "DataImportDialog.h"

namespace corvane::cvnutildataio {

LgIndex_t Dialog5Manager = CVNGUI_BAD_ID;

void BuildDialog5(LgIndex_t ParentDialogID)
{
    if (Dialog5Manager != CVNGUI_BAD_ID)
        return;
    Dialog5Manager = CvnGUIDialogCreateModal(ParentDialogID, 300, 200, "Data Import Instructions", nullptr,
                                                nullptr, nullptr, nullptr, nullptr);
}

} // namespace corvane::cvnutildataio
