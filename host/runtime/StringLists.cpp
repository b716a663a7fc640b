/*
 * StringLists.cpp - host string lists: an ordered list of strings, items
 * numbered from 1. GetString hands out a copy the caller releases.
 */
#include "Handles.h"
#include "HostMemory.h"
#include "HostObjects.h"

using namespace corvane::host;

extern "C" {

StringList_s *CvnUtilStringListAlloc(void)
{
    return newHostObject<StringList_s>();
}

void CvnUtilStringListDealloc(StringList_s **StringList)
{
    deleteHostObject(StringList);
}

void CvnUtilStringListClear(StringList_s *StringList)
{
    if (StringList != nullptr)
        StringList->items.clear();
}

Boolean_t CvnUtilStringListAppendString(StringList_s *StringList, const char *String)
{
    if (StringList == nullptr)
        return FALSE;
    return changeWithoutThrowing(
        [&] { StringList->items.emplace_back(String != nullptr ? String : ""); });
}

LgIndex_t CvnUtilStringListGetCount(const StringList_s *StringList)
{
    return StringList != nullptr ? static_cast<LgIndex_t>(StringList->items.size()) : 0;
}

char *CvnUtilStringListGetString(const StringList_s *StringList, LgIndex_t Index)
{
    if (StringList == nullptr || Index < 1 || Index > static_cast<LgIndex_t>(StringList->items.size()))
        return nullptr;
    return newHostString(StringList->items[static_cast<std::size_t>(Index - 1)],
                         "StringListGetString");
}

} // extern "C"
