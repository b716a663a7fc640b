/*
 * Transfer.cpp - turns a scanned data set into a new host data set: plot
 * type, variable names, the data set itself, one ordered zone per scanned
 * zone and every value, under a cancellable progress box.
 *
 * The caller holds the host lock and brackets the call with the host's
 * data-load start and finish; nothing here locks.
 */
#include "Transfer.h"

#include "DoubleArray.h"
#include "AddOnHost.h"
#include "MulDiv.h"
#include "Progress.h"
#include "TW_Alloc.h"
#include "VarList.h"

namespace corvane::cvnutildataio {

/* Progress of one transfer: values copied so far against the total that
   the first zone predicts, and the last percentage given to the box. */
typedef struct {
    int64_t Counter; /* may pass 2^31 in loads of several zones */
    int32_t Total;
    int32_t LastPercent;
} TW_TransferProgress_s;

/* Recomputes the percentage and asks the progress box when it changed.
   False when the user pressed cancel (GlobalCancelled is then set). */
static bool UpdateProgress(TW_TransferProgress_s *Progress)
{
    int32_t Percent = 0;
    if (Progress->Counter <= INT32_MAX)
        Percent = TW_MulDiv((int32_t)Progress->Counter, 100, Progress->Total);
    else if (Progress->Total > 0)
        Percent = (int32_t)(Progress->Counter * 100 / Progress->Total);
    if (Percent != Progress->LastPercent) {
        if (!TW_CheckPercentDone(Percent))
            return false;
        Progress->LastPercent = Percent;
    }
    return true;
}

/* Field type of the generated index variables: the smallest integer type
   that holds the largest index of the first zone. */
static FieldDataType_e IndexFieldType(const TW_ZoneInfo_s *Zone)
{
    int32_t Largest = Zone->IMax;
    if (Zone->JMax > Largest)
        Largest = Zone->JMax;
    if (Zone->KMax > Largest)
        Largest = Zone->KMax;
    if (Largest > 65535)
        return FieldDataType_Int32;
    if (Largest > 255)
        return FieldDataType_Int16;
    return FieldDataType_Byte;
}

/* Stores the point indices i, j (and k) of every point of host zone Zone
   into host variables 1, 2 (and 3), I running fastest. False on cancel. */
static bool TransferIndexValues(const TW_ZoneInfo_s *Zone, EntIndex_t HostZone, bool ThirdIndex,
                                TW_TransferProgress_s *Progress)
{
    FieldData_pa IRef = CvnUtilDataValueGetRef(HostZone, 1);
    FieldData_pa JRef = CvnUtilDataValueGetRef(HostZone, 2);
    FieldData_pa KRef = ThirdIndex ? CvnUtilDataValueGetRef(HostZone, 3) : nullptr;
    LgIndex_t Point = 1;
    for (int32_t k = 1; k <= Zone->KMax; k++)
        for (int32_t j = 1; j <= Zone->JMax; j++)
            for (int32_t i = 1; i <= Zone->IMax; i++) {
                if (!UpdateProgress(Progress))
                    return false;
                CvnUtilDataValueSetByRef(IRef, Point, (double)i);
                CvnUtilDataValueSetByRef(JRef, Point, (double)j);
                if (ThirdIndex)
                    CvnUtilDataValueSetByRef(KRef, Point, (double)k);
                Progress->Counter += 3;
                Point++;
            }
    return true;
}

Boolean_t LoadDataIntoCorvane(TW_FileDataSet_s *DataSet, PlotType_e &PlotType)
{
    const TW_ZoneInfo_s *FirstZone = DataSet->ZoneList;
    int32_t IMax = FirstZone ? FirstZone->IMax : 0;
    int32_t JMax = FirstZone ? FirstZone->JMax : 0;
    int32_t KMax = FirstZone ? FirstZone->KMax : 0;
    bool IndexExpansion = false;
    bool ThirdIndex = false;

    /* A lone variable on an IJ or IJK grid gets its indices as coordinates. */
    if (DataSet->NumVars == 1 && IMax > 1 && JMax > 1) {
        IndexExpansion = true;
        ThirdIndex = KMax > 1;
        PlotType = ThirdIndex ? PlotType_Cartesian3D : PlotType_Cartesian2D;
    } else if (KMax > 1) {
        PlotType = PlotType_Cartesian3D;
    } else if (JMax > 1) {
        PlotType = PlotType_Cartesian2D;
    } else {
        PlotType = PlotType_XYLine;
    }

    CvnUtilDialogLaunchPercentDone("Transferring data to Corvane...", TRUE);

    Boolean_t Result = FALSE;
    const char *Message = nullptr; /* shown at the end when the result is false */
    FieldDataType_e *FieldTypes = nullptr;
    ArgList_s *ArgList = nullptr;
    TW_TransferProgress_s Progress = {0, 0, 0};
    LgIndex_t NumNames = 0;

    StringList_s *Names = CvnUtilStringListAlloc();
    if (Names == nullptr) {
        Message = "Out of memory";
        goto Finish;
    }
    if (IndexExpansion) {
        CvnUtilStringListAppendString(Names, "I");
        CvnUtilStringListAppendString(Names, "J");
        if (ThirdIndex)
            CvnUtilStringListAppendString(Names, "K");
    }
    for (int32_t Var = 0; Var < DataSet->NumVars; Var++)
        if (DataSet->VarList[Var].Selected)
            CvnUtilStringListAppendString(Names, DataSet->VarList[Var].Name);

    NumNames = CvnUtilStringListGetCount(Names);
    FieldTypes = (FieldDataType_e *)TW_Malloc(sizeof(FieldDataType_e) *
                                             (size_t)(NumNames > 0 ? NumNames : 1));
    if (FieldTypes == nullptr) {
        Message = "Out of memory";
        goto Finish;
    }

    /* The total is taken from the first zone only; 32-bit as the counter. */
    Progress.Total = (int32_t)((int64_t)IMax * NumNames * JMax * KMax);
    if (Progress.Total == 0) {
        Message = "No data points found";
        goto Finish;
    }

    ArgList = CvnUtilArgListAlloc();
    if (ArgList == nullptr)
        goto Finish;
    if (!CvnUtilArgListAppendString(ArgList, "LoaderName", TW_LOADER_NAME) ||
        !CvnUtilArgListAppendString(ArgList, "DataSetTitle",
                                    DataSet->Title ? DataSet->Title : "") ||
        !CvnUtilArgListAppendStringList(ArgList, "VarNames", Names)) {
        CvnUtilArgListDealloc(&ArgList);
        goto Finish;
    }
    if (!CvnUtilDataSetCreateX(ArgList)) {
        CvnUtilPostLastErrorMessage();
        CvnUtilArgListDealloc(&ArgList);
        goto Finish;
    }
    CvnUtilArgListDealloc(&ArgList);
    Result = TRUE;

    for (LgIndex_t Entry = 0; Entry < NumNames; Entry++)
        FieldTypes[Entry] = FieldDataType_Double;
    if (IndexExpansion) {
        FieldDataType_e IndexType = IndexFieldType(FirstZone);
        FieldTypes[0] = IndexType;
        FieldTypes[1] = IndexType;
        if (ThirdIndex)
            FieldTypes[2] = IndexType;
    }

    {
        EntIndex_t HostZone = 1;
        for (const TW_ZoneInfo_s *Zone = DataSet->ZoneList; Zone != nullptr && Result;
             Zone = Zone->Next, HostZone++) {
            if (!CvnUtilDataSetAddZone(Zone->ZoneName ? Zone->ZoneName : "", Zone->IMax,
                                       Zone->JMax, Zone->KMax, ZoneType_Ordered, FieldTypes)) {
                /* What was added so far stays with the host. */
                Message = "Internal error: Could not create zone. Probably out of memory";
                Result = FALSE;
                goto Finish;
            }

            EntIndex_t HostVar = 1;
            if (IndexExpansion) {
                if (!TransferIndexValues(Zone, HostZone, ThirdIndex, &Progress)) {
                    Result = FALSE;
                    goto Finish;
                }
                HostVar = ThirdIndex ? 4 : 3;
            }

            for (int32_t Var = 0; Var < DataSet->NumVars; Var++) {
                if (!DataSet->VarList[Var].Selected)
                    continue;
                FieldData_pa Ref = CvnUtilDataValueGetRef(HostZone, HostVar);
                if (Ref == nullptr) {
                    /* The zone's other variables are still copied. */
                    Message = "Internal Error: NULL field data pointer";
                    Result = FALSE;
                    HostVar++;
                    continue;
                }
                TW_DoubleArray_s *Values = Zone->VarValues[Var];
                for (int32_t Point = 1; Point <= Zone->NumPoints; Point++)
                    CvnUtilDataValueSetByRef(Ref, Point, TW_DoubleArrayGetAt(Values, Point - 1));
                TW_DoubleArrayReleaseValues(Values);
                Progress.Counter += Zone->NumPoints;
                if (!UpdateProgress(&Progress)) {
                    Result = FALSE;
                    goto Finish;
                }
                HostVar++;
            }
        }
    }

Finish:
    CvnUtilDialogDropPercentDone();
    CvnUtilStringListDealloc(&Names);
    TW_Free(FieldTypes);
    if (!Result && Message != nullptr)
        CvnUtilDialogErrMsg(Message);
    return Result;
}

} // namespace corvane::cvnutildataio
