/*
 * Writer.cpp - writes an instruction set as text: the file layout (magic
 * line, banners, one indented assignment a line, comments) kept in ".twc"
 * files, and the compact layout (KEY=value run together) stored with the
 * host's loader instructions. Both read back through ScanInstructionSet.
 *
 * Not re-entrant: every piece is formatted in one static buffer.
 */
#include "Writer.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "AddOnHost.h"
#include "FileOpen.h"
#include "Reader.h"
#include "StringUtil.h"

namespace corvane::cvnutildataio {

/* Each formatted piece before it is appended; overwritten by every piece. */
static char StringBuffer[3051];

#define TW_ERROR_NAME "# error"

#define TW_BANNER                                                   \
    "#######################################################\n"    \
    "#\n"                                                           \
    "# WARNING: Editing this file by hand is not recommended.\n"    \
    "# The ordalis loader add-on will not be able to read\n"        \
    "# all of the contents of this file\n"                          \
    "# if there are syntax errors.\n"                               \
    "#\n"                                                           \
    "#\n"                                                           \
    "#\n"                                                           \
    "#######################################################\n\n"

#define TW_END_BANNER                                               \
    "#######################################################\n"    \
    "# End of file\n"                                               \
    "#######################################################\n"

/* The keyword of Value in Table, or the error name for a value that is not
   in it. */
static const char *KeywordOrError(const TW_EnumTable_s *Table, int32_t Value)
{
    const char *Keyword = TW_EnumKeyword(Table, Value);
    return Keyword != NULL ? Keyword : TW_ERROR_NAME;
}

const char *Export_GetSearchModeString(TW_SearchMode_e Mode)
{
    return KeywordOrError(&SearchModeTable, Mode);
}

const char *Export_GetDelimiterString(TW_Delimiter_e Delimiter)
{
    return KeywordOrError(&DelimiterTable, Delimiter);
}

const char *Export_GetFileMarkerString(TW_FileMarker_e Marker)
{
    return KeywordOrError(&FileMarkerTable, Marker);
}

const char *Export_GetDataFormat(DataFormat_e Format)
{
    return KeywordOrError(&DataFormatTable, Format);
}

static const char *BooleanName(bool Value)
{
    return Value ? "TRUE" : "FALSE";
}

/* The "=" of an assignment: bare in the compact layout, between blanks in
   the file layout. */
static const char *Equals(bool Compact)
{
    return Compact ? "=" : " = ";
}

/* Formats into StringBuffer and appends the result to *Out. */
__attribute__((format(printf, 2, 3))) static void TackFormat(char **Out, const char *Format, ...)
{
    va_list Args;
    va_start(Args, Format);
    vsnprintf(StringBuffer, sizeof(StringBuffer), Format, Args);
    va_end(Args);
    Str_TackOnString(Out, StringBuffer);
}

/* Appends Indent blanks (file layout only). */
static void PrintIndent(char **Out, int Indent, bool Compact)
{
    if (!Compact && Indent > 0)
        TackFormat(Out, "%*s", Indent, "");
}

/* Appends a section name or brace: as it stands in the compact layout; in
   the file layout after Indent blanks and followed by a newline. */
static void PrintFixed(char **Out, int Indent, const char *Text, bool Compact)
{
    if (Compact) {
        Str_TackOnString(Out, Text);
        return;
    }
    PrintIndent(Out, Indent, Compact);
    TackFormat(Out, "%s\n", Text);
}

/* Ends an assignment: a newline in the file layout. */
static void EndLine(char **Out, bool Compact)
{
    if (!Compact)
        Str_TackOnString(Out, "\n");
}

/* KEYWORD = word (or KEYWORD=word) on its own indented line. */
static void PrintWord(char **Out, int Indent, const char *Keyword, const char *Value,
                      bool Compact)
{
    PrintIndent(Out, Indent, Compact);
    TackFormat(Out, "%s%s%s ", Keyword, Equals(Compact), Value);
    EndLine(Out, Compact);
}

/* KEYWORD = integer on its own indented line. */
static void PrintInt(char **Out, int Indent, const char *Keyword, int32_t Value, bool Compact)
{
    PrintIndent(Out, Indent, Compact);
    TackFormat(Out, "%s%s%d ", Keyword, Equals(Compact), (int)Value);
    EndLine(Out, Compact);
}

/* New host string: Value with a backslash before each double quote. The
   work string is sized three times the keyword and value together. NULL
   when it cannot be made. */
static char *EscapeQuotes(const char *Keyword, const char *Value)
{
    char *Work = CvnUtilStringAlloc((LgIndex_t)(3 * (strlen(Keyword) + strlen(Value))),
                                    "PrintString");
    if (Work == NULL)
        return NULL;
    char *W = Work;
    for (const char *V = Value; *V != '\0'; V++) {
        if (*V == '"')
            *W++ = '\\';
        *W++ = *V;
    }
    *W = '\0';
    return Work;
}

/* Appends KEYWORD = <Q>value<Q> (compact: KEYWORD=<Q>value<Q>) and a blank,
   with the value's double quotes escaped. Nothing when the work string
   cannot be made. */
static void PrintValue(char **Out, const char *Keyword, const char *Value, char Quote,
                       bool Compact)
{
    char *Escaped = EscapeQuotes(Keyword, Value);
    if (Escaped == NULL)
        return;
    TackFormat(Out, "%s%s%c%s%c ", Keyword, Equals(Compact), Quote, Escaped, Quote);
    CvnUtilStringDealloc(&Escaped);
}

/* A top-level quoted key: nothing when Value is empty; in the file layout
   followed by "# Comment" (when given) and a newline. */
static void PrintString(char **Out, const char *Keyword, const char *Value, const char *Comment,
                        bool Compact)
{
    if (Value[0] == '\0')
        return;
    PrintValue(Out, Keyword, Value, '"', Compact);
    if (!Compact) {
        if (Comment != NULL)
            TackFormat(Out, "# %s", Comment);
        Str_TackOnString(Out, "\n");
    }
}

/* KEYWORD = "value" inside a marker or zone block (indent 3); nothing when
   Value is empty. */
static void PrintKeywordString(char **Out, const char *Value, bool Compact)
{
    if (Value[0] == '\0')
        return;
    PrintIndent(Out, 3, Compact);
    PrintValue(Out, "KEYWORD", Value, '"', Compact);
    EndLine(Out, Compact);
}

/* A key inside a section: one blank, then the value in double quotes
   (Quoted) or between blanks; an empty value only when PrintEmpty, as
   KEYWORD="". In the file layout "# Comment" (when given) and a newline
   follow. */
static void PrintString(char **Out, const char *Keyword, const char *Value, const char *Comment,
                        bool Compact, bool Quoted, bool PrintEmpty)
{
    Str_TackOnString(Out, " ");
    if (Value[0] != '\0')
        PrintValue(Out, Keyword, Value, Quoted ? '"' : ' ', Compact);
    else if (PrintEmpty)
        TackFormat(Out, "%s=\"\"", Keyword);
    if (!Compact) {
        if (Comment != NULL)
            TackFormat(Out, "# %s", Comment);
        Str_TackOnString(Out, "\n");
    }
}

/* STARTID or ENDID with its block: KEYWORD (when set) and LINE. */
static void PrintFileMarker(char **Out, const char *Keyword, const TW_FileMarker_s *Marker,
                            bool Compact)
{
    PrintWord(Out, 2, Keyword, Export_GetFileMarkerString(Marker->Marker), Compact);
    PrintFixed(Out, 2, "{\n", Compact);
    PrintKeywordString(Out, Marker->Keyword, Compact);
    PrintInt(Out, 3, "LINE", Marker->Line, Compact);
    PrintFixed(Out, 2, "}\n\n", Compact);
}

static void PrintTitleSection(char **Out, const TW_ConfigInstructions_s *Rec, bool Compact)
{
    PrintFixed(Out, 0, "TITLE", Compact);
    PrintFixed(Out, 0, "{", Compact);
    PrintWord(Out, 1, "SEARCH", Export_GetSearchModeString(Rec->TitleSearchMode), Compact);
    if (Rec->TitleName[0] != '\0')
        PrintString(Out, "NAME", Rec->TitleName, "dataset title", Compact, true, false);
    PrintInt(Out, 1, "LINE", Rec->TitleLine, Compact);
    if (Rec->TitleKeyword[0] != '\0')
        PrintString(Out, "KEYWORD", Rec->TitleKeyword, NULL, Compact, true, false);
    PrintWord(Out, 1, "DELIMITER", Export_GetDelimiterString(Rec->TitleDelimiter), Compact);
    PrintInt(Out, 1, "WIDTH", Rec->TitleWidth, Compact);
    PrintFixed(Out, 0, "}\n\n", Compact);
}

/* NAMES (names joined by commas, not escaped) and LOADED ("All" for the
   empty set, else the members in ascending order). */
static void PrintVariablesSection(char **Out, const TW_Variables_s *Vars, bool Compact)
{
    PrintFixed(Out, 0, "VARIABLES", Compact);
    PrintFixed(Out, 0, "{\n", Compact);
    PrintWord(Out, 1, "SEARCH", Export_GetSearchModeString(Vars->SearchMode), Compact);

    if (Vars->NumNames > 0 && Vars->Names != NULL) {
        Str_TackOnString(Out, " NAMES = \"");
        for (int32_t I = 0; I < Vars->NumNames; I++) {
            if (I > 0)
                Str_TackOnString(Out, ",");
            Str_TackOnString(Out, Vars->Names[I].Name);
        }
        Str_TackOnString(Out, "\" ");
        PrintFixed(Out, 0, "\n", Compact);
    }

    if (Vars->LoadedVars == NULL || CvnUtilSetIsEmpty(Vars->LoadedVars)) {
        PrintString(Out, "LOADED", "All", NULL, Compact, false, true);
    } else {
        Str_TackOnString(Out, " LOADED = [");
        LgIndex_t Member = CVN_NO_MEMBER;
        bool First = true;
        while ((Member = CvnUtilSetGetNextMember(Vars->LoadedVars, Member)) != CVN_NO_MEMBER) {
            TackFormat(Out, First ? "%ld" : ",%ld", (long)Member);
            First = false;
        }
        Str_TackOnString(Out, "] ");
    }
    EndLine(Out, Compact);

    PrintInt(Out, 1, "STARTLINE", Vars->StartLine, Compact);
    PrintInt(Out, 1, "ENDLINE", Vars->EndLine, Compact);
    PrintWord(Out, 1, "DELIMITER", Export_GetDelimiterString(Vars->Delimiter), Compact);
    PrintInt(Out, 1, "WIDTH", Vars->Width, Compact);
    PrintFixed(Out, 0, "}\n\n", Compact);
}

/* DATA with its IMPORT and DIMENSION sections. */
static void PrintDataSection(char **Out, const TW_ConfigInstructions_s *Rec, bool Compact)
{
    PrintFixed(Out, 0, "DATA\n", Compact);
    PrintFixed(Out, 0, "{\n", Compact);
    PrintWord(Out, 1, "IGNORENONNUMERICTOKENS", BooleanName(Rec->IgnoreNonNumericTokens), Compact);
    PrintFixed(Out, 1, "IMPORT\n", Compact);
    PrintFixed(Out, 1, "{\n", Compact);
    PrintFileMarker(Out, "STARTID", &Rec->StartId, Compact);
    PrintFileMarker(Out, "ENDID", &Rec->EndId, Compact);
    PrintWord(Out, 2, "FORMAT", Export_GetDataFormat(Rec->Format), Compact);
    PrintWord(Out, 2, "DELIMITER", Export_GetDelimiterString(Rec->DataDelimiter), Compact);
    PrintInt(Out, 3, "WIDTH", Rec->DataWidth, Compact);
    PrintFixed(Out, 2, "}\n\n", Compact);

    PrintFixed(Out, 2, "DIMENSION\n", Compact);
    PrintFixed(Out, 2, "{\n", Compact);
    PrintWord(Out, 3, "AUTO", BooleanName(Rec->Dimension.Auto), Compact);
    if (Rec->Dimension.IMax > 1)
        PrintInt(Out, 3, "IMAX", Rec->Dimension.IMax, Compact);
    if (Rec->Dimension.JMax > 1)
        PrintInt(Out, 3, "JMAX", Rec->Dimension.JMax, Compact);
    if (Rec->Dimension.KMax > 1)
        PrintInt(Out, 3, "KMAX", Rec->Dimension.KMax, Compact);
    PrintWord(Out, 3, "CREATEMULTIPLEZONES", BooleanName(Rec->CreateMultipleZones), Compact);
    PrintKeywordString(Out, Rec->ZoneKeyword, Compact);
    PrintFixed(Out, 1, "}\n", Compact);
    PrintFixed(Out, 0, "}\n", Compact);
}

static void PrintGlobalFiltersSection(char **Out, const TW_GlobalFilters_s *Filters, bool Compact)
{
    PrintFixed(Out, 0, "GLOBALFILTERS", Compact);
    PrintFixed(Out, 0, "{\n", Compact);
    if (Filters->Keyword[0] != '\0')
        PrintString(Out, "KEYWORD", Filters->Keyword, NULL, Compact, true, false);
    if (Filters->UseColumns && Filters->Columns.NumRanges > 0)
        PrintList(Out, "COLUMNS", &Filters->Columns, Compact);
    if (Filters->UseComment)
        PrintString(Out, "COMMENT", Filters->Comment, NULL, Compact, true, false);
    if (Filters->UseRows && Filters->Rows.NumRanges > 0)
        PrintList(Out, "ROWS", &Filters->Rows, Compact);
    PrintWord(Out, 1, "USEBLANKCELLVALUE", BooleanName(Filters->UseBlankCellValue), Compact);
    PrintIndent(Out, 1, Compact);
    TackFormat(Out, "%s%s%f ", "BLANKCELLVALUE", Equals(Compact), Filters->BlankCellValue);
    EndLine(Out, Compact);
    PrintFixed(Out, 0, "}\n", Compact);
}

bool PrintInstructionSet(const TW_ConfigInstructions_s *Rec, bool Compact, char **Out)
{
    if (!Compact) {
        TackFormat(Out, "%s\n", TW_MAGIC_LINE);
        Str_TackOnString(Out, TW_BANNER);
    }

    /* A reference stands for the named file: nothing else is written. */
    if (Rec->ConfigFileName[0] != '\0') {
        PrintString(Out, "CONFIGFNAME", Rec->ConfigFileName,
                    "Config file settings will be read from this file.", Compact);
        if (!Compact)
            Str_TackOnString(Out, TW_END_BANNER);
        return true;
    }

    TackFormat(Out, "%s%s%d ", "VERSION", Equals(Compact), (int)Rec->Version);
    if (!Compact)
        TackFormat(Out, "# %s\n", "version number of this file");
    PrintString(Out, "FILEEXT", Rec->FileExt, "typical extension of this kind, including '*.'",
                Compact);
    PrintString(Out, "FILEDESC", Rec->FileDesc, "description of this kind of file", Compact);
    PrintFixed(Out, 0, "\n\n", Compact);

    PrintTitleSection(Out, Rec, Compact);
    PrintVariablesSection(Out, &Rec->Variables, Compact);
    PrintDataSection(Out, Rec, Compact);
    PrintGlobalFiltersSection(Out, &Rec->GlobalFilters, Compact);

    if (!Compact)
        Str_TackOnString(Out, TW_END_BANNER);
    return true;
}

bool SaveConfigFile(const char *Path, const TW_ConfigInstructions_s *Rec)
{
    static char Message[1100];

    FILE *File = corvane::filesystem::fileOpen(Path != NULL ? Path : "", "w");
    if (File == NULL) {
        snprintf(Message, sizeof(Message),
                 "Unable to open file \"%s\" for reading.\nCheck disk space or permissions",
                 Path != NULL ? Path : "");
        ShowDialogErrorMessage(Message);
        return false;
    }

    char *Text = NULL;
    PrintInstructionSet(Rec, false, &Text);
    if (Text != NULL)
        fputs(Text, File);
    CvnUtilStringDealloc(&Text);
    fclose(File);
    return true;
}

} // namespace corvane::cvnutildataio
