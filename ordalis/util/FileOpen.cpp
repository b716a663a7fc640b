/*
 * FileOpen.cpp - the file-system wrapper.
 */
#include "FileOpen.h"

namespace corvane::filesystem {

FILE *fileOpen(const std::string &FileName, const std::string &Mode)
{
    return fopen(FileName.c_str(), Mode.c_str());
}

} // namespace corvane::filesystem
