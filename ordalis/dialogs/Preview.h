/*
 * Preview.h - the data preview of the main dialog: the chosen file raw, with
 * line numbers, or as the current instruction set reads it; the view
 * options that choose what it shows; and the scanned data set it is made
 * from.
 */
#ifndef TW_PREVIEW_H
#define TW_PREVIEW_H

#include <cstdint>

#include "CvnAPI.h"
#include "FileDataSet.h"

namespace corvane::cvnutildataio {

/* The data set of the last scan of the chosen file (NULL when none); its
   needs-re-scan flag is set when the preview has become stale. Released
   with ReleaseFileData. */
extern TW_FileDataSet_s *GlobalFileData;

/* View options; they keep their values for the life of the add-on. */
extern int32_t ViewOptionsDialog_Limit;      /* 1 = limit lines, 2 = do not limit */
extern int32_t ViewOptionsDialog_LimitLines; /* the line limit, 1 .. 2147483647 */
extern bool ViewOptionsDialog_AutoProcess;   /* re-process on every change */
extern int32_t ViewOptionsDialog_Show;       /* 1 names and data, 2 names, 3 other lines */
extern int32_t ViewOptionsDialog_ShowFormat; /* 1 columns, 2 blocks */
/* The main dialog's view: 1 = raw data, 2 = processed data. */
extern int32_t MainDialog_ViewData;
/* The main dialog's preview text; CVNGUI_BAD_ID until dialog 1 is built. */
extern LgIndex_t Preview_T_D1;

/* LimitLines when Limit is 1, else 0 (no limit). */
int32_t TW_EffectiveLimit();
/* Fills the text control with the chosen file's raw lines, numbered; Limit
   0 or less means no limit. */
void FormatRawData(LgIndex_t TextID, int32_t Limit);
/* Fills the main dialog's preview by its view and the view options,
   scanning the file first when there is no scan or it is stale. */
void RefreshPreviewWindow();
/* Shows (On) or hides the host's busy indicator. */
void TW_PleaseWait(bool On);

} // namespace corvane::cvnutildataio

#endif
