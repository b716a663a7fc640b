/*
 * FileDataSet.cpp - the scanned data set: creation, appending zones and
 * release of everything the data set owns (title, zones with their value
 * arrays, text lines and the variable array).
 */
#include "FileDataSet.h"

#include <cstdio>

#include "CvnAPI.h"
#include "AddOnHost.h"
#include "StringUtil.h"
#include "TW_Alloc.h"

namespace corvane::cvnutildataio {

/* Value of the State member at creation. */
#define TW_FILEDATASET_INITIAL_STATE 4

int32_t TW_ZonePointCount(int32_t IMax, int32_t JMax, int32_t KMax)
{
    int64_t Points = 0;
    if (__builtin_mul_overflow((int64_t)IMax, (int64_t)JMax, &Points) ||
        __builtin_mul_overflow(Points, (int64_t)KMax, &Points) || Points > INT32_MAX ||
        Points < INT32_MIN)
        return -1;
    return (int32_t)Points;
}

/* Makes a data set with every member at its initial value; NULL after
   "Out of memory". */
TW_FileDataSet_s *FileDataSetAlloc()
{
    TW_FileDataSet_s *DataSet = (TW_FileDataSet_s *)TW_Calloc(1, sizeof(TW_FileDataSet_s));
    if (DataSet == NULL) {
        ShowDialogErrorMessage("Out of memory");
        return NULL;
    }
    DataSet->Title = NULL;
    DataSet->NumZones = 0;
    DataSet->ZoneList = NULL;
    DataSet->NumVars = 0;
    DataSet->VarList = NULL;
    DataSet->MaxTextLineNumber = 0;
    DataSet->RawLineList = NULL;
    DataSet->TotalLines = 0;
    DataSet->State = TW_FILEDATASET_INITIAL_STATE;
    DataSet->NeedsRescan = false;
    return DataSet;
}

/* The zone takes its number from *ZoneCounter before anything can fail, so a
   failed zone still uses up a number. A zone whose name or pointer array
   could not be made is linked without it (NULL); a value array that could
   not be made stays NULL. Each was reported where it failed. */
bool AddNewZone(TW_ZoneInfo_s **ZoneList, TW_ZoneInfo_s **LastZone, int32_t *ZoneCounter,
                int32_t NumVars, const TW_Dimension_s *Dimension)
{
    int32_t ZoneNumber = (*ZoneCounter)++;

    if (!Dimension->Auto &&
        TW_ZonePointCount(Dimension->IMax, Dimension->JMax, Dimension->KMax) < 0) {
        char Message[160];
        snprintf(Message, sizeof(Message),
                 "Out of memory. A zone of %ld x %ld x %ld points is more than the loader can "
                 "hold.",
                 (long)Dimension->IMax, (long)Dimension->JMax, (long)Dimension->KMax);
        ShowDialogErrorMessage(Message);
        return false;
    }
    TW_ZoneInfo_s *Zone = (TW_ZoneInfo_s *)TW_Malloc(sizeof(TW_ZoneInfo_s));
    if (Zone == NULL) {
        ShowDialogErrorMessage("Out of memory");
        ShowDialogErrorMessage("Out of memory");
        return false;
    }

    Zone->ZoneName = NULL;
    if (!Dimension->Auto) {
        Zone->IMax = Dimension->IMax;
        Zone->JMax = Dimension->JMax;
        Zone->KMax = Dimension->KMax;
        Zone->NumPoints = TW_ZonePointCount(Dimension->IMax, Dimension->JMax, Dimension->KMax);
    } else {
        /* IMax counts up from 1 for every stored line; the final zone pass
           of the scan removes the starting 1. */
        Zone->IMax = 1;
        Zone->JMax = 1;
        Zone->KMax = 1;
        Zone->NumPoints = TW_AUTO_NUMPOINTS;
    }
    Zone->NumVars = NumVars;
    Zone->VarValues = NULL;
    Zone->Next = NULL;

    char Name[32];
    snprintf(Name, sizeof(Name), "Zone %d", (int)ZoneNumber);
    Str_TackOnString(&Zone->ZoneName, Name);
    if (Zone->ZoneName == NULL)
        ShowDialogErrorMessage("Out of memory");

    if (NumVars > 0) {
        Zone->VarValues =
            (TW_DoubleArray_s **)TW_Calloc((size_t)NumVars, sizeof(TW_DoubleArray_s *));
        if (Zone->VarValues == NULL)
            ShowDialogErrorMessage("Out of memory");
        else
            for (int32_t Var = 0; Var < NumVars; Var++)
                Zone->VarValues[Var] = TW_DoubleArrayAlloc();
    }

    if (*LastZone != NULL)
        (*LastZone)->Next = Zone;
    *LastZone = Zone;
    if (*ZoneList == NULL)
        *ZoneList = Zone;
    return true;
}

/* Frees title, zones (names, value arrays, pointer arrays), text lines and
   the variable array, then the record; *DataSet becomes NULL. */
void FileDataSetDealloc(TW_FileDataSet_s **DataSet)
{
    if (DataSet == NULL || *DataSet == NULL)
        return;
    TW_FileDataSet_s *Set = *DataSet;

    if (Set->Title != NULL)
        CvnUtilStringDealloc(&Set->Title);

    TW_ZoneInfo_s *Zone = Set->ZoneList;
    while (Zone != NULL) {
        TW_ZoneInfo_s *Next = Zone->Next;
        if (Zone->ZoneName != NULL)
            CvnUtilStringDealloc(&Zone->ZoneName);
        if (Zone->VarValues != NULL) {
            for (int32_t Var = 0; Var < Zone->NumVars; Var++)
                TW_DoubleArrayDealloc(&Zone->VarValues[Var]);
            TW_Free(Zone->VarValues);
        }
        TW_Free(Zone);
        Zone = Next;
    }

    TW_TextLine_s *Line = Set->RawLineList;
    while (Line != NULL) {
        TW_TextLine_s *Next = Line->Next;
        TW_Free(Line);
        Line = Next;
    }

    TW_Free(Set->VarList);
    TW_Free(Set);
    *DataSet = NULL;
}

/* Releasing a large data set takes a while: the host lock is held and a
   progress box without Cancel is shown meanwhile. */
void ReleaseFileData(TW_FileDataSet_s **DataSet)
{
    CvnUtilLockStart(AddOnID);
    CvnUtilDialogLaunchPercentDone("Releasing memory...", FALSE);
    FileDataSetDealloc(DataSet);
    CvnUtilDialogDropPercentDone();
    CvnUtilLockFinish(AddOnID);
}

} // namespace corvane::cvnutildataio
