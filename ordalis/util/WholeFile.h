/*
 * WholeFile.h - reads a whole open file into one host string: the text of
 * an instruction-set file for the loader, the library and the reader.
 */
#ifndef TW_WHOLEFILE_H
#define TW_WHOLEFILE_H

#include <cstdio>

namespace corvane::cvnutildataio {

/* A new host string (tagged Tag) holding the whole of File, from its start,
   NUL-terminated; the caller frees it with CvnUtilStringDealloc. NULL, with
   nothing shown, when the string cannot be made: the caller reports. The
   file stays open. */
char *TW_ReadWholeFile(FILE *File, const char *Tag);

} // namespace corvane::cvnutildataio

#endif
