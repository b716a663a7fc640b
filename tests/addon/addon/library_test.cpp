/* library_test.cpp - the instruction-set library: where its folder is, which files it
   reads, and the add, delete, find and clear operations. */
#include "AddOnFixture.h"

#include <algorithm>
#include <vector>

using namespace corvane::cvnutildataio;
namespace host = corvane::host;
using Texts = std::vector<std::string>;
using LibraryTest = AddOnTest;

static std::string instructionFile(const std::string &title)
{
    return "#!CORVANE_TABWISE\nTITLE{ NAME = \"" + title + "\" }\n";
}

/* "name=title" of the filled entries 1.., sorted (listing order is the folder's). */
static Texts entries()
{
    Texts names;
    for (int i = 1; i < TW_MAX_CONFIGS && GlobalConfigInfoArray[i]; i++)
        names.push_back(std::string(GlobalConfigInfoArray[i]->DisplayName) + "=" +
                        GlobalConfigInfoArray[i]->TitleName);
    std::sort(names.begin(), names.end());
    return names;
}

/* The library folder, then the entries read from it. */
static Texts fill()
{
    char *dir = nullptr;
    EXPECT_TRUE(GetBaseInstructionSetDir(&dir));
    Texts result{dir ? dir : ""};
    CvnUtilStringDealloc(&dir);
    ClearInstructionSetArray(false);
    FillInstructionSetArray();
    Texts names = entries();
    result.insert(result.end(), names.begin(), names.end());
    return result;
}

/* ORDALIS_DIR alone is listed, even empty or missing; without it the host
   home's folder. */
TEST_F(LibraryTest, FolderComesFromTheEnvironmentOrTheHostHome)
{
    write("home/addonconfig/tabwise/h.twc", instructionFile("Home"));
    fs::create_directories(path("library"));
    const std::pair<const char *, Texts> rows[] = {
        {"library", {path("library")}},
        {nullptr, {path("home") + "/addonconfig/tabwise", "h.twc=Home"}},
        {"nowhere", {path("nowhere")}},
    };
    for (const auto &[folder, listed] : rows) {
        ui().clearTranscript();
        if (folder)
            ::setenv("ORDALIS_DIR", path(folder).c_str(), 1);
        else
            ::unsetenv("ORDALIS_DIR");
        EXPECT_EQ(fill(), listed);
        EXPECT_TRUE(ui().transcript().empty()) << listed[0];
        ClearInstructionSetArray(false);
        EXPECT_EQ(leftBehind(), 0) << listed[0];
    }
}

/* Three instruction files, a file, a folder and links that are not, and one
   with a syntax error; more files make five. */
static const char *const broken = "#!CORVANE_TABWISE\nTITLE{ NAME = \"Half\" LINE = x }\n";

TEST_F(LibraryTest, OnlyRegularInstructionFilesAreRead)
{
    write("library/a.twc", instructionFile("A"));
    write("library/b.txt", "\n   \n#!CORVANE_TABWISE\nTITLE{ NAME = \"B\" }\n");
    write("library/notes.twc", "TITLE{ NAME = \"Notes\" }\n#!CORVANE_TABWISE\n");
    fs::create_directories(path("library/sub.twc"));
    write("library/broken.twc", broken);
    /* Links in a loop, a dangling link and a link to a device are no files. */
    fs::create_symlink("loop2.twc", path("library/loop1.twc"));
    fs::create_symlink("loop1.twc", path("library/loop2.twc"));
    fs::create_symlink("gone.twc", path("library/dangling.twc"));
    fs::create_symlink("/dev/null", path("library/null.twc"));
    EXPECT_EQ(fill(), (Texts{path("library"), "a.twc=A", "b.txt=B", "broken.twc=Half"}));
    EXPECT_EQ(GlobalConfigInfoArray[0], nullptr) << "entry 0 is the dialog's";
    for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray) {
        if (entry != nullptr) {
            EXPECT_EQ(entry->FilePath, path("library") + "/" + entry->DisplayName);
        }
    }
    ASSERT_EQ(ui().transcript().size(), 1u); /* broken.twc's syntax error, no box */
    EXPECT_EQ(ui().transcript()[0].kind, host::UiEvent::Kind::error);
}

TEST_F(LibraryTest, FiveFilesOrMoreAreReadUnderABox)
{
    for (const char *name : {"a", "b", "c", "d"})
        write(std::string("library/") + name + ".twc", instructionFile(name));
    write("library/notes.twc", "TITLE{ NAME = \"Notes\" }\n#!CORVANE_TABWISE\n");
    write("library/broken.twc", broken);
    EXPECT_EQ(fill().size(), 6u);
    ASSERT_EQ(ui().transcript().size(), 3u); /* the progress bar and broken.twc's error */
    EXPECT_EQ(ui().transcript()[0].text, "Reading instruction files...");
    EXPECT_FALSE(ui().transcript()[0].cancel);
    EXPECT_EQ(ui().transcript()[1].kind, host::UiEvent::Kind::error);
    EXPECT_EQ(ui().progressChecks(), (std::vector<int>{0, 0, 0, 0, 0}));
}

