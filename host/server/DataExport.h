/*
 * DataExport.h - a data set as a download, written by the same writers as
 * corvane load -o, and the file name the browser saves it under.
 */
#ifndef CORVANE_SERVER_DATAEXPORT_H
#define CORVANE_SERVER_DATAEXPORT_H

#include <cstddef>
#include <string>

#include "CommandLine.h"
#include "DataModel.h"

namespace corvane::server {

/* The data set as corvane load -o writes it in that format. */
std::string exportText(const host::DataSet &set, cli::OutputFormat format);

/* A file name for the download: the title's letters, digits, '-', '_'
   and '.', blanks and everything else made '_' (at most 80 characters),
   or "dataset-N" for a title without any; then the extension. */
std::string downloadName(const host::DataSet &set, std::size_t index, cli::OutputFormat format);

} // namespace corvane::server

#endif
