/*
 * ScanLine.cpp - the per-line steps of the text file scan: filters, title,
 * variable lines, the data section with its start, end and zone markers,
 * the placing of a line's values into zones, and the kept text lines.
 */
#include <cstdio>
#include <cstring>

#include "DoubleArray.h"
#include "AddOnHost.h"
#include "DataTokenizer.h"
#include "LineFilters.h"
#include "NumList.h"
#include "ScanState.h"
#include "StringUtil.h"
#include "TW_Alloc.h"
#include "VarList.h"

namespace corvane::cvnutildataio {

/* Copy of the title line for the tokeniser, which writes into its input. */
static char TitleBuffer[TW_MAX_LINE_LENGTH + 1];

/* Title given for a title line inside the variable lines. */
#define TW_TITLE_IN_VAR_RANGE "New data set"

static const char TitleInRangeMessage[] =
    "The file line with the data set title cannot be within the range of the file line(s) "
    "with the variables.\nThe title of the data set will be set to the default: \"New data "
    "set.\".";
static const char DuplicateMessage[] =
    "One or more duplicate variable names found. The ordalis loader does not support "
    "duplicate variables names. Any duplicate variable names found will be appended with "
    "numbers so that they are unique.";
static const char VarsIncompleteMessage[] =
    "The start of the data section was reached before all of the variables were found. The "
    "ordalis loader requires that the variables be defined, either in the file dialog or in "
    "the file itself, before the data is located in the file.";
static const char NonNumericQuestion[] =
    "Non-numeric data found on line %ld. Do you wish to continue reading the file?";
static const char MismatchQuestion[] =
    "Expected to find %d data values on line %d, but %d data values were found.\nIt is "
    "recommended to specify a value for blanked cells and restart.\nContinue processing?";
static const char NotEnoughVarsMessage[] =
    "Not enough variables have been defined for this data set.\nReading of data stopped";
static const char ExtraPointsMessage[] =
    "%ld extra data points found on line %ld.\nThese extra data points will be ignored.";

/* Marks the scan failed and stops the reading of lines. */
static void FailScan(TW_ScanState_s *State)
{
    State->Failed = true;
    State->Stopped = true;
}

/* Appends a text line record (first 255 characters of Text) to the data set;
   a failed allocation is reported and fails the scan. */
static void KeepTextLine(TW_ScanState_s *State, int32_t LineNumber, const char *Text)
{
    if (!State->ReadData || State->Stopped)
        return;
    TW_TextLine_s *Record = (TW_TextLine_s *)TW_Malloc(sizeof(TW_TextLine_s));
    if (Record == NULL) {
        ShowDialogErrorMessage("Out of memory");
        FailScan(State);
        return;
    }
    Record->LineNumber = LineNumber;
    TW_Strncpy(Record->Text, Text, sizeof(Record->Text));
    Record->Next = NULL;
    if (State->LastTextLine != NULL)
        State->LastTextLine->Next = Record;
    else
        State->DataSet->RawLineList = Record;
    State->LastTextLine = Record;
    if (LineNumber > State->DataSet->MaxTextLineNumber)
        State->DataSet->MaxTextLineNumber = LineNumber;
}

bool TW_ScanAddZone(TW_ScanState_s *State)
{
    TW_FileDataSet_s *DataSet = State->DataSet;
    if (!AddNewZone(&DataSet->ZoneList, &State->LastZone, &State->ZoneCounter,
                    DataSet->NumVars, &State->Instr->Dimension))
        return false;
    /* A zone without its name or arrays was reported by AddNewZone; it
       cannot be used. */
    TW_ZoneInfo_s *Zone = State->LastZone;
    if (Zone->ZoneName == NULL || (Zone->NumVars > 0 && Zone->VarValues == NULL))
        return false;
    for (int32_t Var = 0; Var < Zone->NumVars; Var++)
        if (Zone->VarValues[Var] == NULL)
            return false;
    return true;
}

/* Stores Value in the zone's array of variable Var; an allocation failure
   (reported by the array) fails the scan. */
static bool StoreValue(TW_ScanState_s *State, int32_t Var, double Value)
{
    if (!TW_DoubleArrayAdd(State->LastZone->VarValues[Var], Value)) {
        FailScan(State);
        return false;
    }
    State->ValueStored = true;
    return true;
}

/* Makes Title the data set's title; a failed copy is reported and fails the
   scan. */
static void SetTitle(TW_ScanState_s *State, const char *Title)
{
    State->TitleFound = true;
    if (!Str_ReplaceString(&State->DataSet->Title, Title)) {
        ShowDialogErrorMessage("Out of memory");
        FailScan(State);
    }
}

/* True when Line is the title line: the line numbered TITLE LINE, or the
   first line holding the title keyword. */
static bool IsTitleLine(const TW_ConfigInstructions_s *Instr, const char *Line,
                        int32_t LineNumber)
{
    if (Instr->TitleSearchMode == SearchMode_Line)
        return LineNumber == Instr->TitleLine;
    if (Instr->TitleSearchMode == SearchMode_Keyword)
        return Str_ustrstr(Line, Instr->TitleKeyword) != NULL;
    return false;
}

/* Title step; true when the line was taken as the title line and is done. */
static bool TakeTitle(TW_ScanState_s *State, const char *Line, int32_t LineNumber)
{
    TW_ConfigInstructions_s *Instr = State->Instr;
    const TW_Variables_s *Vars = &Instr->Variables;
    if (!IsTitleLine(Instr, Line, LineNumber))
        return false;

    if (Vars->SearchMode == SearchMode_Line && LineNumber >= Vars->StartLine &&
        LineNumber <= Vars->EndLine) {
        CvnUtilDialogMessageBox(TitleInRangeMessage, MessageBox_Information);
        SetTitle(State, TW_TITLE_IN_VAR_RANGE);
        return false; /* the line is a variable line as well */
    }

    memcpy(TitleBuffer, Line, strlen(Line) + 1);
    const char *Token = TW_strtok(TitleBuffer, Instr->TitleDelimiter, Instr->TitleWidth, true);
    if (Token == NULL || Token[0] == '\0')
        return false;
    SetTitle(State, Token);
    return true;
}

/* Variable step for a line of the variable range: every token is a name;
   duplicates get their position on the line appended. The end line closes
   the range, makes the data set's variables and its first zone. */
static void TakeVariableLine(TW_ScanState_s *State, char *Line, int32_t LineNumber)
{
    const TW_Variables_s *Vars = &State->Instr->Variables;
    int Position = 0;
    for (char *Token = TW_strtok(Line, Vars->Delimiter, Vars->Width, true); Token != NULL;
         Token = TW_strtok(NULL, Vars->Delimiter, Vars->Width, true)) {
        Position++;
        std::string Name(Token);
        bool Appended;
        if (State->NameMap->find(Name) == State->NameMap->end()) {
            (*State->NameMap)[Name] = true;
            Appended = CvnUtilStringListAppendString(State->NameList, Token);
        } else {
            if (!State->DuplicateShown) {
                CvnUtilDialogMessageBox(DuplicateMessage, MessageBox_Information);
                State->DuplicateShown = true;
            }
            char Number[16];
            snprintf(Number, sizeof(Number), "%d", Position);
            Name += Number;
            Appended = CvnUtilStringListAppendString(State->NameList, Name.c_str());
        }
        if (!Appended) {
            ShowDialogErrorMessage("Out of memory");
            FailScan(State);
            return;
        }
    }

    if (LineNumber != Vars->EndLine)
        return;
    TW_FileDataSet_s *DataSet = State->DataSet;
    int32_t Count = (int32_t)CvnUtilStringListGetCount(State->NameList);
    CopyStringListToVar(&DataSet->VarList, State->NameList);
    DataSet->NumVars = DataSet->VarList != NULL ? Count : 0;
    if (Count > 0 && DataSet->VarList == NULL) {
        FailScan(State);
        return;
    }
    State->VarsComplete = true;
    if (!TW_ScanAddZone(State))
        FailScan(State);
}

/* Data-start step; true when the line is the first line of the data
   section and is itself data. */
static bool FindDataStart(TW_ScanState_s *State, const char *Line, int32_t LineNumber,
                          bool IsNumeric)
{
    const TW_FileMarker_s *Start = &State->Instr->StartId;
    switch (Start->Marker) {
    case FileMarker_FirstNumericLine:
        State->DataStarted = IsNumeric;
        return IsNumeric;
    case FileMarker_Line:
        State->DataStarted = LineNumber >= Start->Line;
        return State->DataStarted;
    case FileMarker_Keyword:
        State->DataStarted = Str_ustrstr(Line, Start->Keyword) != NULL;
        return false;
    default:
        return false;
    }
}

/* True when the data line ends the data section. */
static bool IsDataEnd(const TW_ScanState_s *State, const char *Line, int32_t LineNumber,
                      bool IsNumeric)
{
    const TW_FileMarker_s *End = &State->Instr->EndId;
    switch (End->Marker) {
    case FileMarker_FirstNonNumericLine:
        return !IsNumeric;
    case FileMarker_Keyword:
        return Str_ustrstr(Line, End->Keyword) != NULL;
    case FileMarker_Line:
        return LineNumber >= End->Line;
    default:
        return false;
    }
}

/* Automatic dimension: the line is one point of the current zone. */
static void StorePoint(TW_ScanState_s *State, int32_t LineNumber, const double *Values,
                       int32_t Count)
{
    const TW_ConfigInstructions_s *Instr = State->Instr;
    int32_t NumVars = State->DataSet->NumVars;
    if (State->NewZonePending) {
        State->NewZonePending = false;
        if (!TW_ScanAddZone(State)) {
            FailScan(State);
            return;
        }
    }
    if (Count != NumVars && !Instr->GlobalFilters.UseBlankCellValue) {
        char Question[sizeof(MismatchQuestion) + 48];
        snprintf(Question, sizeof(Question), MismatchQuestion, (int)NumVars, (int)LineNumber,
                 (int)Count);
        if (!CvnUtilDialogMessageBox(Question, MessageBox_YesNo)) {
            FailScan(State);
            return;
        }
    }
    for (int32_t Var = 0; Var < NumVars; Var++)
        if (!StoreValue(State, Var, Var < Count ? Values[Var] : State->BlankValue))
            return;
    State->LastZone->IMax++;
}

/* Makes the zone that a full zone left pending, if any; values then go to
   its first variable. False (the scan failed) when it cannot be made. */
static bool StartPendingZone(TW_ScanState_s *State)
{
    if (!State->NewZonePending)
        return true;
    State->NewZonePending = false;
    State->CurVar = 0;
    if (TW_ScanAddZone(State))
        return true;
    FailScan(State);
    return false;
}

/* Explicit sizes, block format: each variable of the zone takes NumPoints
   values in turn. */
static void StoreBlockValues(TW_ScanState_s *State, int32_t LineNumber, const double *Values,
                             int32_t Count)
{
    for (int32_t Index = 0; Index < Count; Index++) {
        if (!StartPendingZone(State))
            return;
        TW_ZoneInfo_s *Zone = State->LastZone;
        if (State->CurVar >= Zone->NumVars) {
            ShowDialogErrorMessage(NotEnoughVarsMessage);
            FailScan(State);
            return;
        }
        if (!StoreValue(State, State->CurVar, Values[Index]))
            return;
        if (Zone->VarValues[State->CurVar]->Count < Zone->NumPoints)
            continue;
        State->CurVar++;
        if (State->CurVar < Zone->NumVars)
            continue;
        /* The zone's last variable is full. */
        if (State->Instr->CreateMultipleZones) {
            State->NewZonePending = true;
            continue;
        }
        long Extra = (long)(Count - Index - 1);
        if (Extra > 0) {
            char Message[sizeof(ExtraPointsMessage) + 48];
            snprintf(Message, sizeof(Message), ExtraPointsMessage, Extra, (long)LineNumber);
            CvnUtilDialogMessageBox(Message, MessageBox_Information);
        }
        State->DataEnded = true;
        return;
    }
}

/* Explicit sizes, point format: values are dealt to the variables in turn,
   across lines. A full zone, with multiple zones, ends at this line. */
static void StorePointValues(TW_ScanState_s *State, const double *Values, int32_t Count)
{
    if (!StartPendingZone(State))
        return;
    TW_ZoneInfo_s *Zone = State->LastZone;
    if (Zone->NumVars < 1) {
        ShowDialogErrorMessage(NotEnoughVarsMessage);
        FailScan(State);
        return;
    }
    for (int32_t Index = 0; Index < Count; Index++) {
        if (!StoreValue(State, State->CurVar, Values[Index]))
            return;
        if (++State->CurVar == Zone->NumVars)
            State->CurVar = 0;
    }
    if (State->Instr->CreateMultipleZones &&
        Zone->VarValues[Zone->NumVars - 1]->Count >= Zone->NumPoints)
        State->NewZonePending = true;
}

/* A line of the data section: cut into values and placed, or kept as text. */
static void TakeDataLine(TW_ScanState_s *State, char *Line, size_t Length, int32_t LineNumber)
{
    const TW_ConfigInstructions_s *Instr = State->Instr;

    const double *Values = NULL;
    int32_t Count = 0;
    if (!TW_ScanSizedLineForNumericData(Line, Length, LineNumber, Instr, &Values, &Count)) {
        FailScan(State);
        return;
    }

    if (Count > 0 && !State->VarsComplete) {
        ShowDialogErrorMessage(VarsIncompleteMessage);
        FailScan(State);
        return;
    }
    if (Count == 0) {
        if (!Instr->IgnoreNonNumericTokens) {
            char Question[sizeof(NonNumericQuestion) + 24];
            snprintf(Question, sizeof(Question), NonNumericQuestion, (long)LineNumber);
            if (!CvnUtilDialogMessageBox(Question, MessageBox_YesNo)) {
                FailScan(State);
                return;
            }
        }
        /* Only blank-cell mode writes into the line, and it always gives a
           value: a line without values is still as it was read. */
        KeepTextLine(State, LineNumber, Line);
        return;
    }

    if (Instr->Dimension.Auto)
        StorePoint(State, LineNumber, Values, Count);
    else if (Instr->Format == DataFormat_IJKBlock || Instr->Format == DataFormat_FEBlock)
        StoreBlockValues(State, LineNumber, Values, Count);
    else
        StorePointValues(State, Values, Count);
}

/* Data steps of a line that passed the filters, title and variable steps.
   Whether the line is numeric matters only to a start or end marker that
   looks for numeric lines; it is worked out only then. */
static void TakeDataSectionLine(TW_ScanState_s *State, char *Line, size_t Length,
                                int32_t LineNumber)
{
    const TW_ConfigInstructions_s *Instr = State->Instr;
    bool NeedsNumeric = Instr->EndId.Marker == FileMarker_FirstNonNumericLine ||
                        (!State->DataStarted && Instr->StartId.Marker == FileMarker_FirstNumericLine);
    bool IsNumeric = NeedsNumeric && !State->DataEnded && TW_IsNumericLine(Line);
    if (State->DataEnded ||
        (!State->DataStarted && !FindDataStart(State, Line, LineNumber, IsNumeric))) {
        KeepTextLine(State, LineNumber, Line);
        return;
    }
    /* Contained ignoring case, as the other keywords are: an empty zone
       keyword is found in every line. */
    if (Instr->Dimension.Auto && Instr->CreateMultipleZones &&
        Str_ustrstr(Line, Instr->ZoneKeyword) != NULL) {
        State->NewZonePending = true;
        KeepTextLine(State, LineNumber, Line);
        return;
    }
    if (IsDataEnd(State, Line, LineNumber, IsNumeric)) {
        State->DataEnded = true;
        KeepTextLine(State, LineNumber, Line);
        return;
    }
    TakeDataLine(State, Line, Length, LineNumber);
}

void TW_ScanProcessLine(TW_ScanState_s *State, char *Line, size_t Length, int32_t LineNumber)
{
    TW_ConfigInstructions_s *Instr = State->Instr;
    if (State->FiltersOn) {
        TW_PreprocessLine(Line, &Instr->GlobalFilters);
        Length = strlen(Line);
    }
    if (TW_IsBlankLine(Line))
        return;
    if (Instr->GlobalFilters.UseRows && TW_NumIsInRange(LineNumber, &Instr->GlobalFilters.Rows)) {
        KeepTextLine(State, LineNumber, Line);
        return;
    }

    if (!State->TitleFound && TakeTitle(State, Line, LineNumber))
        return;

    const TW_Variables_s *Vars = &Instr->Variables;
    if (Vars->SearchMode == SearchMode_Line && !State->VarsComplete &&
        LineNumber >= Vars->StartLine) {
        TakeVariableLine(State, Line, LineNumber);
        return;
    }

    if (State->ReadData)
        TakeDataSectionLine(State, Line, Length, LineNumber);
}

} // namespace corvane::cvnutildataio
