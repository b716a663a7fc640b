/*
 * Globals.h - the add-on's global state, created at start-up and freed at
 * the host's quit.
 */
#ifndef TW_GLOBALS_H
#define TW_GLOBALS_H

#include "CvnAPI.h"
#include "DoubleArray.h"
#include "Instructions.h"

namespace corvane::cvnutildataio {

#define TW_LOADER_NAME "Ordalis Loader"
#define TW_MAX_CONFIGS 64

/* Chosen data file of the open main dialog. */
typedef struct {
    char FileName[1001];
    char DisplayName[1001];
    int32_t FileSize;
    int32_t CurConfigIndex; /* 0-based entry of GlobalConfigInfoArray */
} TW_FileInfo_s;

extern AddOn_pa AddOnID;
extern Boolean_t IsWin95;
extern Boolean_t GlobalCancelled;
extern TW_DoubleArray_s *GlobalLineBuffer;
extern TW_ConfigInstructions_s *LastUsedConfig;
extern TW_ConfigInstructions_s *GlobalConfigInfoArray[TW_MAX_CONFIGS];
extern TW_FileInfo_s *GlobalFileInfo;

/* Shows Text in the host's modal error box. */
void ShowDialogErrorMessage(const char *Text);

} // namespace corvane::cvnutildataio

#endif
