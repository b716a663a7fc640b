/*
 * LoaderCallbacks.cpp - the load routine that every load ends in (a replay
 * of stored loader instructions, and the main dialog's OK button), and the
 * replay callback the host calls.
 *
 * Loader instructions are a host string list of two strings: the data
 * file's path, and either the instruction set as text or a reference
 * "CONFIGFNAME=<path>" to an instruction-set file.
 */
#include "LoaderCallbacks.h"

#include <cctype>
#include <cstdio>
#include <cstring>

#include "AddOnHost.h"
#include "FileDataSet.h"
#include "FileOpen.h"
#include "Progress.h"
#include "Reader.h"
#include "StringUtil.h"
#include "TextScan.h"
#include "Transfer.h"
#include "WholeFile.h"

namespace corvane::cvnutildataio {

#define TW_CONFIG_KEYWORD "CONFIGFNAME"
#define TW_INSTRUCTION_SOURCE "Tabwise add-on Data Loader"

/* Message of a failed open of a referenced instruction-set file; written
   and shown by internalLoaderCallback only. */
static char LoadMessage[1101];

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

/* Makes *Text the instruction text to read: a "CONFIGFNAME" reference is
   replaced by the whole content of the file it names. False after "Could
   not open configuration file ..." for a file that cannot be opened, and
   (silently) when its text cannot be held; *Text is then NULL or as it
   was. */
static bool ResolveConfigFileReference(char **Text)
{
    const char *Cursor = *Text;
    while (isspace((unsigned char)*Cursor))
        Cursor++;
    if (Str_ustrncmp(Cursor, TW_CONFIG_KEYWORD, strlen(TW_CONFIG_KEYWORD)) != 0)
        return true;

    char ConfigPath[1001];
    ParseConfigFileReference(Cursor + strlen(TW_CONFIG_KEYWORD), ConfigPath, sizeof(ConfigPath));
    FILE *File = corvane::filesystem::fileOpen(ConfigPath, "rb");
    if (File == nullptr) {
        snprintf(LoadMessage, sizeof(LoadMessage),
                 "Could not open configuration file \"%s\" for reading. Check disk space or "
                 "permissions.",
                 ConfigPath);
        CvnUtilDialogErrMsg(LoadMessage);
        return false;
    }
    CvnUtilStringDealloc(Text);
    *Text = TW_ReadWholeFile(File, "ConfigStr");
    fclose(File);
    return *Text != nullptr;
}

/* Scans the file under the instruction text and transfers it to the host.
   Sets *PlotType from the transfer. True when the file was scanned: a
   transfer that fails after a good scan still counts as read. On full
   success the instructions are stored with the data set as received, so a
   reference is read again on replay. */
static bool ScanAndTransfer(StringList_s *Instructions, const char *FileName,
                            const char *InstructionText, TW_ConfigInstructions_s *Instr,
                            TW_FileDataSet_s **DataSet, PlotType_e *PlotType)
{
    GlobalCancelled = FALSE;
    ScanInstructionSet(TW_INSTRUCTION_SOURCE, InstructionText, Instr);

    if (!ScanTextFile(DataSet, FileName, Instr, true)) {
        if (!GlobalCancelled)
            CvnUtilDialogErrMsg("Error reading input file");
        return false;
    }
    if (LoadDataIntoCorvane(*DataSet, *PlotType))
        CvnUtilImportSetLoaderInstr(TW_LOADER_NAME, Instructions);
    else if (!GlobalCancelled)
        CvnUtilDialogErrMsg("Error reading input file");
    return true;
}

/* Runs one load from the two loader-instruction strings inside a host data
   load. TRUE when the file was scanned (and normally transferred). From
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
    bool Scanned = false;
    bool NamedFile = false; /* the instructions name a data file */
    char *FileName = nullptr;
    char *InstructionText = nullptr;
    TW_ConfigInstructions_s *Instr = nullptr;
    TW_FileDataSet_s *DataSet = nullptr;

    if (Instructions == nullptr || CvnUtilStringListGetCount(Instructions) != 2) {
        CvnUtilDialogErrMsg(
            "Layout instructions for tabwise data loader add-on are not formatted correctly");
    } else {
        FileName = CvnUtilStringListGetString(Instructions, 1);
        InstructionText = CvnUtilStringListGetString(Instructions, 2);
        Instr = ImportInstructionsAlloc();
        NamedFile = FileName != nullptr && FileName[0] != '\0';
        if (!NamedFile)
            CvnUtilDialogErrMsg(
                "Missing filename parameter in ordalis loader loading instructions.");
        else if (InstructionText == nullptr || InstructionText[0] == '\0')
            CvnUtilDialogErrMsg(
                "Missing configuration parameter string in ordalis loader loading "
                "instructions.");
        else if (Instr == nullptr)
            CvnUtilDialogErrMsg("Out of memory");
        else if (ResolveConfigFileReference(&InstructionText))
            Scanned = ScanAndTransfer(Instructions, FileName, InstructionText, Instr, &DataSet,
                                      &PlotType);
    }

    /* A load that named a data file releases its scan under the release
       progress box, even when nothing was scanned. */
    if (NamedFile)
        ReleaseFileData(&DataSet);
    ImportInstructionsDealloc(&Instr);
    CvnUtilStringDealloc(&FileName);
    CvnUtilStringDealloc(&InstructionText);
    if (Scanned && CalledFromDialog)
        CvnUtilArgListAppendInt(ArgList, "InitialPlotType", PlotType);

    Boolean_t Result = Scanned ? TRUE : FALSE;
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

} // namespace corvane::cvnutildataio
