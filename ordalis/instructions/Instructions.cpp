/*
 * Instructions.cpp - the instruction-set record: creation with defaults,
 * reset, copy and release, and the same for a separate variables record.
 *
 * A record owns two heap objects, both inside Variables: the Names array
 * (TW_ allocator) and the LoadedVars host set. Everything else is inline.
 */
#include "Instructions.h"

#include <cstring>

#include "AddOnHost.h"
#include "StringUtil.h"
#include "TW_Alloc.h"

namespace corvane::cvnutildataio {

static const char *const RecordOutOfMemory =
    "Out of memory. Unable to allocate import parameters structure";

/* Default values of every field except LoadedVars, which the callers make.
   Unused number-list slots and unused characters are zero. */
static void FillDefaults(TW_ConfigInstructions_s *Rec)
{
    memset(Rec, 0, sizeof *Rec);
    Rec->Version = 100;
    strcpy(Rec->FileExt, "*.txt");
    strcpy(Rec->FileDesc, "Ordalis");
    Rec->TitleSearchMode = SearchMode_None;
    strcpy(Rec->TitleName, "New Dataset");
    Rec->TitleLine = 1;
    Rec->TitleKeyword[0] = '\0';
    Rec->TitleDelimiter = Delimiter_Auto;
    Rec->TitleWidth = 10;

    Rec->Variables.SearchMode = SearchMode_None;
    Rec->Variables.NumNames = 0;
    Rec->Variables.Names = nullptr;
    Rec->Variables.LoadedVars = nullptr;
    Rec->Variables.StartLine = 1;
    Rec->Variables.EndLine = 1;
    Rec->Variables.Delimiter = Delimiter_Auto;
    Rec->Variables.Width = 10;

    Rec->IgnoreNonNumericTokens = true;
    Rec->StartId.Marker = FileMarker_Line;
    Rec->StartId.Line = 1;
    Rec->EndId.Marker = FileMarker_Line;
    Rec->EndId.Line = 1;
    Rec->Format = DataFormat_IJKPoint;
    Rec->DataDelimiter = Delimiter_Auto;
    Rec->DataWidth = 10;
    Rec->Dimension.Auto = true;
    Rec->Dimension.IMax = 1;
    Rec->Dimension.JMax = 1;
    Rec->Dimension.KMax = 1;
    Rec->CreateMultipleZones = false;
    Rec->ZoneKeyword[0] = '\0';

    TW_GlobalFilters_s *Filters = &Rec->GlobalFilters;
    Filters->UseComment = false;
    Filters->UseKeyword = false;
    Filters->UseColumns = false;
    Filters->UseRows = false;
    strcpy(Filters->Comment, "#");
    Filters->Keyword[0] = '\0';
    Filters->Columns.NumRanges = 0;
    Filters->Rows.NumRanges = 0;
    Filters->UseBlankCellValue = false;
    Filters->BlankCellValue = 0.0;

    Rec->ConfigFileName[0] = '\0';
    strcpy(Rec->DisplayName, "<untitled>");
    strcpy(Rec->FilePath, "<untitled>");
    Rec->IsModified = false;
    Rec->IsNew = true;
}

/* A record with every default and an empty LoadedVars set. When the record
   or its set cannot be made: the error box, whatever was made released
   (under the host lock), and NULL. */
TW_ConfigInstructions_s *ImportInstructionsAlloc()
{
    TW_ConfigInstructions_s *Rec =
        static_cast<TW_ConfigInstructions_s *>(TW_Malloc(sizeof(TW_ConfigInstructions_s)));
    if (Rec != nullptr) {
        FillDefaults(Rec);
        Rec->Variables.LoadedVars = CvnUtilSetAlloc(TRUE);
        if (Rec->Variables.LoadedVars != nullptr)
            return Rec;
    }
    ShowDialogErrorMessage(RecordOutOfMemory);
    ImportInstructionsDealloc(&Rec);
    return nullptr;
}

/* Overwrites every field with its default and gives the record a new empty
   set; the old Names array and set are not released (the record must not
   own any). Without a new set LoadedVars is NULL after "Out of memory". */
void SetConfigToDefault(TW_ConfigInstructions_s *Rec)
{
    FillDefaults(Rec);
    Rec->Variables.LoadedVars = CvnUtilSetAlloc(TRUE);
    if (Rec->Variables.LoadedVars == nullptr)
        ShowDialogErrorMessage("Out of memory");
}

/* Copies the fields that TW_Variables_s and the record share, except the
   names and the set. */
static void CopyVariableSettings(TW_Variables_s *Dest, const TW_Variables_s *Source)
{
    Dest->SearchMode = Source->SearchMode;
    Dest->StartLine = Source->StartLine;
    Dest->EndLine = Source->EndLine;
    Dest->Width = Source->Width;
    Dest->Delimiter = Source->Delimiter;
}

static void CopyFileMarker(TW_FileMarker_s *Dest, const TW_FileMarker_s *Source)
{
    Dest->Marker = Source->Marker;
    TW_Strcpy(Dest->Keyword, Source->Keyword);
    Dest->Line = Source->Line;
}

/* Field by field in declared order. Strings are copied trimmed (TW_Strcpy),
   the two filter texts bounded to 257 and the reference name as it is. The
   names array is rebuilt (an empty source leaves none); the set keeps its
   object and receives the source's members. DisplayName and FilePath stay
   the destination's own. */
void CopyInstructionSet(TW_ConfigInstructions_s **Dest, const TW_ConfigInstructions_s *Source)
{
    if (*Dest == nullptr) {
        *Dest = ImportInstructionsAlloc();
        if (*Dest == nullptr)
            return;
    }
    TW_ConfigInstructions_s *D = *Dest;
    if (D == Source)
        return;

    D->Version = Source->Version;
    TW_Strcpy(D->FileExt, Source->FileExt);
    TW_Strcpy(D->FileDesc, Source->FileDesc);
    D->TitleSearchMode = Source->TitleSearchMode;
    TW_Strcpy(D->TitleName, Source->TitleName);
    D->TitleLine = Source->TitleLine;
    TW_Strcpy(D->TitleKeyword, Source->TitleKeyword);
    D->TitleDelimiter = Source->TitleDelimiter;
    D->TitleWidth = Source->TitleWidth;

    D->Variables.SearchMode = Source->Variables.SearchMode;
    CopyVarToVar(&D->Variables.Names, Source->Variables.Names, &D->Variables.NumNames,
                 Source->Variables.NumNames);
    if (D->Variables.LoadedVars == nullptr) {
        D->Variables.LoadedVars = CvnUtilSetAlloc(TRUE);
        if (D->Variables.LoadedVars == nullptr)
            ShowDialogErrorMessage("Out of memory");
    }
    CvnUtilSetClear(D->Variables.LoadedVars);
    if (Source->Variables.LoadedVars != nullptr)
        CvnUtilSetCopy(D->Variables.LoadedVars, Source->Variables.LoadedVars, TRUE);
    CopyVariableSettings(&D->Variables, &Source->Variables);

    D->IgnoreNonNumericTokens = Source->IgnoreNonNumericTokens;
    CopyFileMarker(&D->StartId, &Source->StartId);
    CopyFileMarker(&D->EndId, &Source->EndId);
    D->Format = Source->Format;
    D->DataDelimiter = Source->DataDelimiter;
    D->DataWidth = Source->DataWidth;
    D->Dimension = Source->Dimension;
    D->CreateMultipleZones = Source->CreateMultipleZones;
    TW_Strcpy(D->ZoneKeyword, Source->ZoneKeyword);

    TW_GlobalFilters_s *DF = &D->GlobalFilters;
    const TW_GlobalFilters_s *SF = &Source->GlobalFilters;
    DF->UseComment = SF->UseComment;
    DF->UseKeyword = SF->UseKeyword;
    DF->UseColumns = SF->UseColumns;
    DF->UseRows = SF->UseRows;
    TW_Strncpy(DF->Comment, SF->Comment, sizeof DF->Comment);
    DF->CommentLength = SF->CommentLength;
    TW_Strncpy(DF->Keyword, SF->Keyword, sizeof DF->Keyword);
    DF->KeywordLength = SF->KeywordLength;
    DF->Columns = SF->Columns;
    DF->Rows = SF->Rows;
    DF->UseBlankCellValue = SF->UseBlankCellValue;
    DF->BlankCellValue = SF->BlankCellValue;

    strcpy(D->ConfigFileName, Source->ConfigFileName);
    D->IsModified = Source->IsModified;
    D->IsNew = Source->IsNew;
}

/* Releases the names, the set and the record inside the host lock (the
   release may happen while the host runs the add-on's state changes). The
   lock is taken even for a NULL record. */
void ImportInstructionsDealloc(TW_ConfigInstructions_s **Rec)
{
    CvnUtilLockStart(AddOnID);
    if (Rec != nullptr && *Rec != nullptr) {
        TW_Free((*Rec)->Variables.Names);
        (*Rec)->Variables.Names = nullptr;
        CvnUtilSetDealloc(&(*Rec)->Variables.LoadedVars);
        TW_Free(*Rec);
        *Rec = nullptr;
    }
    CvnUtilLockFinish(AddOnID);
}

void VariablesDealloc(TW_Variables_s **Vars)
{
    if (Vars == nullptr || *Vars == nullptr)
        return;
    TW_Free((*Vars)->Names);
    CvnUtilSetDealloc(&(*Vars)->LoadedVars);
    TW_Free(*Vars);
    *Vars = nullptr;
}

/* Names are rebuilt only when the source has some; the source's members are
   added to the destination's set (made when missing, without clearing it
   first); then the search settings. */
void CopyVarInfo(TW_Variables_s *Dest, const TW_Variables_s *Source)
{
    if (Source->NumNames > 0)
        CopyVarToVar(&Dest->Names, Source->Names, &Dest->NumNames, Source->NumNames);
    if (Dest->LoadedVars == nullptr) {
        Dest->LoadedVars = CvnUtilSetAlloc(TRUE);
        if (Dest->LoadedVars == nullptr)
            ShowDialogErrorMessage("Out of memory");
    }
    if (Dest->LoadedVars != nullptr && Source->LoadedVars != nullptr)
        CvnUtilSetCopy(Dest->LoadedVars, Source->LoadedVars, TRUE);
    CopyVariableSettings(Dest, Source);
}

} // namespace corvane::cvnutildataio
