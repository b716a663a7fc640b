/*
 * library_test.cpp - the instruction-set library: where its directory is,
 * which files it reads, and the add, delete, find and clear operations.
 */
#include "AddOnFixture.h"

#include <algorithm>
#include <vector>

#include "Writer.h"

using namespace corvane::cvnutildataio;
namespace host = corvane::host;

namespace {

using Texts = std::vector<std::string>;

using LibraryTest = AddOnTest;

std::string instructionFile(const std::string &title)
{
    return "#!CORVANE_TABWISE\nTITLE{ NAME = \"" + title + "\" }\n";
}

/* Display names of the filled entries 1.., sorted (listing order is the
   directory's). */
std::vector<std::string> entryNames()
{
    std::vector<std::string> names;
    for (int i = 1; i < TW_MAX_CONFIGS && GlobalConfigInfoArray[i]; i++)
        names.push_back(GlobalConfigInfoArray[i]->DisplayName);
    std::sort(names.begin(), names.end());
    return names;
}

TW_ConfigInstructions_s *entryNamed(const std::string &name)
{
    for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray)
        if (entry && name == entry->DisplayName)
            return entry;
    return nullptr;
}

TEST_F(LibraryTest, DirectoryComesFromTheEnvironmentOrTheHostHome)
{
    char *dir = nullptr;
    ASSERT_TRUE(GetBaseInstructionSetDir(&dir));
    EXPECT_EQ(std::string(dir), path("library"));
    CvnUtilStringDealloc(&dir);

    /* ORDALIS_DIR alone is listed, even when empty. */
    write("home/addonconfig/tabwise/h.twc", instructionFile("Home"));
    fs::create_directories(path("library"));
    FillInstructionSetArray();
    EXPECT_TRUE(entryNames().empty());

    ::unsetenv("ORDALIS_DIR");
    ASSERT_TRUE(GetBaseInstructionSetDir(&dir));
    EXPECT_EQ(std::string(dir), path("home") + "/addonconfig/tabwise");
    CvnUtilStringDealloc(&dir);
    FillInstructionSetArray();
    EXPECT_EQ(entryNames(), Texts{"h.twc"});

    ::setenv("ORDALIS_DIR", path("nowhere").c_str(), 1);
    ClearInstructionSetArray(false);
    FillInstructionSetArray();
    EXPECT_TRUE(entryNames().empty());
    EXPECT_TRUE(ui().transcript().empty());
    EXPECT_EQ(leftBehind(), 0);
}

TEST_F(LibraryTest, OnlyRegularInstructionFilesAreRead)
{
    write("library/a.twc", instructionFile("A"));
    write("library/b.txt", "\n   \n#!CORVANE_TABWISE\nTITLE{ NAME = \"B\" }\n");
    write("library/notes.twc", "TITLE{ NAME = \"Notes\" }\n#!CORVANE_TABWISE\n");
    fs::create_directories(path("library/sub.twc"));
    write("library/broken.twc", "#!CORVANE_TABWISE\nTITLE{ NAME = \"Half\" LINE = x }\n");
    FillInstructionSetArray();

    EXPECT_EQ(entryNames(), (Texts{"a.twc", "b.txt", "broken.twc"}));
    ASSERT_NE(entryNamed("a.twc"), nullptr);
    EXPECT_EQ(std::string(entryNamed("a.twc")->FilePath), path("library") + "/a.twc");
    EXPECT_STREQ(entryNamed("a.twc")->TitleName, "A");
    EXPECT_STREQ(entryNamed("b.txt")->TitleName, "B");
    EXPECT_STREQ(entryNamed("broken.twc")->TitleName, "Half");
    EXPECT_EQ(GlobalConfigInfoArray[0], nullptr) << "entry 0 is the dialog's";
    /* One syntax error from the broken file and no progress box. */
    ASSERT_EQ(ui().transcript().size(), 1u);
    EXPECT_EQ(ui().errors().size(), 1u);

    for (int n = 1; n <= 2; n++)
        write("library/more" + std::to_string(n) + ".twc", instructionFile("M"));
    ClearInstructionSetArray(false);
    ui().clearTranscript();
    FillInstructionSetArray();
    EXPECT_EQ(entryNames().size(), 5u);
    ASSERT_EQ(ui().transcript().size(), 3u); /* the progress bar and broken.twc's error */
    EXPECT_EQ(ui().transcript()[0].text, "Reading instruction files...");
    EXPECT_FALSE(ui().transcript()[0].cancel);
    EXPECT_EQ(ui().progressChecks(), (std::vector<int>{0, 0, 0, 0, 0}));
}

