/*
 * WholeFile.cpp - one read of a whole file into a host string.
 */
#include "WholeFile.h"

#include "CvnAPI.h"

namespace corvane::cvnutildataio {

char *TW_ReadWholeFile(FILE *File, const char *Tag)
{
    long Size = 0;
    if (fseek(File, 0, SEEK_END) == 0)
        Size = ftell(File);
    if (Size < 0)
        Size = 0;
    rewind(File);

    char *Text = CvnUtilStringAlloc(Size, Tag);
    if (Text == nullptr)
        return nullptr;
    size_t Read = fread(Text, 1, (size_t)Size, File);
    Text[Read] = '\0';
    return Text;
}

} // namespace corvane::cvnutildataio
