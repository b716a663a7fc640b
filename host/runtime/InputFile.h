/*
 * InputFile.h - a file opened for reading, with the reason when it cannot
 * be: the one way the host's tools open the files users name.
 */
#ifndef CORVANE_HOST_INPUTFILE_H
#define CORVANE_HOST_INPUTFILE_H

#include <fstream>
#include <string>

#include "Expected.h"

namespace corvane::host {

/* The file at path, opened for reading in binary mode. A folder is refused
   (opening one succeeds and reads as empty). The error is "PATH: why":
   "is a directory", or the system's reason. */
Expected<std::ifstream> openInputFile(const std::string &path);

} // namespace corvane::host

#endif