TEST_F(LibraryTest, EntriesStayPackedUpToSixtyFour)
{
    for (int i = 0; i <= 5; i++) {
        TW_ConfigInstructions_s *set = ImportInstructionsAlloc();
        snprintf(set->FilePath, sizeof(set->FilePath), "/Lib/Set%d.TWC", i);
        ASSERT_TRUE(AddConfigToInstructionSetArray(set));
    }
    DeleteConfigFromInstructionSetArray(2);
    const char *expected[] = {"/Lib/Set0.TWC", "/Lib/Set1.TWC", "/Lib/Set3.TWC", "/Lib/Set4.TWC",
                              "/Lib/Set5.TWC"};
    for (int i = 0; i < 5; i++)
        EXPECT_STREQ(GlobalConfigInfoArray[i]->FilePath, expected[i]) << "entry " << i;
    for (int i = 5; i < TW_MAX_CONFIGS; i++)
        EXPECT_EQ(GlobalConfigInfoArray[i], nullptr) << "entry " << i;

    EXPECT_TRUE(FileNameExistsInInstructionSetArray("/lib/set4.twc"));
    EXPECT_FALSE(FileNameExistsInInstructionSetArray("/lib/set2.twc"));
    DeleteConfigFromInstructionSetArray(0);
    DeleteConfigFromInstructionSetArray(0);
    GlobalConfigInfoArray[5] = GlobalConfigInfoArray[2]; /* a gap before the last entry */
    GlobalConfigInfoArray[2] = nullptr;
    EXPECT_TRUE(FileNameExistsInInstructionSetArray("/LIB/SET5.twc"));

    ClearInstructionSetArray(false);
    for (int i = 0; i < 70; i++)
        write("library/s" + std::to_string(i) + ".twc", instructionFile("S"));
    FillInstructionSetArray();
    EXPECT_EQ(GlobalConfigInfoArray[0], nullptr);
    for (int i = 1; i < TW_MAX_CONFIGS; i++)
        ASSERT_NE(GlobalConfigInfoArray[i], nullptr) << "entry " << i;
    TW_ConfigInstructions_s *extra = ImportInstructionsAlloc();
    EXPECT_TRUE(AddConfigToInstructionSetArray(extra)) << "entry 0 was free";
    extra = ImportInstructionsAlloc();
    ui().clearTranscript();
    EXPECT_FALSE(AddConfigToInstructionSetArray(extra));
    EXPECT_EQ(ui().errors(), Texts{
                                 "Cannot add a new configuration file. The maximum number of "
                                 "configuration files is 64"});
    ImportInstructionsDealloc(&extra);
}

TEST_F(LibraryTest, ClearingAsksToSaveModifiedSets)
{
    write("library/keep.twc", instructionFile("Keep"));
    write("library/drop.twc", instructionFile("Drop"));
    write("library/same.twc", instructionFile("Same"));
    FillInstructionSetArray();
    for (const char *name : {"keep.twc", "drop.twc"}) {
        TW_ConfigInstructions_s *set = entryNamed(name);
        snprintf(set->TitleName, sizeof(set->TitleName), "Edited");
        set->IsModified = true;
    }
    /* Asked in index order, which is the listing order. */
    std::vector<std::string> questions;
    for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray)
        if (entry && entry->IsModified) {
            questions.push_back(std::string("Save configuration file ") + entry->DisplayName + "?");
            ui().queueAnswer(std::string(entry->DisplayName) == "keep.twc");
        }
    ui().clearTranscript();
    ClearInstructionSetArray(true);
    EXPECT_EQ(ui().messages(), questions);
    for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray)
        EXPECT_EQ(entry, nullptr);

    FillInstructionSetArray();
    EXPECT_STREQ(entryNamed("keep.twc")->TitleName, "Edited");
    EXPECT_STREQ(entryNamed("drop.twc")->TitleName, "Drop");
    EXPECT_STREQ(entryNamed("same.twc")->TitleName, "Same");
}

TEST_F(LibraryTest, OutOfMemoryWhileFilling)
{
    write("library/a.twc", instructionFile("A"));
    host::failHostAllocationAt(1);
    FillInstructionSetArray();
    host::failHostAllocationAt(2);
    FillInstructionSetArray();
    EXPECT_EQ(ui().errors(), (Texts{
                                 "Out of memory. Unable to allocate string list", "Out of memory"}));
    EXPECT_TRUE(entryNames().empty());

    ui().clearTranscript();
    TW_AllocFailAt(1);
    FillInstructionSetArray();
    TW_AllocFailAt(0);
    EXPECT_EQ(ui().errors(), (Texts{
                                 "Out of memory. Unable to allocate import parameters structure",
                                 "Out of memory."}));
    EXPECT_TRUE(entryNames().empty());

    /* Later host allocations: the name (the file is skipped), the set of
       the new entry (filling stops), the file's text (the entry stays with
       its defaults). */
    const std::vector<std::string> expected[] = {
        {},
        {"Out of memory. Unable to allocate import parameters structure", "Out of memory."},
        {"Out of memory"},
    };
    const char *title[] = {nullptr, nullptr, "New Dataset"};
    for (long n = 3; n <= 5; n++) {
        ui().clearTranscript();
        host::failHostAllocationAt(n);
        FillInstructionSetArray();
        host::failHostAllocationAt(0);
        EXPECT_EQ(ui().errors(), expected[n - 3]) << "allocation " << n;
        TW_ConfigInstructions_s *a = entryNamed("a.twc");
        if (title[n - 3] == nullptr) {
            EXPECT_EQ(a, nullptr) << "allocation " << n;
        } else {
            ASSERT_NE(a, nullptr);
            EXPECT_STREQ(a->TitleName, title[n - 3]);
            EXPECT_TRUE(a->IsNew);
        }
        ClearInstructionSetArray(false);
        EXPECT_EQ(leftBehind(), 0) << "allocation " << n;
    }
}

} // namespace
