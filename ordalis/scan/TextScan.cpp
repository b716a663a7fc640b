/*
 * TextScan.cpp - reads a text data file under an instruction set into a
 * scanned data set: set-up, the line loop with progress and cancel, and the
 * checks after the last line (missing values, titles, zone sizes).
 *
 * The per-line steps live in ScanLine.cpp. Lines come from the block
 * reader (LineReader.h) in place; nothing is allocated or copied per line.
 * Not re-entrant.
 */
#include "TextScan.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>

#include "DoubleArray.h"
#include "AddOnHost.h"
#include "FileOpen.h"
#include "MulDiv.h"
#include "Progress.h"
#include "LineReader.h"
#include "ScanState.h"
#include "StringUtil.h"
#include "VarList.h"

namespace corvane::cvnutildataio {

/* Longest fill question; longer texts are cut. */
#define TW_FILL_QUESTION_LENGTH 384

static const char OpenFailedMessage[] =
    "Cannot open file \"%s\" for reading.\nCheck disk space or permissions";
static const char LineTooLongMessage[] =
    "Error: Line %ld of this file is too long.\nThe maximum line length supported by %s is %lu "
    "bytes";
static const char ReadErrorMessage[] =
    "Cannot read file \"%s\" after line %ld: %s.\nThe file was not loaded";
static const char FillQuestion[] =
    "In zone %d, variable \"%s\", only %ld values were found, when %ld were expected. Would "
    "you like to fill the remaining values with 0.0?";
static const char OneVariableMessage[] =
    "Cannot expand 1-variable data file.\nZones must be all I-Ordered, all J-Ordered, or all "
    "IJK-Ordered";

/* Trims a filter marker in place unless it is all spaces and sets *Length
   to its length afterwards. False after "Out of memory" (marker unchanged). */
static bool TrimMarker(char *Marker, size_t Size, LgIndex_t *Length)
{
    if (!IsAllSpaces(Marker)) {
        char *Trimmed = TrimString(Marker);
        if (Trimmed == NULL) {
            ShowDialogErrorMessage("Out of memory");
            return false;
        }
        TW_Strncpy(Marker, Trimmed, Size);
        CvnUtilStringDealloc(&Trimmed);
    }
    *Length = (LgIndex_t)strlen(Marker);
    return true;
}

/* Progress of the read: percent of the file size, reported to the host
   only when it changes. NextTotal is the byte count at which the percent
   can next change, so most lines cost one comparison. */
typedef struct {
    int64_t FileSize;
    int64_t Total;     /* characters of the lines read so far */
    int64_t NextTotal; /* first total whose percent exceeds LastPercent */
    int LastPercent;
} TW_Progress_s;

static int64_t TotalForPercent(int64_t FileSize, int Percent)
{
    return (FileSize * Percent + 99) / 100;
}

/* Adds Length characters; false when the user cancelled. */
static bool AdvanceProgress(TW_Progress_s *Progress, size_t Length)
{
    Progress->Total += (int64_t)Length;
    if (Progress->Total < Progress->NextTotal)
        return true;
    int Percent;
    if (Progress->Total <= INT32_MAX && Progress->FileSize <= INT32_MAX)
        Percent = TW_MulDiv((int32_t)Progress->Total, 100, (int32_t)Progress->FileSize);
    else
        Percent = (int)(Progress->Total * 100 / Progress->FileSize);
    Progress->NextTotal = TotalForPercent(Progress->FileSize, Percent + 1);
    if (Percent == Progress->LastPercent)
        return true;
    Progress->LastPercent = Percent;
    return TW_CheckPercentDone(Percent);
}

/* Sets each variable's Selected flag from the set of variables to load
   (an empty set selects all). */
static void SelectVariables(TW_FileDataSet_s *DataSet, const TW_Variables_s *Vars)
{
    bool All = Vars->LoadedVars == NULL || CvnUtilSetIsEmpty(Vars->LoadedVars);
    for (int32_t Var = 0; Var < DataSet->NumVars; Var++)
        DataSet->VarList[Var].Selected =
            All || CvnUtilSetIsMember(Vars->LoadedVars, (LgIndex_t)Var + 1);
}

/* Explicit sizes: offers to fill each variable that has fewer values than
   its zone's NumPoints. False when the user declines or filling fails. A
   zone made without its value arrays (out of memory) has nothing to
   fill. */
static bool FillMissingValues(TW_FileDataSet_s *DataSet, double BlankValue)
{
    int ZoneNumber = 1;
    for (TW_ZoneInfo_s *Zone = DataSet->ZoneList; Zone != NULL; Zone = Zone->Next, ZoneNumber++) {
        for (int32_t Var = 0; Zone->VarValues != NULL && Var < Zone->NumVars; Var++) {
            TW_DoubleArray_s *Array = Zone->VarValues[Var];
            if (Array == NULL || Array->Count >= Zone->NumPoints)
                continue;
            char Question[TW_FILL_QUESTION_LENGTH + 1];
            const char *Name = Var < DataSet->NumVars ? DataSet->VarList[Var].Name : "";
            snprintf(Question, sizeof(Question), FillQuestion, ZoneNumber, Name,
                     (long)Array->Count, (long)Zone->NumPoints);
            if (!CvnUtilDialogMessageBox(Question, MessageBox_YesNo))
                return false;
            if (!TW_DoubleArrayFill(Array, Zone->NumPoints - Array->Count, BlankValue))
                return false;
        }
    }
    return true;
}

/* Final zone pass: counts the zones, checks their sizes and sets NumPoints.
   With automatic sizes IMax loses its starting 1. False after an error box. */
static bool FinishZones(TW_FileDataSet_s *DataSet, bool AutoSize)
{
    TW_ZoneInfo_s *First = DataSet->ZoneList;
    int32_t FirstI = First != NULL ? First->IMax : 0;
    int32_t FirstJ = First != NULL ? First->JMax : 0;
    int32_t FirstK = First != NULL ? First->KMax : 0;

    DataSet->NumZones = 0;
    for (TW_ZoneInfo_s *Zone = DataSet->ZoneList; Zone != NULL; Zone = Zone->Next) {
        DataSet->NumZones++;
        int32_t MinI = AutoSize ? 2 : 1;
        if (Zone->IMax < MinI || Zone->JMax < 1 || Zone->KMax < 1) {
            ShowDialogErrorMessage(
                "Error reading data file. No values found for one or more zones.");
            return false;
        }
        if (AutoSize)
            Zone->IMax--;
        Zone->NumPoints = TW_ZonePointCount(Zone->IMax, Zone->JMax, Zone->KMax);
        /* The first zone's sizes are those from before the lowering, so a
           one-variable file with automatic sizes always ends here. */
        if (DataSet->NumVars == 1 &&
            (Zone->IMax != FirstI || Zone->JMax != FirstJ || Zone->KMax != FirstK)) {
            ShowDialogErrorMessage(OneVariableMessage);
            return false;
        }
    }
    return true;
}

/* Reads the lines of File (named FileName in messages) into State; stops on
   end of file, a line that is too long, a read error (reported: what was
   read so far is not the whole file), a cancel, or a failure of a line
   step. Returns the number of lines read. Sets *Cancelled when the user
   pressed Cancel. */
static int32_t ReadLines(TW_ScanState_s *State, FILE *File, const char *FileName,
                         int64_t FileSize, bool *Cancelled)
{
    TW_Progress_s Progress = {FileSize, 0, INT64_MAX, 0};
    if (FileSize > 0)
        Progress.NextTotal = TotalForPercent(FileSize, 1);
    int32_t LineNumber = 0;

    TW_LineReader_s Reader;
    TW_LineReaderStart(&Reader, File);
    char *Line = NULL;
    size_t Read = 0;
    size_t Length = 0;
    while (!State->Stopped && (Line = TW_ReadLine(&Reader, &Read, &Length)) != NULL) {
        LineNumber++;
        /* Too long by the characters read, NUL bytes included, so that a
           file of NUL bytes ends here too. */
        if (Read == TW_MAX_LINE_LENGTH && Line[Read - 1] != '\n') {
            char Message[sizeof(LineTooLongMessage) + 64];
            snprintf(Message, sizeof(Message), LineTooLongMessage, (long)LineNumber,
                     TW_LOADER_NAME, (unsigned long)TW_MAX_LINE_LENGTH);
            ShowDialogErrorMessage(Message);
            State->Failed = true;
            break;
        }
        /* Length is the line's length as a C string: a NUL byte in the file
           ends the line there, as it always has for the steps that follow. */
        while (Length > 0 && (Line[Length - 1] == '\n' || Line[Length - 1] == '\r'))
            Line[--Length] = '\0';

        if (!AdvanceProgress(&Progress, Length)) {
            *Cancelled = true;
            break;
        }
        TW_ScanProcessLine(State, Line, Length, LineNumber);
    }
    if (Line == NULL && TW_LineReaderError(&Reader) != 0) {
        char Message[sizeof(ReadErrorMessage) + 1200];
        snprintf(Message, sizeof(Message), ReadErrorMessage, FileName, (long)LineNumber,
                 strerror(TW_LineReaderError(&Reader)));
        ShowDialogErrorMessage(Message);
        State->Failed = true;
    }
    return LineNumber;
}

/* Set-up steps that can fail after the file is open: filters, progress box,
   name list, title and variables given by name. False after a message. */
static bool StartScan(TW_ScanState_s *State)
{
    TW_ConfigInstructions_s *Instr = State->Instr;
    TW_FileDataSet_s *DataSet = State->DataSet;

    State->NameList = CvnUtilStringListAlloc();
    if (State->NameList == NULL) {
        ShowDialogErrorMessage("Out of memory");
        return false;
    }

    const TW_GlobalFilters_s *Filters = &Instr->GlobalFilters;
    State->BlankValue = Filters->UseBlankCellValue ? Filters->BlankCellValue : 0.0;
    State->FiltersOn = Filters->UseComment || Filters->UseKeyword || Filters->UseColumns;

    if (Instr->TitleSearchMode == SearchMode_None && Instr->TitleName[0] != '\0') {
        Str_TackOnString(&DataSet->Title, Instr->TitleName);
        State->TitleFound = true;
        if (DataSet->Title == NULL) {
            ShowDialogErrorMessage("Out of memory");
            return false;
        }
    }

    if (Instr->Variables.SearchMode == SearchMode_None) {
        CopyVarToVar(&DataSet->VarList, Instr->Variables.Names, &DataSet->NumVars,
                     Instr->Variables.NumNames);
        if (DataSet->NumVars < 1 || DataSet->VarList == NULL) {
            if (DataSet->VarList == NULL)
                DataSet->NumVars = 0;
            if (Instr->Variables.NumNames < 1)
                ShowDialogErrorMessage(
                    "No variables have been entered in the variables import dialog.");
            return false;
        }
        State->VarsComplete = true;
        if (!TW_ScanAddZone(State))
            return false;
    }
    return true;
}

/* Checks after the last line; true when the data set is complete. */
static bool FinishScan(TW_ScanState_s *State, bool Cancelled)
{
    TW_FileDataSet_s *DataSet = State->DataSet;
    const TW_ConfigInstructions_s *Instr = State->Instr;
    bool GoOn = !State->Failed && !Cancelled;

    if (GoOn && DataSet->NumVars > 0)
        SelectVariables(DataSet, &Instr->Variables);
    /* Missing values are offered for filling whatever ended the reading,
       a failure or a cancel included; the scan fails afterwards all the
       same. */
    if (State->ReadData && !Instr->Dimension.Auto &&
        !FillMissingValues(DataSet, State->BlankValue))
        GoOn = false;
    if (!GoOn)
        return false;

    if ((DataSet->Title == NULL || DataSet->Title[0] == '\0') &&
        !Str_ReplaceString(&DataSet->Title, "New Dataset")) {
        ShowDialogErrorMessage("Out of memory");
        return false;
    }

    if (DataSet->NumVars < 1) {
        ShowDialogErrorMessage("No variables found in this file");
        return false;
    }
    if (!State->ReadData)
        return true;
    if (State->DataStarted && !State->ValueStored) {
        ShowDialogErrorMessage("No numeric data was found in this file.");
        return false;
    }
    if (!State->DataStarted) {
        ShowDialogErrorMessage("No data section found in this file");
        return false;
    }
    return FinishZones(DataSet, Instr->Dimension.Auto);
}

/* Points State at the ends of what an existing data set already holds, so
   that new zones and text lines are appended after them. */
static void AttachDataSet(TW_ScanState_s *State, TW_FileDataSet_s *DataSet)
{
    State->DataSet = DataSet;
    for (TW_ZoneInfo_s *Zone = DataSet->ZoneList; Zone != NULL; Zone = Zone->Next)
        State->LastZone = Zone;
    for (TW_TextLine_s *Line = DataSet->RawLineList; Line != NULL; Line = Line->Next)
        State->LastTextLine = Line;
}

bool ScanTextFile(TW_FileDataSet_s **DataSet, const char *FileName,
                  TW_ConfigInstructions_s *Instr, bool ReadData)
{
    if (*DataSet == NULL) {
        *DataSet = FileDataSetAlloc();
        if (*DataSet == NULL)
            return false;
    }

    FILE *File = corvane::filesystem::fileOpen(FileName, "r");
    if (File == NULL) {
        char Message[sizeof(OpenFailedMessage) + 1024];
        snprintf(Message, sizeof(Message), OpenFailedMessage, FileName);
        ShowDialogErrorMessage(Message);
        FileDataSetDealloc(DataSet);
        return false;
    }

    TW_GlobalFilters_s *Filters = &Instr->GlobalFilters;
    if ((Filters->UseComment &&
         !TrimMarker(Filters->Comment, sizeof(Filters->Comment), &Filters->CommentLength)) ||
        (Filters->UseKeyword &&
         !TrimMarker(Filters->Keyword, sizeof(Filters->Keyword), &Filters->KeywordLength))) {
        fclose(File);
        FileDataSetDealloc(DataSet);
        return false;
    }

    CvnUtilDialogLaunchPercentDone("Scanning file...", TRUE);

    std::map<std::string, bool> NameMap;
    TW_ScanState_s State = {};
    AttachDataSet(&State, *DataSet);
    State.Instr = Instr;
    State.ReadData = ReadData;
    State.NameMap = &NameMap;
    State.ZoneCounter = 1;
    /* Without data reading the data section counts as already passed. */
    State.DataEnded = !ReadData;

    bool Cancelled = false;
    bool Success = false;
    if (StartScan(&State)) {
        fseek(File, 0, SEEK_END);
        int64_t FileSize = (int64_t)ftell(File);
        rewind(File);
        (*DataSet)->TotalLines = ReadLines(&State, File, FileName, FileSize, &Cancelled);
        Success = FinishScan(&State, Cancelled);
    }

    if (State.NameList != NULL)
        CvnUtilStringListDealloc(&State.NameList);
    NameMap.clear();
    fclose(File);
    CvnUtilDialogDropPercentDone();
    if (!Success)
        FileDataSetDealloc(DataSet);
    return Success;
}

} // namespace corvane::cvnutildataio
