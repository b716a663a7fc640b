/*
 * VarList.h - variable-name entries and their copy and lookup operations.
 */
#ifndef TW_VARLIST_H
#define TW_VARLIST_H

#include <cstdint>

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

#define TW_MAX_VARNAME_LENGTH 128

typedef struct {
    char Name[TW_MAX_VARNAME_LENGTH + 1];
    int32_t NameLength;  /* strlen of Name */
    bool Selected;       /* the variable is to be loaded */
    int32_t ColumnWidth; /* preview column width */
} TW_Variable_s;

/* Replaces *Dest (freed) by copies of the N source names: Selected TRUE,
   ColumnWidth max(NameLength, 6). *DestCount becomes N. */
void CopyVarToVar(TW_Variable_s **Dest, const TW_Variable_s *Source, int32_t *DestCount,
                  int32_t N);
/* Replaces *Dest by entries made from the list's strings. */
void CopyStringListToVar(TW_Variable_s **Dest, const StringList_s *List);
/* Replaces *Dest by an exact copy of the N source entries. */
void TW_CopyVarNameArray(const TW_Variable_s *Source, int32_t N, TW_Variable_s **Dest,
                         int32_t *DestCount);
/* 1-based position of the first entry named Name (case ignored); -1. */
int32_t TW_GetVariablePosition(const char *Name, const TW_Variable_s *Vars, int32_t N);

} // namespace corvane::cvnutildataio

#endif
