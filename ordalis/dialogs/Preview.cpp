/*
 * Preview.cpp - the raw and processed views of the main dialog's preview.
 */
#include "Preview.h"

namespace corvane::cvnutildataio {

TW_FileDataSet_s *GlobalFileData = nullptr;
int32_t ViewOptionsDialog_Limit = 1;
int32_t ViewOptionsDialog_LimitLines = 200;
bool ViewOptionsDialog_AutoProcess = false;
int32_t ViewOptionsDialog_Show = 1;
int32_t ViewOptionsDialog_ShowFormat = 1;
int32_t MainDialog_ViewData = 1;

int32_t TW_EffectiveLimit()
{
    return ViewOptionsDialog_Limit == 1 ? ViewOptionsDialog_LimitLines : 0;
}

void FormatRawData(LgIndex_t TextID, int32_t Limit)
{
    (void)TextID;
    (void)Limit;
}

void RefreshPreviewWindow()
{
}

void TW_PleaseWait(bool On)
{
    (void)On;
}

} // namespace corvane::cvnutildataio
