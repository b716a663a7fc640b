/*
 * ProcessedView.cpp - formats a scanned data set for the preview. Every
 * piece is made in a work buffer on the stack and appended under the text
 * length guard, so a limited text control keeps what fits.
 */
#include "ProcessedView.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "DialogText.h"

namespace corvane::cvnutildataio {

#define TW_WORK_BUFFER 1024 /* one piece: a name field, a value, a prefix */

/* Names of the loaded variables, each but the data set's last variable
   followed by "," (so a loaded variable followed only by skipped ones still
   gets its comma). */
static void FormatNames(LgIndex_t TextID, const TW_FileDataSet_s *DataSet)
{
    for (int32_t Var = 0; Var < DataSet->NumVars; Var++) {
        if (!DataSet->VarList[Var].Selected)
            continue;
        TW_AppendText(TextID, DataSet->VarList[Var].Name);
        if (Var != DataSet->NumVars - 1)
            TW_AppendText(TextID, ",");
    }
}

/* The kept text lines, each behind its line number in the file. The width
   of the number comes from the largest kept line number (5 when there is
   none). A text without a line end gets one, and that line end counts as a
   line of its own toward Limit. */
static void FormatNonProcessedLines(LgIndex_t TextID, const TW_FileDataSet_s *DataSet,
                                    int32_t Limit)
{
    char Work[TW_WORK_BUFFER];
    int32_t LineCount = DataSet->MaxTextLineNumber;
    int Width = LineCount >= 1 ? (int)ceil(log10((double)LineCount)) : 5;
    int32_t Shown = 0;

    for (const TW_TextLine_s *Line = DataSet->RawLineList; Line != nullptr; Line = Line->Next) {
        snprintf(Work, sizeof(Work), "%*d: ", Width, (int)Line->LineNumber);
        TW_AppendText(TextID, Work);
        TW_AppendText(TextID, Line->Text);
        Shown++;
        size_t Length = strlen(Line->Text);
        if (Length == 0 || (Line->Text[Length - 1] != '\n' && Line->Text[Length - 1] != '\r')) {
            TW_AppendText(TextID, "\n");
            Shown++;
        }
        if (Limit > 0 && Shown >= Limit)
            return;
    }
}

/* The two header lines of the column form: each loaded variable's name
   centred in a field of its column width plus one, then a rule of
   width dashes and a blank per variable. A name longer than its field is
   written whole. */
static void FormatColumnHeader(LgIndex_t TextID, const TW_FileDataSet_s *DataSet)
{
    char Work[TW_WORK_BUFFER];
    for (int32_t Var = 0; Var < DataSet->NumVars; Var++) {
        const TW_Variable_s *Variable = &DataSet->VarList[Var];
        if (!Variable->Selected)
            continue;
        int Width = Variable->ColumnWidth;
        int Length = Variable->NameLength;
        int Lead = Width / 2 - Length / 2;
        if (Length >= Width || Lead < 1)
            Lead = 0;
        int Used = snprintf(Work, sizeof(Work), "%*s%s", Lead, "", Variable->Name);
        if (Used >= 0 && Used <= Width && Width < TW_WORK_BUFFER - 1) {
            memset(Work + Used, ' ', (size_t)(Width + 1 - Used));
            Work[Width + 1] = '\0';
        }
        TW_AppendText(TextID, Work);
    }
    TW_AppendText(TextID, "\n");

    for (int32_t Var = 0; Var < DataSet->NumVars; Var++) {
        const TW_Variable_s *Variable = &DataSet->VarList[Var];
        if (!Variable->Selected)
            continue;
        int Dashes = Variable->ColumnWidth < 1 ? 0 : Variable->ColumnWidth;
        if (Dashes > TW_WORK_BUFFER - 2)
            Dashes = TW_WORK_BUFFER - 2;
        memset(Work, '-', (size_t)Dashes);
        Work[Dashes] = ' ';
        Work[Dashes + 1] = '\0';
        TW_AppendText(TextID, Work);
    }
    TW_AppendText(TextID, "\n");
}

/* Value Point (0-based) of variable Var in Zone; 0 when the zone holds no
   such value. */
static double ZoneValue(const TW_ZoneInfo_s *Zone, int32_t Var, int32_t Point)
{
    if (Zone->VarValues == nullptr || Var >= Zone->NumVars || Zone->VarValues[Var] == nullptr ||
        Point >= TW_DoubleArrayGetSize(Zone->VarValues[Var]))
        return 0.0;
    return TW_DoubleArrayGetAt(Zone->VarValues[Var], Point);
}

/* One row per point of Zone, each row on a line of its own: every loaded
   variable's value in its column width. Stops after Limit rows when Limit
   is 1 or more. */
static void FormatColumnRows(LgIndex_t TextID, const TW_FileDataSet_s *DataSet,
                             const TW_ZoneInfo_s *Zone, int32_t Limit)
{
    char Work[TW_WORK_BUFFER];
    int32_t Rows = 0;
    for (int32_t Point = 0; Point < Zone->NumPoints; Point++) {
        TW_AppendText(TextID, "\n");
        for (int32_t Var = 0; Var < DataSet->NumVars; Var++) {
            const TW_Variable_s *Variable = &DataSet->VarList[Var];
            if (!Variable->Selected)
                continue;
            snprintf(Work, sizeof(Work), "%*g ", (int)Variable->ColumnWidth,
                     ZoneValue(Zone, Var, Point));
            TW_AppendText(TextID, Work);
        }
        Rows++;
        if (Limit > 0 && Rows >= Limit)
            return;
    }
}

/* The block form of one zone: per loaded variable its name, a rule and its
   values, eleven a line. *Lines counts the rules and the line ends of full
   value lines; false (stop the view) once it reaches a Limit of 1 or
   more. */
static bool FormatZoneBlocks(LgIndex_t TextID, const TW_FileDataSet_s *DataSet,
                             const TW_ZoneInfo_s *Zone, int32_t Limit, int32_t *Lines)
{
    char Work[TW_WORK_BUFFER];
    for (int32_t Var = 0; Var < DataSet->NumVars; Var++) {
        const TW_Variable_s *Variable = &DataSet->VarList[Var];
        if (!Variable->Selected)
            continue;
        TW_AppendText(TextID, "\n");
        TW_AppendText(TextID, Variable->Name);
        TW_AppendText(TextID, ":\n");
        int Dashes = Variable->NameLength < TW_WORK_BUFFER - 2 ? Variable->NameLength
                                                               : TW_WORK_BUFFER - 2;
        memset(Work, '-', (size_t)Dashes);
        Work[Dashes] = '\n';
        Work[Dashes + 1] = '\0';
        TW_AppendText(TextID, Work);
        (*Lines)++;
        if (Limit > 0 && *Lines >= Limit)
            return false;

        int OnLine = 0; /* reads 10 at the eleventh value of a line */
        for (int32_t Point = 0; Point < Zone->NumPoints; Point++) {
            snprintf(Work, sizeof(Work), "%5g ", ZoneValue(Zone, Var, Point));
            TW_AppendText(TextID, Work);
            if (OnLine == 10) {
                TW_AppendText(TextID, "\n");
                OnLine = 0;
                (*Lines)++;
                if (Limit > 0 && *Lines >= Limit)
                    return false;
            } else {
                OnLine++;
            }
        }
    }
    return true;
}

/* Names and data: in columns, a header and the rows of the first zone
   only; in blocks, every zone one after the other. Between zones of a
   data set of several zones a separator is formatted, and the next piece
   overwrites it before anything is appended: zones follow one another
   without a separator, as the preview has always shown them. */
static void FormatNamesAndData(LgIndex_t TextID, const TW_FileDataSet_s *DataSet,
                               int32_t ShowFormat, int32_t Limit)
{
    char Work[TW_WORK_BUFFER];
    if (ShowFormat == 1)
        FormatColumnHeader(TextID, DataSet);

    long ZoneNumber = 1;
    int32_t Lines = 0;
    for (const TW_ZoneInfo_s *Zone = DataSet->ZoneList; Zone != nullptr; Zone = Zone->Next) {
        if (DataSet->NumZones > 1)
            snprintf(Work, sizeof(Work),
                     "\n----------------------------------------\nZone: %ld\n"
                     "----------------------------------------\n",
                     ZoneNumber);
        ZoneNumber++;
        if (ShowFormat == 1) {
            FormatColumnRows(TextID, DataSet, Zone, Limit);
            return; /* the column form shows the first zone only */
        }
        if (ShowFormat == 2 && !FormatZoneBlocks(TextID, DataSet, Zone, Limit, &Lines))
            return;
    }
}

void FormatProcessedData(LgIndex_t TextID, const TW_FileDataSet_s *DataSet, int32_t Show,
                         int32_t ShowFormat, int32_t Limit)
{
    if (DataSet == nullptr)
        return;
    switch (Show) {
    case 1:
        FormatNamesAndData(TextID, DataSet, ShowFormat, Limit);
        break;
    case 2:
        FormatNames(TextID, DataSet);
        break;
    case 3:
        FormatNonProcessedLines(TextID, DataSet, Limit);
        break;
    default:
        break;
    }
}

} // namespace corvane::cvnutildataio
