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
    EXPECT_EQ(liveStringLabels(), std::vector<std::string>{"ConfigStr"});
    CvnUtilStringDealloc(&text);
    EXPECT_EQ(text, nullptr);
    CvnUtilStringDealloc(&text); // a second release is harmless
    CvnUtilStringDealloc(nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
    EXPECT_EQ(CvnUtilStringAlloc(-1, "negative"), nullptr);

    // Only the chosen allocation fails, and the host shows no box of its own.
    failHostAllocationAt(2);
    text = CvnUtilStringAlloc(3, "first");
    EXPECT_EQ(CvnUtilStringListAlloc(), nullptr);
    Set_s *set = CvnUtilSetAlloc(TRUE);
    EXPECT_TRUE(text && set);
    EXPECT_EQ(hostAllocationCount(), 3);
    EXPECT_EQ(hostObjectsMade(), 2);
    EXPECT_TRUE(ui().transcript().empty());
    CvnUtilSetDealloc(&set);
    CvnUtilStringDealloc(&text);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(HandlesTest, StringListsAndSets)
{
    StringList_s *list = CvnUtilStringListAlloc();
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(CvnUtilStringListAppendString(list, "/data/run1.txt"));
    EXPECT_TRUE(CvnUtilStringListAppendString(list, nullptr));
    EXPECT_FALSE(CvnUtilStringListAppendString(nullptr, "x"));
    char *first = CvnUtilStringListGetString(list, 1);
    ASSERT_NE(first, nullptr);
    first[0] = 'x'; // a copy: the list keeps its own text
    EXPECT_EQ(list->items, (std::vector<std::string>{"/data/run1.txt", ""}));
    EXPECT_EQ(CvnUtilStringListGetString(list, 0), nullptr);
    EXPECT_EQ(CvnUtilStringListGetString(list, 3), nullptr);
    failHostAllocationAt(1);
    EXPECT_EQ(CvnUtilStringListGetString(list, 1), nullptr);
    CvnUtilStringDealloc(&first);
    CvnUtilStringListClear(list);
    EXPECT_EQ(CvnUtilStringListGetCount(list), 0);
    CvnUtilStringListDealloc(&list);
    EXPECT_EQ(list, nullptr);

    // Sets hold 1-based members; a copy adds to the destination.
    Set_s *dst = CvnUtilSetAlloc(TRUE);
    Set_s *src = CvnUtilSetAlloc(TRUE);
    ASSERT_TRUE(dst && src);
    EXPECT_FALSE(CvnUtilSetAddMember(dst, 0, TRUE));
    for (LgIndex_t m : {7, 2})
        EXPECT_TRUE(CvnUtilSetAddMember(dst, m, TRUE));
    for (LgIndex_t m : {2, 40})
        EXPECT_TRUE(CvnUtilSetAddMember(src, m, TRUE));
    EXPECT_TRUE(CvnUtilSetCopy(dst, src, TRUE));
    std::vector<LgIndex_t> members;
    for (LgIndex_t m = CvnUtilSetGetNextMember(dst, CVN_NO_MEMBER); m != CVN_NO_MEMBER;
         m = CvnUtilSetGetNextMember(dst, m))
        members.push_back(m);
    EXPECT_EQ(members, (std::vector<LgIndex_t>{2, 7, 40}));
    EXPECT_TRUE(CvnUtilSetRemoveMember(dst, 7));
    EXPECT_FALSE(CvnUtilSetIsMember(dst, 7));
    EXPECT_EQ(CvnUtilSetGetMemberCount(dst), 2);
    CvnUtilSetClear(dst);
    EXPECT_TRUE(CvnUtilSetIsEmpty(dst));
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
    EXPECT_EQ(std::get<std::string>(args->find("LOADERNAME")->value), "Ordalis Loader");
    EXPECT_EQ(std::get<LgIndex_t>(args->find("initialplottype")->value), 3);
    EXPECT_EQ(std::get<const void *>(args->find("LoaderCallback")->value), &marker);
    EXPECT_EQ(std::get<std::vector<std::string>>(args->find("VarNames")->value),
              std::vector<std::string>{"X"});
    EXPECT_EQ(args->find("LoaderNam"), nullptr);
    CvnUtilArgListDealloc(&args);
    EXPECT_EQ(args, nullptr);
    EXPECT_EQ(hostObjectsMade(), 0);
}

// Builds a list with a string and an argument list holding it, as a loader
// registration does, releasing everything on any failure.
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
