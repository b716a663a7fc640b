/*
 * LoaderCallbacks.h - the loader callbacks the host calls, the shared load
 * routine, and the file-information record of the main dialog.
 */
#ifndef TW_LOADERCALLBACKS_H
#define TW_LOADERCALLBACKS_H

#include "CvnAPI.h"
#include "Globals.h"

namespace corvane::cvnutildataio {

Boolean_t LoaderCallback(StringList_s *Instructions, long ClientData);
void LoaderSelectedCallback(StringList_s *Instructions, char Flag, long ClientData);
/* Reads the instructions, scans the file, transfers it and stores the
   instructions with the new data set. */
Boolean_t internalLoaderCallback(StringList_s *Instructions, char CalledFromDialog);

/* NULL after "Out of memory. Unable to allocate file map structure". */
TW_FileInfo_s *FileInfoAlloc();
void FileInfoDealloc(TW_FileInfo_s **FileInfo);

} // namespace corvane::cvnutildataio

#endif
