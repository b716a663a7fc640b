// Host strings, string lists, sets and argument lists as add-ons use them,
// with allocation failures injected and live objects counted.
#include <cstring>
#include <string>
#include <variant>
#include <vector>

#include "Handles.h"
#include "HostFixture.h"
#include "HostMemory.h"

using namespace corvane::host;

using HandlesTest = HostTest;

TEST_F(HandlesTest, StringsAreZeroFilledLabelledAndReleasedOnce)
{
    char *text = CvnUtilStringAlloc(5, "ConfigStr");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::memcmp(text, "\0\0\0\0\0\0", 6), 0);
    EXPECT_EQ(hostObjectsMade(), 1);
    EXPECT_EQ(liveStringLabels(), std::vector<std::string>{"ConfigStr"});
    std::strcpy(text, "abcde");

    CvnUtilStringDealloc(&text);
    EXPECT_EQ(text, nullptr);
    CvnUtilStringDealloc(&text); // a second release is harmless
    CvnUtilStringDealloc(nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_TRUE(liveStringLabels().empty());
    EXPECT_EQ(CvnUtilStringAlloc(-1, "negative"), nullptr);
}

TEST_F(HandlesTest, OnlyTheChosenAllocationFails)
{
    failHostAllocationAt(2);
    char *first = CvnUtilStringAlloc(3, "first");
    StringList_s *list = CvnUtilStringListAlloc();
    Set_s *set = CvnUtilSetAlloc(TRUE);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(list, nullptr);
    EXPECT_NE(set, nullptr);
    EXPECT_EQ(hostAllocationCount(), 3);
    EXPECT_EQ(hostObjectsMade(), 2);
    EXPECT_TRUE(ui().transcript().empty()); // the host shows no box of its own

    failHostAllocationAt(1);
    EXPECT_EQ(CvnUtilArgListAlloc(), nullptr);
    Set_s *second = CvnUtilSetAlloc(TRUE);
    EXPECT_NE(second, nullptr) << "only the first allocation fails";
    EXPECT_EQ(hostObjectsMade(), 3);
    CvnUtilSetDealloc(&second);
    CvnUtilSetDealloc(&set);
    CvnUtilStringDealloc(&first);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(HandlesTest, StringListsCopyInAndHandOutCopies)
{
    StringList_s *list = CvnUtilStringListAlloc();
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(CvnUtilStringListAppendString(list, "/data/run1.txt"));
    EXPECT_TRUE(CvnUtilStringListAppendString(list, "VERSION 1"));
    EXPECT_TRUE(CvnUtilStringListAppendString(list, nullptr));
    EXPECT_FALSE(CvnUtilStringListAppendString(nullptr, "x"));
    EXPECT_EQ(CvnUtilStringListGetCount(list), 3);
    EXPECT_EQ(CvnUtilStringListGetCount(nullptr), 0);

    char *second = CvnUtilStringListGetString(list, 2);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(second, "VERSION 1");
    second[0] = 'v'; // a copy: the list keeps its own text
    EXPECT_EQ(list->items, (std::vector<std::string>{"/data/run1.txt", "VERSION 1", ""}));
    EXPECT_EQ(CvnUtilStringListGetString(list, 0), nullptr);
    EXPECT_EQ(CvnUtilStringListGetString(list, 4), nullptr);

    failHostAllocationAt(1);
    EXPECT_EQ(CvnUtilStringListGetString(list, 1), nullptr);
    EXPECT_EQ(hostAllocationCount(), 1);

    CvnUtilStringDealloc(&second);
    CvnUtilStringListClear(list);
    EXPECT_EQ(CvnUtilStringListGetCount(list), 0);
    CvnUtilStringListDealloc(&list);
    EXPECT_EQ(list, nullptr);
    CvnUtilStringListDealloc(&list);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(HandlesTest, SetsHoldOneBasedMembersAndCopyAddsToTheDestination)
{
    Set_s *dst = CvnUtilSetAlloc(TRUE);
    Set_s *src = CvnUtilSetAlloc(TRUE);
    ASSERT_TRUE(dst && src);
    EXPECT_TRUE(CvnUtilSetIsEmpty(dst));
    EXPECT_FALSE(CvnUtilSetAddMember(dst, 0, TRUE));
    EXPECT_TRUE(CvnUtilSetAddMember(dst, 7, TRUE));
    EXPECT_TRUE(CvnUtilSetAddMember(dst, 2, TRUE));
    EXPECT_TRUE(CvnUtilSetAddMember(src, 2, TRUE));
    EXPECT_TRUE(CvnUtilSetAddMember(src, 40, TRUE));

    EXPECT_TRUE(CvnUtilSetCopy(dst, src, TRUE));
    std::vector<LgIndex_t> members;
    for (LgIndex_t m = CvnUtilSetGetNextMember(dst, CVN_NO_MEMBER); m != CVN_NO_MEMBER;
         m = CvnUtilSetGetNextMember(dst, m))
        members.push_back(m);
    EXPECT_EQ(members, (std::vector<LgIndex_t>{2, 7, 40}));
    EXPECT_EQ(CvnUtilSetGetMemberCount(dst), 3);
    EXPECT_EQ(CvnUtilSetGetNextMember(dst, 3), 7);
    EXPECT_EQ(CvnUtilSetGetNextMember(dst, 40), CVN_NO_MEMBER);

    EXPECT_TRUE(CvnUtilSetRemoveMember(dst, 7));
    EXPECT_FALSE(CvnUtilSetIsMember(dst, 7));
    EXPECT_TRUE(CvnUtilSetIsMember(dst, 40));
    CvnUtilSetClear(dst);
    EXPECT_TRUE(CvnUtilSetIsEmpty(dst));
    EXPECT_EQ(CvnUtilSetGetNextMember(dst, CVN_NO_MEMBER), CVN_NO_MEMBER);
    EXPECT_TRUE(CvnUtilSetIsMember(src, 40)) << "the source is left alone";

    CvnUtilSetDealloc(&dst);
    CvnUtilSetDealloc(&src);
    EXPECT_EQ(dst, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(HandlesTest, ArgumentListsKeepOrderAndMatchNamesIgnoringCase)
{
    StringList_s *vars = CvnUtilStringListAlloc();
    CvnUtilStringListAppendString(vars, "X");
    CvnUtilStringListAppendString(vars, "Y");
    ArgList_s *args = CvnUtilArgListAlloc();
    ASSERT_NE(args, nullptr);
    static const int marker = 0;
    EXPECT_TRUE(CvnUtilArgListAppendString(args, "LoaderName", "Ordalis Loader"));
    EXPECT_TRUE(CvnUtilArgListAppendInt(args, "InitialPlotType", PlotType_XYLine));
    EXPECT_TRUE(CvnUtilArgListAppendFunction(args, "LoaderCallback", &marker));
    EXPECT_TRUE(CvnUtilArgListAppendStringList(args, "VarNames", vars));
    EXPECT_TRUE(CvnUtilArgListAppendString(args, "loadername", "second"));
    EXPECT_FALSE(CvnUtilArgListAppendString(args, "", "x"));
    EXPECT_FALSE(CvnUtilArgListAppendStringList(args, "Empty", nullptr));
    CvnUtilStringListAppendString(vars, "Z"); // the argument holds a copy
    CvnUtilStringListDealloc(&vars);

    ASSERT_EQ(args->args.size(), 5u);
    const ArgList_s::Arg *name = args->find("LOADERNAME");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(std::get<std::string>(name->value), "Ordalis Loader");
    EXPECT_EQ(std::get<LgIndex_t>(args->find("initialplottype")->value), 3);
    EXPECT_EQ(std::get<const void *>(args->find("LoaderCallback")->value), &marker);
    EXPECT_EQ(std::get<std::vector<std::string>>(args->find("VarNames")->value),
              (std::vector<std::string>{"X", "Y"}));
    EXPECT_EQ(args->find("LoaderNam"), nullptr);

    CvnUtilArgListDealloc(&args);
    EXPECT_EQ(args, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
}

// Builds a list with two strings and an argument list holding it, as a
// loader registration does, releasing everything on any failure.
static bool buildRegistration()
{
    StringList_s *list = CvnUtilStringListAlloc();
    ArgList_s *args = list ? CvnUtilArgListAlloc() : nullptr;
    char *name = args ? CvnUtilStringAlloc(20, "name") : nullptr;
    bool ok = name && CvnUtilStringListAppendString(list, "a") &&
              CvnUtilArgListAppendStringList(args, "Names", list);
    char *copy = ok ? CvnUtilStringListGetString(list, 1) : nullptr;
    ok = ok && copy != nullptr;
    CvnUtilStringDealloc(&copy);
    CvnUtilStringDealloc(&name);
    CvnUtilArgListDealloc(&args);
    CvnUtilStringListDealloc(&list);
    return ok;
}

TEST_F(HandlesTest, EveryAllocationOfAPathCanFailWithoutLeaks)
{
    long n = 1;
    for (; n < 10; ++n) {
        failHostAllocationAt(n);
        bool ok = buildRegistration();
        EXPECT_EQ(hostObjectsMade(), 0) << "failing allocation " << n;
        if (ok)
            break;
    }
    EXPECT_EQ(n, 5) << "four allocations, then success";
}
