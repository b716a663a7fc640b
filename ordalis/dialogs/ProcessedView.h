/*
 * ProcessedView.h - a scanned data set as the preview shows it: variable
 * names and data (in columns or blocks), names only, or the lines the scan
 * did not use.
 */
#ifndef TW_PROCESSEDVIEW_H
#define TW_PROCESSEDVIEW_H

#include <cstdint>

#include "CvnAPI.h"
#include "FileDataSet.h"

namespace corvane::cvnutildataio {

/* Appends the view of DataSet chosen by Show (1 names and data, 2 names
   only, 3 non-processed lines; anything else shows nothing) and ShowFormat
   (1 columns, 2 blocks) to the text control TextID. Limit 1 or more bounds
   the lines shown. */
void FormatProcessedData(LgIndex_t TextID, const TW_FileDataSet_s *DataSet, int32_t Show,
                         int32_t ShowFormat, int32_t Limit);

} // namespace corvane::cvnutildataio

#endif
