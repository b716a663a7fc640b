/*
 * FileDataSet.h - the scanned data set: title, variables, zones of value
 * arrays and the kept text lines.
 */
#ifndef TW_FILEDATASET_H
#define TW_FILEDATASET_H

#include <cstdint>

#include "DoubleArray.h"
#include "Instructions.h"
#include "VarList.h"

namespace corvane::cvnutildataio {

#define TW_AUTO_NUMPOINTS 123456789 /* NumPoints placeholder while counting */

typedef struct _TW_ZoneInfo_s {
    char *ZoneName; /* host string "Zone %d" */
    int32_t IMax;
    int32_t JMax;
    int32_t KMax;
    int32_t NumPoints;
    int32_t NumVars;
    TW_DoubleArray_s **VarValues; /* NumVars arrays, variable order */
    struct _TW_ZoneInfo_s *Next;
} TW_ZoneInfo_s;

typedef struct _TW_TextLine_s {
    int32_t LineNumber; /* 1-based line of the file */
    char Text[256];     /* first 255 characters */
    struct _TW_TextLine_s *Next;
} TW_TextLine_s;

typedef struct {
    char *Title; /* host string; NULL until set */
    int32_t NumZones;
    TW_ZoneInfo_s *ZoneList;
    int32_t NumVars;
    TW_Variable_s *VarList;
    int32_t MaxTextLineNumber;
    TW_TextLine_s *RawLineList;
    int32_t TotalLines; /* lines read by the scan */
    int32_t State;      /* 4 at creation */
    bool NeedsRescan;
} TW_FileDataSet_s;

/* IMax * JMax * KMax as the 32-bit point count; -1 when the product does
   not fit in it. */
int32_t TW_ZonePointCount(int32_t IMax, int32_t JMax, int32_t KMax);
/* New empty data set; NULL after "Out of memory". */
TW_FileDataSet_s *FileDataSetAlloc();
/* Appends a zone named "Zone <*ZoneCounter>" and advances the counter;
   false when the zone record could not be made, and (after "Out of memory.
   A zone of I x J x K points is more than the loader can hold") for given
   sizes whose point count does not fit in 32 bits. */
bool AddNewZone(TW_ZoneInfo_s **ZoneList, TW_ZoneInfo_s **LastZone, int32_t *ZoneCounter,
                int32_t NumVars, const TW_Dimension_s *Dimension);
void FileDataSetDealloc(TW_FileDataSet_s **DataSet);
/* FileDataSetDealloc under the host lock with a "Releasing memory..." box. */
void ReleaseFileData(TW_FileDataSet_s **DataSet);

} // namespace corvane::cvnutildataio

#endif
