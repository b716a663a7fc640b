/*
 * LoaderCallbacks.cpp - the loader callbacks the host calls: the replay of
 * stored loader instructions, the loader-selected callback that opens the
 * main dialog, and the load routine both of them (and the dialog's OK
 * button) end in. Also the file-information record of the main dialog.
 *
 * Loader instructions are a host string list of two strings: the data
 * file's path, and either the instruction set as text or a reference
 * "CONFIGFNAME=<path>" to an instruction-set file.
 */
#include "LoaderCallbacks.h"

#include <cctype>
#include <cstdio>
#include <cstring>

#include "FileDataSet.h"
#include "Library.h"
#include "MainDialog.h"
#include "Reader.h"
#include "StringUtil.h"
#include "TW_Alloc.h"
#include "TextScan.h"
#include "Transfer.h"

namespace corvane::cvnutildataio {

#define TW_CONFIG_KEYWORD "CONFIGFNAME"
#define TW_INSTRUCTION_SOURCE "Tabwise add-on Data Loader"

/* Message of a failed open of a referenced instruction-set file; written
   and shown by internalLoaderCallback only. */
static char LoadMessage[1101];

/* New file information, all fields empty or 0; NULL after "Out of memory.
   Unable to allocate file map structure". Freed with FileInfoDealloc. */
TW_FileInfo_s *FileInfoAlloc()
{
    TW_FileInfo_s *FileInfo = (TW_FileInfo_s *)TW_Calloc(1, sizeof(TW_FileInfo_s));
    if (FileInfo == nullptr) {
        ShowDialogErrorMessage("Out of memory. Unable to allocate file map structure");
        return nullptr;
    }
    FileInfo->FileName[0] = '\0';
    FileInfo->DisplayName[0] = '\0';
    FileInfo->FileSize = 0;
    FileInfo->CurConfigIndex = 0;
    return FileInfo;
}

/* Frees *FileInfo and clears it; NULL is accepted. */
void FileInfoDealloc(TW_FileInfo_s **FileInfo)
{
    if (FileInfo == nullptr || *FileInfo == nullptr)
        return;
    TW_Free(*FileInfo);
    *FileInfo = nullptr;
}

/* Copies the file path of a "CONFIGFNAME" reference into Path (room for
   PathSize characters). Text points just past the keyword. The path
   follows the first "=" and blanks; in double quotes it ends before the
   closing quote (or runs to the end, trailing blanks cut), otherwise it
   ends before a double quote or at the end with trailing blanks cut. No
   "=" at all gives an empty path. */
static void ParseConfigFileReference(const char *Text, char *Path, size_t PathSize)
{
    const char *Start = strchr(Text, '=');
    if (Start == nullptr) {
        Path[0] = '\0';
        return;
    }
    Start++;
    while (isspace((unsigned char)*Start))
        Start++;

    bool Quoted = *Start == '"';
    if (Quoted)
        Start++;
    const char *End = strchr(Start, '"');
    if (End == nullptr) {
        End = Start + strlen(Start);
        while (End > Start && isspace((unsigned char)End[-1]))
            End--;
    }

    size_t Length = (size_t)(End - Start);
    if (Length >= PathSize)
        Length = PathSize - 1;
    memcpy(Path, Start, Length);
    Path[Length] = '\0';
}

/* Replaces the host string *Text by the whole content of the open file.
   False (no message) when the new string cannot be made; *Text is then
   NULL. The file is closed either way. */
static bool ReadConfigFileText(FILE *File, char **Text)
{
    fseek(File, 0, SEEK_END);
    long Size = ftell(File);
    rewind(File);
    if (Size < 0)
        Size = 0;

    CvnUtilStringDealloc(Text);
    *Text = CvnUtilStringAlloc(Size, "ConfigStr");
    if (*Text != nullptr) {
        size_t Read = fread(*Text, 1, (size_t)Size, File);
        (*Text)[Read] = '\0';
    }
    fclose(File);
    return *Text != nullptr;
}

/* Runs one load from the two loader-instruction strings inside a host data
   load. TRUE when the file was scanned (and normally transferred); on full
   success the instructions are stored with the data set as received. From
   the dialog the plot type of the transfer goes to the host as well. Every
   failure is reported here, except a cancel, which is silent. */
Boolean_t internalLoaderCallback(StringList_s *Instructions, char CalledFromDialog)
{
    CvnUtilLockStart(AddOnID);
    ArgList_s *ArgList = CvnUtilArgListAlloc();
    if (ArgList == nullptr) {
        CvnUtilLockFinish(AddOnID);
        return FALSE;
    }

    CvnUtilDataLoadStart();
    PlotType_e PlotType = PlotType_Sketch; /* the transfer overwrites it */
    Boolean_t Result = FALSE;
    bool PassPlotType = false;
    char *FileName = nullptr;
    char *InstructionText = nullptr;
    TW_ConfigInstructions_s *Instr = nullptr;
    TW_FileDataSet_s *DataSet = nullptr;

    if (Instructions == nullptr || CvnUtilStringListGetCount(Instructions) != 2) {
        CvnUtilDialogErrMsg(
            "Layout instructions for tabwise data loader add-on are not formatted correctly");
        goto Finish;
    }

    FileName = CvnUtilStringListGetString(Instructions, 1);
    InstructionText = CvnUtilStringListGetString(Instructions, 2);
    Instr = ImportInstructionsAlloc();

    if (FileName == nullptr || FileName[0] == '\0') {
        /* The data load is closed at once; nothing was read. */
        CvnUtilDialogErrMsg("Missing filename parameter in ordalis loader loading instructions.");
        CvnUtilStringDealloc(&FileName);
        CvnUtilStringDealloc(&InstructionText);
        ImportInstructionsDealloc(&Instr);
        CvnUtilDataLoadFinishX(ArgList);
        CvnUtilArgListDealloc(&ArgList);
        CvnUtilLockFinish(AddOnID);
        return FALSE;
    }
    if (InstructionText == nullptr || InstructionText[0] == '\0') {
        CvnUtilDialogErrMsg(
            "Missing configuration parameter string in ordalis loader loading instructions.");
        goto Release;
    }
    if (Instr == nullptr) {
        CvnUtilDialogErrMsg("Out of memory");
        goto Release;
    }

    {
        const char *Cursor = InstructionText;
        while (isspace((unsigned char)*Cursor))
            Cursor++;
        if (Str_ustrncmp(Cursor, TW_CONFIG_KEYWORD, strlen(TW_CONFIG_KEYWORD)) == 0) {
            char ConfigPath[1001];
            ParseConfigFileReference(Cursor + strlen(TW_CONFIG_KEYWORD), ConfigPath,
                                     sizeof(ConfigPath));
            FILE *File = corvane::filesystem::fileOpen(ConfigPath, "rb");
            if (File == nullptr) {
                snprintf(LoadMessage, sizeof(LoadMessage),
                         "Could not open configuration file \"%s\" for reading. Check disk "
                         "space or permissions.",
                         ConfigPath);
                CvnUtilDialogErrMsg(LoadMessage);
                goto Release;
            }
            if (!ReadConfigFileText(File, &InstructionText))
                goto Release;
        }
    }

    GlobalCancelled = FALSE;
    ScanInstructionSet(TW_INSTRUCTION_SOURCE, InstructionText, Instr);

    if (ScanTextFile(&DataSet, FileName, Instr, true)) {
        /* A transfer that fails after a good scan still counts as read. */
        Result = TRUE;
        PassPlotType = CalledFromDialog != 0;
        if (LoadDataIntoCorvane(DataSet, PlotType)) {
            /* Stored as received: a reference is read again on replay. */
            CvnUtilImportSetLoaderInstr(TW_LOADER_NAME, Instructions);
        } else if (!GlobalCancelled) {
            CvnUtilDialogErrMsg("Error reading input file");
        }
    } else if (!GlobalCancelled) {
        CvnUtilDialogErrMsg("Error reading input file");
    }

Release:
    ReleaseFileData(&DataSet);
    ImportInstructionsDealloc(&Instr);
    CvnUtilStringDealloc(&FileName);
    CvnUtilStringDealloc(&InstructionText);
    if (PassPlotType)
        CvnUtilArgListAppendInt(ArgList, "InitialPlotType", PlotType);

Finish:
    if (!CvnUtilDataLoadFinishX(ArgList))
        Result = FALSE;
    CvnUtilArgListDealloc(&ArgList);
    CvnUtilLockFinish(AddOnID);
    return Result;
}

/* Replays a stored load without any dialog. */
Boolean_t LoaderCallback(StringList_s *Instructions, long ClientData)
{
    (void)ClientData;
    return internalLoaderCallback(Instructions, FALSE);
}

/* The user picked the loader: prepares the file information and the
   library (entry 0 from LastUsedConfig, the rest from the library
   directory) and launches the main dialog. When the previous data file is
   no longer there, everything made is freed and no dialog is shown. */
void LoaderSelectedCallback(StringList_s *Instructions, char Flag, long ClientData)
{
    (void)Flag;
    (void)ClientData;
    CvnUtilLockStart(AddOnID);
    FileInfoDealloc(&GlobalFileInfo);

    GlobalFileInfo = FileInfoAlloc();
    if (GlobalFileInfo == nullptr) {
        char Message[256];
        snprintf(Message, sizeof(Message), "Not enough memory to run %s", TW_LOADER_NAME);
        ShowDialogErrorMessage(Message);
        CvnUtilLockFinish(AddOnID);
        return;
    }

    /* Entry 0 is the dialog's unsaved set, started from the last one used. */
    ImportInstructionsDealloc(&GlobalConfigInfoArray[0]);
    GlobalConfigInfoArray[0] = ImportInstructionsAlloc();
    if (GlobalConfigInfoArray[0] != nullptr) {
        TW_Strncpy(GlobalConfigInfoArray[0]->DisplayName, "<untitled>",
                   sizeof(GlobalConfigInfoArray[0]->DisplayName));
        TW_Strncpy(GlobalConfigInfoArray[0]->FilePath, "<untitled>",
                   sizeof(GlobalConfigInfoArray[0]->FilePath));
    }
    if (LastUsedConfig != nullptr)
        CopyInstructionSet(&GlobalConfigInfoArray[0], LastUsedConfig);

    char *PreviousFile = nullptr;
    if (Instructions != nullptr && CvnUtilStringListGetCount(Instructions) >= 1)
        PreviousFile = CvnUtilStringListGetString(Instructions, 1);

    if (ResetFile(PreviousFile, false)) {
        FillInstructionSetArray();
        BuildDialog1(CVNGUI_MAIN_DIALOG_ID);
        CvnGUIDialogLaunch(Dialog1Manager);
    } else {
        FileInfoDealloc(&GlobalFileInfo);
        CvnUtilLockStart(AddOnID);
        for (int Entry = 0; Entry < TW_MAX_CONFIGS; Entry++)
            ImportInstructionsDealloc(&GlobalConfigInfoArray[Entry]);
        CvnUtilLockFinish(AddOnID);
    }

    CvnUtilStringDealloc(&PreviousFile);
    CvnUtilLockFinish(AddOnID);
}

} // namespace corvane::cvnutildataio
