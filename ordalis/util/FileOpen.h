/*
 * FileOpen.h - the file-system wrapper through which the add-on opens every
 * file it reads or writes.
 */
#ifndef TW_FILEOPEN_H
#define TW_FILEOPEN_H

#include <cstdio>
#include <string>

namespace corvane::filesystem {
/* fopen of FileName in Mode; NULL on failure. */
FILE *fileOpen(const std::string &FileName, const std::string &Mode);
} // namespace corvane::filesystem

#endif
