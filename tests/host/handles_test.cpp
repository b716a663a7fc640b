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

TEST_F(HandlesTest, StringsAreZeroFilledAndLabelled)
{
    char *text = CvnUtilStringAlloc(5, "ConfigStr");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(std::memcmp(text, "\0\0\0\0\0\0", 6), 0);
    EXPECT_EQ(liveStringLabels(), std::vector<std::string>{"ConfigStr"});
    CvnUtilStringDealloc(&text);
    EXPECT_EQ(text, nullptr);
    CvnUtilStringDealloc(&text); // a second release is harmless
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(HandlesTest, OnlyTheChosenAllocationFailsAndTheHostShowsNoBox)
{
    failHostAllocationAt(2);
    char *text = CvnUtilStringAlloc(3, "first");
    EXPECT_EQ(CvnUtilStringListAlloc(), nullptr);
    Set_s *set = CvnUtilSetAlloc(TRUE);
    EXPECT_NE(text, nullptr);
    EXPECT_NE(set, nullptr);
    EXPECT_TRUE(ui().transcript().empty());
    CvnUtilSetDealloc(&set);
    CvnUtilStringDealloc(&text);
    EXPECT_EQ(hostObjectsMade(), 0);
}

TEST_F(HandlesTest, ArgumentListsHoldCopiesFoundByNameIgnoringCase)
{
    StringList_s *list = CvnUtilStringListAlloc();
    EXPECT_TRUE(CvnUtilStringListAppendString(list, "X"));
    EXPECT_TRUE(CvnUtilStringListAppendString(list, nullptr));

    ArgList_s *args = CvnUtilArgListAlloc();
    EXPECT_TRUE(CvnUtilArgListAppendString(args, "LoaderName", "Ordalis Loader"));
    EXPECT_TRUE(CvnUtilArgListAppendInt(args, "InitialPlotType", PlotType_XYLine));
    EXPECT_TRUE(CvnUtilArgListAppendStringList(args, "VarNames", list));
    EXPECT_FALSE(CvnUtilArgListAppendString(args, "", "x"));
    CvnUtilStringListAppendString(list, "Z"); // the argument holds a copy
    CvnUtilStringListDealloc(&list);
    ASSERT_EQ(args->args.size(), 3u);
    EXPECT_EQ(std::get<std::string>(args->find("LOADERNAME")->value), "Ordalis Loader");
    EXPECT_EQ(std::get<LgIndex_t>(args->find("initialplottype")->value), 3);
    EXPECT_EQ(std::get<std::vector<std::string>>(args->find("VarNames")->value),
              (std::vector<std::string>{"X", ""}));
    EXPECT_EQ(args->find("LoaderNam"), nullptr);
    CvnUtilArgListDealloc(&args);
    EXPECT_EQ(hostObjectsMade(), 0);
}

// Sets hold 1-based members; a copy adds to the destination.
TEST_F(HandlesTest, SetsHoldMembersFromOneAndACopyAdds)
{
    Set_s *dst = CvnUtilSetAlloc(TRUE);
    Set_s *src = CvnUtilSetAlloc(TRUE);
    EXPECT_FALSE(CvnUtilSetAddMember(dst, 0, TRUE));
    for (auto [set, member] : {std::pair{dst, 7}, {dst, 2}, {src, 2}, {src, 40}})
        EXPECT_TRUE(CvnUtilSetAddMember(set, member, TRUE)) << member;
    EXPECT_TRUE(CvnUtilSetCopy(dst, src, TRUE));
    EXPECT_TRUE(CvnUtilSetRemoveMember(dst, 7));
    EXPECT_EQ(CvnUtilSetGetNextMember(dst, CVN_NO_MEMBER), 2);
    EXPECT_EQ(CvnUtilSetGetNextMember(dst, 2), 40);
    EXPECT_EQ(CvnUtilSetGetNextMember(dst, 40), CVN_NO_MEMBER);
    CvnUtilSetDealloc(&dst);
    CvnUtilSetDealloc(&src);
    EXPECT_EQ(hostObjectsMade(), 0);
}

// A registration's list, argument list, name and copy; released on failure.
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
    long n = 0;
    for (bool ok = false; !ok && ++n < 10;) {
        failHostAllocationAt(n);
        ok = buildRegistration();
        EXPECT_EQ(hostObjectsMade(), 0) << "failing allocation " << n;
    }
    EXPECT_EQ(n, 5) << "four allocations, then success";
}
