/* The data preview: raw lines by the line limit, and the processed views of names and data
   (columns, blocks), names only and the lines the scan did not use. */
#include "MainDialogFixture.h"

namespace {

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using gui::DialogButton;

class PreviewTest : public MainDialogTest {
protected:
    /* Sets the view options in their dialog (limit 0: "Do not limit"; show 1 also sets
       the format) and presses OK. */
    void viewOptions(int show, int format, int limit, bool autoProcess = true)
    {
        ASSERT_TRUE(press("View Options..."));
        LgIndex_t d = d2();
        gui::chooseOption(nth(d, Kind::radioBox, 1), limit > 0 ? 1 : 2);
        if (limit > 0) {
            ASSERT_TRUE(gui::typeText(nth(d, Kind::textField, 1), std::to_string(limit)));
        }
        gui::setToggle(control(d, Kind::toggle, "Auto Process"), autoProcess);
        gui::chooseOption(nth(d, Kind::radioBox, 2), show);
        if (show == 1) {
            ASSERT_TRUE(gui::chooseOption(nth(d, Kind::radioBox, 3), format));
        }
        ASSERT_TRUE(pressDialog(d, DialogButton::ok));
    }
};

/* Lines 1..shown of a file of lines l1..l12 (no line end after the last) as the raw view
   numbers them. */
std::string numbered(int shown, int width)
{
    std::string text;
    char line[32];
    for (int n = 1; n <= shown; n++) {
        snprintf(line, sizeof(line), "%*d: l%d%s", width, n, n, n < 12 ? "\n" : "");
        text += line;
    }
    return text;
}

TEST_F(PreviewTest, RawViewShowsLinesUpToTheLimitNumberedInItsDigits)
{
    std::string lines;
    for (int n = 1; n <= 12; n++)
        lines += "l" + std::to_string(n) + (n < 12 ? "\n" : "");
    open(write("data/twelve.txt", lines));
    const std::tuple<int, int, int> rows[] = {{9, 1, 9}, {99, 2, 12}, {0, 4, 12}, {1, 1, 1}};
    for (const auto &[limit, width, shown] : rows) {
        viewOptions(2, 1, limit);
        EXPECT_EQ(text(preview()), numbered(shown, width)) << limit;
    }
    ui().queueFile(write("data/empty.txt", ""));
    ASSERT_TRUE(press("Browse..."));
    EXPECT_EQ(text(preview()), "");
    fs::remove(path("data/empty.txt"));
    ASSERT_TRUE(gui::chooseOption(viewRadio(), 2));
    ASSERT_TRUE(gui::chooseOption(viewRadio(), 1));
    EXPECT_EQ(text(preview()), "Unable to open file:\n" + path("data/empty.txt"));
}

TEST_F(PreviewTest, NamesAndDataInColumnsOrBlocksOfElevenUnderTheLimit)
{
    std::string rows;
    for (int n = 1; n <= 12; n++)
        rows += std::to_string(n) + " " + std::to_string(10 * n) + " 0\n";
    open(write("data/grid.txt", "\"T\"\nx temperature y\n" + rows), "LOADED = [1,2]");
    ASSERT_TRUE(gui::selectItem(list(), 2));
    ASSERT_TRUE(gui::chooseOption(viewRadio(), 2));

    std::string header = "   x   temperature \n------ ----------- \n", columns, blocks[2];
    for (int n = 1; n <= 12; n++) {
        char row[64];
        snprintf(row, sizeof(row), "\n%6d %11d ", n, 10 * n);
        columns += row;
        for (int var = 0; var < 2; var++) {
            snprintf(row, sizeof(row), "%5d %s", var == 0 ? n : 10 * n, n == 11 ? "\n" : "");
            blocks[var] += row;
        }
    }
    const std::string x = "\nx:\n-\n", t = "\ntemperature:\n-----------\n";
    const std::tuple<int, int, int, std::string> views[] = {
        {2, 1, 200, "x,temperature,"}, /* a comma behind every name but the last variable's */
        {1, 1, 200, header + columns},
        {1, 1, 2, header + columns.substr(0, 2 * 20)},
        {1, 2, 200, x + blocks[0] + t + blocks[1]},
        {1, 2, 2, x + blocks[0].substr(0, 11 * 6 + 1)}, /* the rule and one full line */
    };
    for (const auto &[show, format, limit, expected] : views) {
        viewOptions(show, format, limit);
        EXPECT_EQ(text(preview()), expected) << show << format << limit;
    }
}

TEST_F(PreviewTest, UnusedLinesCountTwiceAndZonesFollowWithoutSeparator)
{
    std::string notes;
    for (int n = 3; n <= 12; n++)
        notes += "note " + std::to_string(n) + "\n";
    std::string data = write("data/notes.txt", "\"T\"\nx y\n" + notes + "1 2\n");
    open(data);
    ASSERT_TRUE(gui::selectItem(list(), 2));
    ASSERT_TRUE(gui::chooseOption(viewRadio(), 2));
    viewOptions(3, 1, 10);
    EXPECT_EQ(text(preview()), " 3: note 3\n 4: note 4\n 5: note 5\n 6: note 6\n 7: note 7\n");

    ui().queueFile(write("data/zones.txt", "\"T\"\nx y\n1 2\nZONE\n3 4\n5 6\n"));
    ASSERT_TRUE(press("Browse..."));
    ASSERT_TRUE(press("Scan File"));
    viewOptions(1, 1, 200);
    EXPECT_EQ(text(preview()), "   x      y   \n------ ------ \n\n     1      2 ");
    viewOptions(1, 2, 200);
    EXPECT_EQ(text(preview()), "\nx:\n-\n    1 \ny:\n-\n    2 \nx:\n-\n    3     5 \ny:\n-\n    4     6 ");

    /* Without auto-processing a change of set marks the scan stale; the next refresh
       scans again, with the default set that reads no variables. */
    viewOptions(1, 2, 200, false);
    ASSERT_TRUE(gui::selectItem(list(), 1));
    viewOptions(1, 2, 200);
    EXPECT_EQ(text(preview()), "[Error scanning file]");
    ui().cancelAtPercent(0);
    ASSERT_TRUE(gui::selectItem(list(), 2));
    EXPECT_EQ(text(preview()), "File scan cancelled");
}

} // namespace
