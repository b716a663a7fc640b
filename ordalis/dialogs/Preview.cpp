/*
 * Preview.cpp - the main dialog's preview: the view options, the raw view
 * of the chosen file and the refresh that picks the raw or processed view.
 */
#include "Preview.h"

#include <cmath>
#include <cstdio>

#include "DialogText.h"
#include "FileInfo.h"
#include "FileOpen.h"
#include "Library.h"
#include "ProcessedView.h"
#include "Progress.h"
#include "StringUtil.h"
#include "TextScan.h"

namespace corvane::cvnutildataio {

/* Room for the longest line read (64000 characters, its line end and the
   terminator) with some to spare. */
#define TW_RAW_LINE_BUFFER 64065

TW_FileDataSet_s *GlobalFileData = nullptr;
int32_t ViewOptionsDialog_Limit = 1;
int32_t ViewOptionsDialog_LimitLines = 200;
bool ViewOptionsDialog_AutoProcess = false;
int32_t ViewOptionsDialog_Show = 1;
int32_t ViewOptionsDialog_ShowFormat = 1;
int32_t MainDialog_ViewData = 1;
LgIndex_t Preview_T_D1 = CVNGUI_BAD_ID;

/* The line being shown by FormatRawData. */
static char RawLine[TW_RAW_LINE_BUFFER];

int32_t TW_EffectiveLimit()
{
    return ViewOptionsDialog_Limit == 1 ? ViewOptionsDialog_LimitLines : 0;
}

/* True when the open main dialog has a data file chosen. */
static bool FileIsChosen()
{
    return GlobalFileInfo != nullptr && GlobalFileInfo->FileName[0] != '\0';
}

/* Empties TextID, then shows the chosen file's lines as read (line ends
   included), each behind its number right-aligned in as many digits as the
   limit has (4 without a limit) and ": ". Stops after line Limit when Limit
   is 1 or more. Nothing without a chosen file; "Unable to open file:\n" and
   the name when it cannot be opened. Lines longer than 64000 characters are
   shown in pieces of 64000, each numbered as a line. */
void FormatRawData(LgIndex_t TextID, int32_t Limit)
{
    CvnGUITextSetString(TextID, "");
    if (!FileIsChosen())
        return;

    FILE *File = corvane::filesystem::fileOpen(GlobalFileInfo->FileName, "r");
    if (File == nullptr) {
        TW_AppendText(TextID, "Unable to open file:\n");
        TW_AppendText(TextID, GlobalFileInfo->FileName);
        return;
    }

    int Width = Limit <= 0 ? 4 : (int)ceil(log10((double)Limit + 1.0));
    int32_t LineNumber = 0;
    while (fgets(RawLine, TW_MAX_LINE_LENGTH + 1, File) != nullptr) {
        char Prefix[32];
        LineNumber++;
        snprintf(Prefix, sizeof(Prefix), "%*d: ", Width, (int)LineNumber);
        TW_AppendText(TextID, Prefix);
        TW_AppendText(TextID, RawLine);
        if (Limit >= 1 && LineNumber == Limit)
            break;
    }
    fclose(File);
}

/* Fills the main dialog's preview: the raw view (under the effective
   limit) when the dialog shows raw data, else the processed view chosen by
   the view options. The processed view scans the chosen file with the
   current set first when there is no scan or it is stale; a failed scan
   leaves "File scan cancelled" or "[Error scanning file]". Without a
   chosen file the preview stays empty. */
void RefreshPreviewWindow()
{
    CvnGUITextSetString(Preview_T_D1, "");
    TW_PleaseWait(true);

    if (MainDialog_ViewData == 1) {
        FormatRawData(Preview_T_D1, TW_EffectiveLimit());
        TW_PleaseWait(false);
        return;
    }
    if (!FileIsChosen()) {
        TW_PleaseWait(false);
        return;
    }

    GlobalCancelled = FALSE;
    if (GlobalFileData == nullptr || GlobalFileData->NeedsRescan) {
        ReleaseFileData(&GlobalFileData);
        if (!ScanTextFile(&GlobalFileData, GlobalFileInfo->FileName, GetCurConfigPtr(), true)) {
            CvnGUITextSetString(Preview_T_D1,
                                GlobalCancelled ? "File scan cancelled" : "[Error scanning file]");
            TW_PleaseWait(false);
            return;
        }
    }

    FormatProcessedData(Preview_T_D1, GlobalFileData, ViewOptionsDialog_Show,
                        ViewOptionsDialog_ShowFormat, TW_EffectiveLimit());
    TW_PleaseWait(false);
}

/* The host's busy indicator, without a message of its own. */
void TW_PleaseWait(bool On)
{
    CvnUtilPleaseWait(nullptr, On ? TRUE : FALSE);
}

} // namespace corvane::cvnutildataio
