/*
 * DataSession.h - the data session behind the C data calls: the data sets
 * made so far, the open data-load bracket and the last error message.
 * Internal to the host runtime.
 */
#ifndef CORVANE_HOST_DATASESSION_H
#define CORVANE_HOST_DATASESSION_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DataModel.h"

namespace corvane::host::detail {

struct DataSession {
    /* Oldest first. Fields live in heap buffers that move with their zone,
       so a value handle stays valid while sets and zones are appended. */
    std::vector<DataSet> sets;
    /* CvnUtilDataLoadStart calls not yet finished. */
    int openLoads = 0;
    /* Index in sets of the data set created in the open load, if any. */
    std::optional<std::size_t> current;
    /* Reason of the last failed data or loader call, for
       CvnUtilPostLastErrorMessage; empty when the last call succeeded. */
    std::string lastError;
};

DataSession &dataSession();

/* The data set created in the open data load, or nullptr. */
DataSet *currentDataSet();

/* ASCII case-insensitive comparison, as the host compares keys and names. */
bool sameName(std::string_view a, std::string_view b);

} // namespace corvane::host::detail

#endif
