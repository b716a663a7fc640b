/*
 * FileInfo.h - the data file chosen in the open main dialog and the index
 * of the current instruction set.
 */
#ifndef TW_FILEINFO_H
#define TW_FILEINFO_H

#include <cstdint>

namespace corvane::cvnutildataio {

typedef struct {
    char FileName[1001];    /* full path; empty when none is chosen */
    char DisplayName[1001]; /* cropped for the dialog */
    int32_t FileSize;
    int32_t CurConfigIndex; /* 0-based entry of GlobalConfigInfoArray */
} TW_FileInfo_s;

/* The record of the open main dialog: made when the loader is picked,
   freed when the dialog cannot open and at the host's quit. */
extern TW_FileInfo_s *GlobalFileInfo;

/* New file information, all fields empty or 0; NULL after "Out of memory.
   Unable to allocate file map structure". Freed with FileInfoDealloc. */
TW_FileInfo_s *FileInfoAlloc();
/* Frees *FileInfo and clears it; NULL is accepted. */
void FileInfoDealloc(TW_FileInfo_s **FileInfo);

} // namespace corvane::cvnutildataio

#endif