/* Entries "/Lib/Set0.TWC" up to "/Lib/SetN.TWC". */
static void addSets(int last)
{
    for (int i = 0; i <= last; i++) {
        TW_ConfigInstructions_s *set = ImportInstructionsAlloc();
        snprintf(set->FilePath, sizeof(set->FilePath), "/Lib/Set%d.TWC", i);
        ASSERT_TRUE(AddConfigToInstructionSetArray(set));
    }
}

TEST_F(LibraryTest, EntriesStayPackedAndNamesIgnoreCase)
{
    const std::pair<int, Texts> rows[] = {
        {2, {"/Lib/Set0.TWC", "/Lib/Set1.TWC", "/Lib/Set3.TWC", "/Lib/Set4.TWC", "-"}},
        {0, {"/Lib/Set1.TWC", "/Lib/Set2.TWC", "/Lib/Set3.TWC", "/Lib/Set4.TWC", "-"}},
    };
    for (const auto &[deleted, left] : rows) {
        ClearInstructionSetArray(false);
        addSets(4);
        DeleteConfigFromInstructionSetArray(deleted);
        Texts paths;
        for (TW_ConfigInstructions_s *entry : GlobalConfigInfoArray)
            paths.push_back(entry ? entry->FilePath : "-");
        paths.resize(5);
        EXPECT_EQ(paths, left) << deleted;
        std::string name = "/lib/set" + std::to_string(deleted) + ".twc";
        EXPECT_FALSE(FileNameExistsInInstructionSetArray(name.c_str())) << deleted;
        EXPECT_TRUE(FileNameExistsInInstructionSetArray("/lib/set4.twc")) << deleted;
    }
}

TEST_F(LibraryTest, ANameIsFoundBehindAGap)
{
    addSets(2);
    GlobalConfigInfoArray[5] = GlobalConfigInfoArray[2]; /* a gap before the last entry */
    GlobalConfigInfoArray[2] = nullptr;
    EXPECT_TRUE(FileNameExistsInInstructionSetArray("/LIB/SET2.twc"));
}

TEST_F(LibraryTest, NoMoreThanSixtyFourEntries)
{
    for (int i = 0; i < 70; i++)
        write("library/s" + std::to_string(i) + ".twc", instructionFile("S"));
    EXPECT_EQ(fill().size(), size_t(TW_MAX_CONFIGS)); /* the folder and 63 entries */
    TW_ConfigInstructions_s *extra = ImportInstructionsAlloc();
    EXPECT_TRUE(AddConfigToInstructionSetArray(extra)) << "entry 0 was free";
    extra = ImportInstructionsAlloc();
    EXPECT_FALSE(AddConfigToInstructionSetArray(extra));
    EXPECT_EQ(ui().errors(), Texts{"Cannot add a new configuration file. The maximum number of "
                                   "configuration files is 64"});
    ImportInstructionsDealloc(&extra);
}

TEST_F(LibraryTest, OutOfMemoryWhileFilling)
{
    write("library/a.twc", instructionFile("A"));
    const std::string record = "Out of memory. Unable to allocate import parameters structure";
    /* Host allocations: the list, its string, the name (the file is skipped),
       the new entry's set (filling stops), the file's text (the entry stays
       with its defaults); then the add-on's record. */
    const std::tuple<bool, long, Texts, Texts> rows[] = {
        {true, 1, {"Out of memory. Unable to allocate string list"}, {}},
        {true, 2, {"Out of memory"}, {}},
        {true, 3, {}, {}},
        {true, 4, {record, "Out of memory."}, {}},
        {true, 5, {"Out of memory"}, {"a.twc=New Dataset"}},
        {false, 1, {record, "Out of memory."}, {}},
    };
    for (const auto &[hostFails, n, errors, filled] : rows) {
        ui().clearTranscript();
        ClearInstructionSetArray(false);
        (hostFails ? host::failHostAllocationAt : TW_AllocFailAt)(n);
        FillInstructionSetArray();
        host::failHostAllocationAt(0);
        TW_AllocFailAt(0);
        EXPECT_EQ(ui().errors(), errors) << hostFails << n;
        EXPECT_EQ(entries(), filled) << hostFails << n;
        ClearInstructionSetArray(false);
        EXPECT_EQ(leftBehind(), 0) << hostFails << n;
    }
}
