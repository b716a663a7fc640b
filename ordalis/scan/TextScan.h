/*
 * TextScan.h - reads a text data file under an instruction set into a
 * scanned data set, with progress, cancel and questions.
 */
#ifndef TW_TEXTSCAN_H
#define TW_TEXTSCAN_H

#include "FileDataSet.h"
#include "Instructions.h"

namespace corvane::cvnutildataio {

/* Scans FileName into *DataSet (made when NULL). With ReadData false only
   the title and variables are gathered. On failure the data set is released
   and *DataSet is NULL. Writes the trimmed filter markers back into Instr. */
bool ScanTextFile(TW_FileDataSet_s **DataSet, const char *FileName,
                  TW_ConfigInstructions_s *Instr, bool ReadData);

} // namespace corvane::cvnutildataio

#endif
