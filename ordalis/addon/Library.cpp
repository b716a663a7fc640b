/*
 * Library.cpp - the instruction-set library: finding the library directory,
 * reading its instruction-set files into GlobalConfigInfoArray, and the
 * add, delete, find and clear operations of the main dialog.
 *
 * Entries are packed at the front of the array; entry 0 is the dialog's
 * unsaved set, entries 1, 2, ... the files in directory-listing order.
 */
#include "Library.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>

#include "AddOnHost.h"
#include "FileInfo.h"
#include "FileOpen.h"
#include "Reader.h"
#include "StringUtil.h"
#include "WholeFile.h"
#include "Writer.h"

namespace corvane::cvnutildataio {

#define TW_PROGRESS_MIN_FILES 5 /* fewer files are read without a progress box */

/* The library: entry 0 is the dialog's unsaved set, then the files; NULL
   entries only after the last set. Filled when the main dialog opens,
   emptied when it closes. */
TW_ConfigInstructions_s *GlobalConfigInfoArray[TW_MAX_CONFIGS] = {};
/* The set of the last load from the dialog; made at start-up, freed at the
   host's quit. */
TW_ConfigInstructions_s *LastUsedConfig = nullptr;

/* Full path of the directory entry under test in FillInstructionSetArray. */
static char EntryPath[1001 + 1 + 256];

/* *Dir becomes a new host string of 1001 characters: $ORDALIS_DIR as it
   stands, else <host home>/addonconfig/tabwise. False after "Out of memory"
   (then *Dir is NULL). The caller frees the string. */
bool GetBaseInstructionSetDir(char **Dir)
{
    *Dir = CvnUtilStringAlloc(1000, "Ordalis Base Directory");
    if (*Dir == nullptr) {
        ShowDialogErrorMessage("Out of memory");
        return false;
    }

    const char *Env = getenv("ORDALIS_DIR");
    if (Env != nullptr) {
        TW_Strncpy(*Dir, Env, 1001);
        return true;
    }

    char *Home = CvnUtilCorvaneGetHomeDirectory();
    snprintf(*Dir, 1001, "%s/%s/%s", Home ? Home : "", "addonconfig", "tabwise");
    CvnUtilStringDealloc(&Home);
    return true;
}

/* Appends to Names the file name of every regular instruction-set file of
   Dir. Silent when the directory cannot be opened. */
static void ListInstructionSetFiles(const char *Dir, StringList_s *Names)
{
    CvnUtilLockStart(AddOnID);
    DIR *Directory = opendir(Dir);
    if (Directory != nullptr) {
        struct dirent *Entry;
        while ((Entry = readdir(Directory)) != nullptr) {
            struct stat Status;
            snprintf(EntryPath, sizeof(EntryPath), "%s/%s", Dir, Entry->d_name);
            if (stat(EntryPath, &Status) == 0 && S_ISREG(Status.st_mode) &&
                IsInstructionSetFile(EntryPath))
                CvnUtilStringListAppendString(Names, Entry->d_name);
        }
        closedir(Directory);
    }
    CvnUtilLockFinish(AddOnID);
}

/* Reads the open file into Set. A file whose text cannot be held leaves
   the defaults after "Out of memory". The file stays open. */
static void ReadInstructionSetFile(FILE *File, TW_ConfigInstructions_s *Set)
{
    char *Text = TW_ReadWholeFile(File, "InstructionString");
    if (Text == nullptr) {
        ShowDialogErrorMessage("Out of memory");
        return;
    }
    Set->IsNew = false;
    ScanInstructionSet(Set->FilePath, Text, Set);
    CvnUtilStringDealloc(&Text);
}

/* Reads every instruction-set file of the library directory into entries
   1, 2, ... in listing order (at most up to entry 63). A file that cannot be
   opened or held stays as an entry with defaults; a missing directory is
   silent. Five files or more are read under a progress box. */
void FillInstructionSetArray()
{
    StringList_s *Names = CvnUtilStringListAlloc();
    if (Names == nullptr) {
        ShowDialogErrorMessage("Out of memory. Unable to allocate string list");
        return;
    }
    char *Dir = nullptr;
    if (!GetBaseInstructionSetDir(&Dir)) {
        CvnUtilStringListDealloc(&Names);
        return;
    }

    ListInstructionSetFiles(Dir, Names);
    LgIndex_t Count = CvnUtilStringListGetCount(Names);
    bool ShowProgress = Count >= TW_PROGRESS_MIN_FILES;
    if (ShowProgress)
        CvnUtilDialogLaunchPercentDone("Reading instruction files...", FALSE);

    /* Entry 0 belongs to the dialog; the files go to 1 .. 63 at most. */
    for (LgIndex_t Index = 1; Index <= Count && Index < TW_MAX_CONFIGS; Index++) {
        if (ShowProgress && !CvnUtilDialogCheckPercentDone(0))
            break;
        char *Name = CvnUtilStringListGetString(Names, Index);
        if (Name == nullptr)
            continue;

        TW_ConfigInstructions_s **Entry = &GlobalConfigInfoArray[Index];
        ImportInstructionsDealloc(Entry);
        *Entry = ImportInstructionsAlloc();
        if (*Entry == nullptr) {
            ShowDialogErrorMessage("Out of memory.");
            CvnUtilStringDealloc(&Name);
            break;
        }
        snprintf((*Entry)->FilePath, sizeof((*Entry)->FilePath), "%s/%s", Dir, Name);
        TW_Strncpy((*Entry)->DisplayName, Name, sizeof((*Entry)->DisplayName));

        FILE *File = corvane::filesystem::fileOpen((*Entry)->FilePath, "rb");
        if (File == nullptr) {
            char Message[1200];
            snprintf(Message, sizeof(Message),
                     "Unable to open file \"%s\" for reading.\nCheck disk space or permissions.",
                     (*Entry)->FilePath);
            ShowDialogErrorMessage(Message);
        } else {
            ReadInstructionSetFile(File, *Entry);
            fclose(File);
        }
        CvnUtilStringDealloc(&Name);
    }

    if (ShowProgress)
        CvnUtilDialogDropPercentDone();
    CvnUtilStringDealloc(&Dir);
    CvnUtilStringListDealloc(&Names);
}

/* Stores Set in the first free entry; the array then owns it. False after
   a message when all entries are taken (the caller keeps Set). */
bool AddConfigToInstructionSetArray(TW_ConfigInstructions_s *Set)
{
    for (int Index = 0; Index < TW_MAX_CONFIGS; Index++)
        if (GlobalConfigInfoArray[Index] == nullptr) {
            GlobalConfigInfoArray[Index] = Set;
            return true;
        }
    char Message[256];
    snprintf(Message, sizeof(Message),
             "Cannot add a new configuration file. The maximum number of configuration files is %d",
             TW_MAX_CONFIGS);
    ShowDialogErrorMessage(Message);
    return false;
}

/* Frees entry Index and closes the gap; the last entry becomes NULL. */
void DeleteConfigFromInstructionSetArray(int Index)
{
    if (Index < 0 || Index >= TW_MAX_CONFIGS)
        return;
    ImportInstructionsDealloc(&GlobalConfigInfoArray[Index]);
    if (Index < TW_MAX_CONFIGS - 1)
        memmove(&GlobalConfigInfoArray[Index], &GlobalConfigInfoArray[Index + 1],
                sizeof(GlobalConfigInfoArray[0]) * (size_t)(TW_MAX_CONFIGS - 1 - Index));
    GlobalConfigInfoArray[TW_MAX_CONFIGS - 1] = nullptr;
}

/* True when some entry's FilePath equals Path, ignoring case. */
bool FileNameExistsInInstructionSetArray(const char *Path)
{
    for (int Index = 0; Index < TW_MAX_CONFIGS; Index++)
        if (GlobalConfigInfoArray[Index] != nullptr &&
            Str_ustrcmp(GlobalConfigInfoArray[Index]->FilePath, Path) == 0)
            return true;
    return false;
}

/* Frees every entry. With AskToSave, each modified set is first offered
   for saving to its own file in a yes/no box. */
void ClearInstructionSetArray(bool AskToSave)
{
    CvnUtilLockStart(AddOnID);
    for (int Index = 0; Index < TW_MAX_CONFIGS; Index++) {
        TW_ConfigInstructions_s **Entry = &GlobalConfigInfoArray[Index];
        if (*Entry == nullptr)
            continue;
        if (AskToSave && (*Entry)->IsModified) {
            char Question[1101];
            snprintf(Question, sizeof(Question), "Save configuration file %s?",
                     (*Entry)->DisplayName);
            if (CvnUtilDialogMessageBox(Question, MessageBox_YesNo))
                SaveConfigFile((*Entry)->FilePath, *Entry);
        }
        ImportInstructionsDealloc(Entry);
    }
    CvnUtilLockFinish(AddOnID);
}

/* The current set of the open main dialog (GlobalFileInfo must exist). */
TW_ConfigInstructions_s *GetCurConfigPtr()
{
    return GlobalConfigInfoArray[GlobalFileInfo->CurConfigIndex];
}

} // namespace corvane::cvnutildataio
