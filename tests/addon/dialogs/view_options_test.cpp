/* The view options dialog: its controls and their sensitivity, the line limit's check, and
   what OK and Cancel do to the options and the preview. */
#include "MainDialogFixture.h"

namespace {

using namespace corvane::cvnutildataio;
namespace gui = corvane::host::gui;
using gui::DialogButton;

class ViewOptionsTest : public MainDialogTest {
protected:
    static LgIndex_t radio(size_t rank) { return nth(d2(), Kind::radioBox, rank); }
    static LgIndex_t limitField() { return nth(d2(), Kind::textField, 1); }
    static LgIndex_t autoProcess() { return control(d2(), Kind::toggle, "Auto Process"); }
    /* Limit, line count, auto-processing, show and format as the dialog shows them. */
    static std::tuple<LgIndex_t, std::string, bool, LgIndex_t, LgIndex_t> shown()
    {
        return {CvnGUIRadioBoxGetSelectedOption(radio(1)), text(limitField()),
                CvnGUIToggleGet(autoProcess()) != FALSE, CvnGUIRadioBoxGetSelectedOption(radio(2)),
                CvnGUIRadioBoxGetSelectedOption(radio(3))};
    }
};

TEST_F(ViewOptionsTest, LimitIsCheckedAndCancelRestoresEveryOption)
{
    open(write("data/d.txt", "a\nb\nc\n"));
    ASSERT_TRUE(press("View Options..."));
    EXPECT_EQ(shown(), std::tuple(1, std::string("200"), false, 1, 1));
    ASSERT_TRUE(gui::chooseOption(radio(1), 2));
    EXPECT_FALSE(gui::findControl(limitField())->sensitive);
    ASSERT_TRUE(gui::chooseOption(radio(2), 3));
    EXPECT_FALSE(gui::findControl(radio(3))->sensitive);
    ASSERT_TRUE(gui::chooseOption(radio(1), 1));
    ASSERT_TRUE(gui::chooseOption(radio(2), 1));
    EXPECT_TRUE(gui::findControl(limitField())->sensitive);
    EXPECT_TRUE(gui::findControl(radio(3))->sensitive);

    const std::tuple<const char *, bool, const char *> entries[] = {
        {"2", true, "2"}, {"0", false, "1"}, {"x", false, "1"},
        {"2147483648", false, "1"}, {"2147483647", true, "2147483647"}};
    for (const auto &[typed, accepted, after] : entries) {
        EXPECT_EQ(gui::typeText(limitField(), typed), accepted) << typed;
        EXPECT_EQ(text(limitField()), after) << typed;
    }
    EXPECT_EQ(ui().errors().size(), 3u); /* the host's message for each refused entry */
    ASSERT_TRUE(gui::typeText(limitField(), "2"));
    ASSERT_TRUE(gui::setToggle(autoProcess(), true));
    ASSERT_TRUE(gui::chooseOption(radio(3), 2));
    ASSERT_TRUE(pressDialog(d2(), DialogButton::help));
    EXPECT_EQ(ui().transcript().back().text, "addon_ordalis_loader_view_options.html");
    ASSERT_TRUE(pressDialog(d2(), DialogButton::cancel));
    EXPECT_EQ(text(preview()), "  1: a\n  2: b\n  3: c\n") << "not refreshed";

    ASSERT_TRUE(press("View Options..."));
    EXPECT_EQ(shown(), std::tuple(1, std::string("200"), false, 1, 1));
    ASSERT_TRUE(gui::typeText(limitField(), "2"));
    ASSERT_TRUE(pressDialog(d2(), DialogButton::ok)); /* the raw view follows at once */
    EXPECT_EQ(text(preview()), "1: a\n2: b\n");
    ASSERT_TRUE(press("View Options..."));
    EXPECT_EQ(shown(), std::tuple(1, std::string("2"), false, 1, 1));
    ASSERT_TRUE(pressDialog(d2(), DialogButton::cancel));

    /* The processed view follows OK only with auto-processing. */
    ASSERT_TRUE(gui::chooseOption(viewRadio(), 2));
    ASSERT_TRUE(press("View Options..."));
    ASSERT_TRUE(gui::typeText(limitField(), "1"));
    ASSERT_TRUE(pressDialog(d2(), DialogButton::ok));
    EXPECT_EQ(text(preview()), "1: a\n2: b\n");
}

} // namespace
