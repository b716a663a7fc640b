/*
 * VarList.cpp - arrays of variable-name entries (one heap block each, the
 * count kept beside the pointer): copies from entries and from host string
 * lists and lookup by name.
 */
#include "VarList.h"

#include <cstring>

#include "StringUtil.h"
#include "TW_Alloc.h"

namespace corvane::cvnutildataio {

#define TW_MIN_COLUMN_WIDTH 6

static const char *const OutOfMemory = "Out of memory";

/* Fills Entry from Name as every copy from outside does: the name cut to
   128 characters, selected, column width the name length but at least 6. */
static void FillEntry(TW_Variable_s *Entry, const char *Name)
{
    strncpy(Entry->Name, Name, TW_MAX_VARNAME_LENGTH);
    Entry->Name[TW_MAX_VARNAME_LENGTH] = '\0';
    Entry->NameLength = static_cast<int32_t>(strlen(Entry->Name));
    Entry->Selected = true;
    Entry->ColumnWidth =
        Entry->NameLength > TW_MIN_COLUMN_WIDTH ? Entry->NameLength : TW_MIN_COLUMN_WIDTH;
}

/* The old block is released only after the new one is made, so Source may
   be the old block itself. On "Out of memory" *Dest is NULL and *DestCount
   0: an empty list rather than a count without entries. */
void CopyVarToVar(TW_Variable_s **Dest, const TW_Variable_s *Source, int32_t *DestCount,
                  int32_t N)
{
    TW_Variable_s *New = nullptr;
    if (N > 0) {
        New = static_cast<TW_Variable_s *>(TW_Calloc(static_cast<size_t>(N), sizeof(TW_Variable_s)));
        if (New == nullptr)
            CvnUtilDialogErrMsg(OutOfMemory);
        else
            for (int32_t I = 0; I < N; I++)
                FillEntry(&New[I], Source[I].Name);
    }
    TW_Free(*Dest);
    *Dest = New;
    *DestCount = New != nullptr ? N : 0;
}

/* One entry per list string, in order. On "Out of memory" for the block
   *Dest is NULL; a string the host cannot hand out leaves its entry with an
   empty name (after "Out of memory"). */
void CopyStringListToVar(TW_Variable_s **Dest, const StringList_s *List)
{
    LgIndex_t Count = CvnUtilStringListGetCount(List);
    TW_Free(*Dest);
    *Dest = nullptr;
    if (Count <= 0)
        return;
    TW_Variable_s *New =
        static_cast<TW_Variable_s *>(TW_Calloc(static_cast<size_t>(Count), sizeof(TW_Variable_s)));
    if (New == nullptr) {
        CvnUtilDialogErrMsg(OutOfMemory);
        return;
    }
    for (LgIndex_t I = 0; I < Count; I++) {
        char *Name = CvnUtilStringListGetString(List, I + 1);
        if (Name == nullptr)
            CvnUtilDialogErrMsg(OutOfMemory);
        FillEntry(&New[I], Name != nullptr ? Name : "");
        CvnUtilStringDealloc(&Name);
    }
    *Dest = New;
}

/* Entries copied whole (names not cut, Selected and ColumnWidth kept);
   NameLength recomputed. On "Out of memory" *Dest is NULL, *DestCount 0. */
void TW_CopyVarNameArray(const TW_Variable_s *Source, int32_t N, TW_Variable_s **Dest,
                         int32_t *DestCount)
{
    TW_Variable_s *New = nullptr;
    if (N > 0) {
        New = static_cast<TW_Variable_s *>(TW_Malloc(static_cast<size_t>(N) * sizeof(TW_Variable_s)));
        if (New == nullptr) {
            CvnUtilDialogErrMsg(OutOfMemory);
        } else {
            memcpy(New, Source, static_cast<size_t>(N) * sizeof(TW_Variable_s));
            for (int32_t I = 0; I < N; I++)
                New[I].NameLength = static_cast<int32_t>(strlen(New[I].Name));
        }
    }
    TW_Free(*Dest);
    *Dest = New;
    *DestCount = New != nullptr ? N : 0;
}

int32_t TW_GetVariablePosition(const char *Name, const TW_Variable_s *Vars, int32_t N)
{
    for (int32_t I = 0; I < N; I++)
        if (Str_ustrcmp(Name, Vars[I].Name) == 0)
            return I + 1;
    return -1;
}

} // namespace corvane::cvnutildataio
