/*
 * Sets.cpp - host sets of 1-based numbers. The host shows no box of its own
 * when a set cannot be made: the caller reports the failure in its words.
 */
#include "Handles.h"
#include "HostObjects.h"

using namespace corvane::host;

extern "C" {

Set_s *CvnUtilSetAlloc(Boolean_t /*ShowErr*/)
{
    return newHostObject<Set_s>();
}

void CvnUtilSetDealloc(Set_s **Set)
{
    deleteHostObject(Set);
}

void CvnUtilSetClear(Set_s *Set)
{
    if (Set != nullptr)
        Set->members.clear();
}

Boolean_t CvnUtilSetAddMember(Set_s *Set, LgIndex_t Member, Boolean_t /*ShowErr*/)
{
    if (Set == nullptr || Member < 1)
        return FALSE;
    return changeWithoutThrowing([&] { Set->members.insert(Member); });
}

Boolean_t CvnUtilSetRemoveMember(Set_s *Set, LgIndex_t Member)
{
    if (Set == nullptr)
        return FALSE;
    Set->members.erase(Member);
    return TRUE;
}

Boolean_t CvnUtilSetIsMember(const Set_s *Set, LgIndex_t Member)
{
    return Set != nullptr && Set->members.contains(Member) ? TRUE : FALSE;
}

Boolean_t CvnUtilSetCopy(Set_s *Dst, const Set_s *Src, Boolean_t /*ShowErr*/)
{
    if (Dst == nullptr || Src == nullptr)
        return FALSE;
    return changeWithoutThrowing(
        [&] { Dst->members.insert(Src->members.begin(), Src->members.end()); });
}

Boolean_t CvnUtilSetIsEmpty(const Set_s *Set)
{
    return Set == nullptr || Set->members.empty() ? TRUE : FALSE;
}

LgIndex_t CvnUtilSetGetMemberCount(const Set_s *Set)
{
    return Set != nullptr ? static_cast<LgIndex_t>(Set->members.size()) : 0;
}

LgIndex_t CvnUtilSetGetNextMember(const Set_s *Set, LgIndex_t Member)
{
    if (Set == nullptr)
        return CVN_NO_MEMBER;
    auto next = Set->members.upper_bound(Member);
    return next != Set->members.end() ? *next : CVN_NO_MEMBER;
}

} // extern "C"
