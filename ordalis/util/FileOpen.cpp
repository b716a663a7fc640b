/*
 * FileOpen.cpp - the file-system wrapper.
 */
#include "FileOpen.h"

#include <cerrno>
#include <sys/stat.h>

namespace corvane::filesystem {

FILE *fileOpen(const std::string &FileName, const std::string &Mode)
{
    FILE *File = fopen(FileName.c_str(), Mode.c_str());
    if (File == nullptr)
        return nullptr;
    struct stat Status;
    if (fstat(fileno(File), &Status) != 0 || S_ISDIR(Status.st_mode) || S_ISCHR(Status.st_mode) ||
        S_ISBLK(Status.st_mode)) {
        fclose(File);
        errno = S_ISDIR(Status.st_mode) ? EISDIR : ENODEV;
        return nullptr;
    }
    return File;
}

} // namespace corvane::filesystem
