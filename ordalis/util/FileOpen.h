/*
 * FileOpen.h - the file-system wrapper through which the add-on opens every
 * file it reads or writes.
 */
#ifndef TW_FILEOPEN_H
#define TW_FILEOPEN_H

#include <cstdio>
#include <string>

namespace corvane::filesystem {
/* fopen of FileName in Mode; NULL on failure, and for a directory or a
   device: the add-on reads and writes files only (a directory would read
   as an empty file, a device such as /dev/zero might never end). */
FILE *fileOpen(const std::string &FileName, const std::string &Mode);
} // namespace corvane::filesystem

#endif
