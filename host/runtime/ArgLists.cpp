/*
 * ArgLists.cpp - host argument lists: named values (text, integer,
 * function, string list) in the order they were appended. Names are
 * matched ignoring ASCII case.
 */
#include <utility>

#include "Handles.h"
#include "HostObjects.h"

using namespace corvane::host;

namespace {

char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lowerAscii(a[i]) != lowerAscii(b[i]))
            return false;
    return true;
}

Boolean_t append(ArgList_s *list, const char *name, ArgList_s::Value value)
{
    if (list == nullptr || name == nullptr || *name == '\0')
        return FALSE;
    return changeWithoutThrowing([&] { list->args.push_back({name, std::move(value)}); });
}

} // namespace

const ArgList_s::Arg *ArgList_s::find(std::string_view name) const
{
    for (const Arg &arg : args)
        if (sameName(arg.name, name))
            return &arg;
    return nullptr;
}

extern "C" {

ArgList_s *CvnUtilArgListAlloc(void)
{
    return newHostObject<ArgList_s>();
}

void CvnUtilArgListDealloc(ArgList_s **ArgList)
{
    deleteHostObject(ArgList);
}

Boolean_t CvnUtilArgListAppendString(ArgList_s *ArgList, const char *Name, const char *Value)
{
    return append(ArgList, Name, std::string(Value != nullptr ? Value : ""));
}

Boolean_t CvnUtilArgListAppendInt(ArgList_s *ArgList, const char *Name, LgIndex_t Value)
{
    return append(ArgList, Name, Value);
}

Boolean_t CvnUtilArgListAppendFunction(ArgList_s *ArgList, const char *Name, const void *Function)
{
    return append(ArgList, Name, Function);
}

Boolean_t CvnUtilArgListAppendStringList(ArgList_s *ArgList, const char *Name,
                                         const StringList_s *StringList)
{
    if (StringList == nullptr)
        return FALSE;
    return append(ArgList, Name, StringList->items);
}

} // extern "C"
