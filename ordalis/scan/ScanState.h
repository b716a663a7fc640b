/*
 * ScanState.h - the working state of one text file scan, shared by the scan
 * driver (TextScan.cpp) and its per-line steps (ScanLine.cpp). Internal to
 * the scan module.
 */
#ifndef TW_SCANSTATE_H
#define TW_SCANSTATE_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

#include "CvnAPI.h"
#include "FileDataSet.h"
#include "Instructions.h"

namespace corvane::cvnutildataio {

/* Everything one ScanTextFile call knows between lines. Made and released
   by ScanTextFile; the per-line steps only change it. */
typedef struct {
    TW_FileDataSet_s *DataSet;
    TW_ConfigInstructions_s *Instr;
    bool ReadData;
    double BlankValue; /* BLANKCELLVALUE when in use, else 0.0 */
    bool FiltersOn;    /* a filter of TW_PreprocessLine is on */

    bool TitleFound;

    bool VarsComplete;                    /* the data set has its variables */
    StringList_s *NameList;               /* names read from the variable lines */
    std::map<std::string, bool> *NameMap; /* names seen, for duplicates */
    bool DuplicateShown;                  /* the duplicate message was shown */

    TW_ZoneInfo_s *LastZone;
    int32_t ZoneCounter;   /* number of the next zone */
    bool NewZonePending;   /* the next value (or data line) makes a zone */
    int32_t CurVar;        /* explicit sizes: variable that gets the next value */
    TW_TextLine_s *LastTextLine;

    bool DataStarted;
    bool DataEnded;
    bool ValueStored;

    bool Failed;  /* an error was shown or a question answered No */
    bool Stopped; /* no further line is read */
} TW_ScanState_s;

/* Handles one line (number LineNumber, already stripped of CR/LF, Length
   characters as a C string) through the filters, title, variable and data
   steps. Sets Failed/Stopped. */
void TW_ScanProcessLine(TW_ScanState_s *State, char *Line, size_t Length, int32_t LineNumber);

/* Makes the next zone of the scan; false (reported) when it or one of its
   value arrays could not be made. */
bool TW_ScanAddZone(TW_ScanState_s *State);

} // namespace corvane::cvnutildataio

#endif
