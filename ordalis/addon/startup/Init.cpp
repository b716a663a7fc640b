/*
 * Init.cpp - start-up and lifecycle of the add-on: the exported entry point
 * registers the add-on, its loader, its state-change and quit-query
 * callbacks and creates the long-lived global state; the quit state change
 * frees it again.
 */
#include "Init.h"

#include <cstdio>

#include "AddOnHost.h"
#include "FileInfo.h"
#include "Instructions.h"
#include "Library.h"
#include "LineFilters.h"
#include "LoaderCallbacks.h"
#include "LoaderSelected.h"
#include "MainDialog.h"

#define TW_ADDON_VERSION "1.0.0"
#define TW_ADDON_AUTHOR "Corvane Ordalis team"
#define TW_MIN_HOST_VERSION 900000
#define TW_MIN_HOST_VERSION_TEXT "9.0-0-0"
#define TW_HOST_API_LEVEL 100

namespace corvane::cvnutildataio {

/* Version text given to the host at registration; formatted once. */
static char AddOnInfoString[256];

Boolean_t QueryQuitCallback(void)
{
    if (CvnGUIDialogIsUp(Dialog1Manager)) {
        CvnUtilDialogErrMsg("Please close the ordalis loader dialog before quitting Corvane");
        return FALSE;
    }
    return TRUE;
}

void StateChangeCallback(StateChange_e StateChange, long CallData)
{
    (void)CallData;
    if (StateChange != StateChange_Quit)
        return;
    CvnUtilLockStart(AddOnID);
    FileInfoDealloc(&GlobalFileInfo);
    ImportInstructionsDealloc(&LastUsedConfig);
    TW_LineFiltersRelease();
    CvnUtilLockFinish(AddOnID);
}

void InitTGB(void)
{
}

/* Registers the data loader under its name with both callbacks. The
   results of the appends and of the registration are not checked: a host
   that refuses simply does not offer the loader. */
static void RegisterLoader()
{
    ArgList_s *ArgList = CvnUtilArgListAlloc();
    CvnUtilArgListAppendString(ArgList, "LoaderName", TW_LOADER_NAME);
    CvnUtilArgListAppendString(ArgList, "FileNameExtensions", "*.txt");
    CvnUtilArgListAppendInt(ArgList, "LoaderCallbackVersion", 2);
    CvnUtilArgListAppendFunction(ArgList, "LoaderCallback",
                                 reinterpret_cast<const void *>(&LoaderCallback));
    CvnUtilArgListAppendFunction(ArgList, "LoaderSelectedCallback",
                                 reinterpret_cast<const void *>(&LoaderSelectedCallback));
    CvnUtilArgListAppendInt(ArgList, "AllowMultiFileSelection", FALSE);
    CvnUtilArgListAppendInt(ArgList, "LoaderAdvancedOptions", 2);
    CvnUtilImportAddLoaderX(ArgList);
    CvnUtilArgListDealloc(&ArgList);
}

} // namespace corvane::cvnutildataio

using namespace corvane::cvnutildataio;

extern "C" __attribute__((visibility("default"))) void InitCvnAddOn113(void)
{
    CvnUtilLockOn();

    if (CvnUtilGetCorvaneVersion() < TW_MIN_HOST_VERSION) {
        char Message[256];
        snprintf(Message, sizeof(Message), "%s requires Corvane version %s or greater",
                 TW_LOADER_NAME, TW_MIN_HOST_VERSION_TEXT);
        CvnUtilDialogErrMsg(Message);
        CvnUtilLockOff();
        return;
    }

    snprintf(AddOnInfoString, sizeof(AddOnInfoString), "V%s (%s) %s", TW_ADDON_VERSION,
             TW_ADDON_VERSION, __DATE__);
    AddOnID = CvnUtilAddOnRegister(TW_HOST_API_LEVEL, TW_LOADER_NAME, AddOnInfoString,
                                   TW_ADDON_AUTHOR);
    InitTGB();
    CvnUtilStateChangeAddCallback(StateChangeCallback);
    RegisterLoader();

    for (int Entry = 0; Entry < TW_MAX_CONFIGS; Entry++)
        GlobalConfigInfoArray[Entry] = nullptr;
    LastUsedConfig = ImportInstructionsAlloc();
    TW_LineFiltersStart();
    IsWin95 = FALSE;

    CvnUtilQuitAddQueryCallback(QueryQuitCallback);
    CvnUtilLockOff();
}
