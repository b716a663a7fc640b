/*
 * Transfer.h - turns a scanned data set into a new host data set.
 */
#ifndef TW_TRANSFER_H
#define TW_TRANSFER_H

#include "CvnAPI.h"
#include "FileDataSet.h"

namespace corvane::cvnutildataio {

/* Creates the host data set with its zones and values. *PlotType is written
   first and stays written on failure. Each variable's scanned values are
   released as soon as the host holds them, so that the load never needs
   memory for two copies of its data; afterwards the data set is only good
   for FileDataSetDealloc. */
Boolean_t LoadDataIntoCorvane(TW_FileDataSet_s *DataSet, PlotType_e &PlotType);

} // namespace corvane::cvnutildataio

#endif
