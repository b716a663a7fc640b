// The command-line backend with its input and error streams swapped for
// temporary files or a pseudo-terminal.
#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include "ConsoleUi.h"
#include "Transcript.h"

using namespace corvane::host;

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

// Everything written to file so far.
std::string readBack(std::FILE *file)
{
    std::fflush(file);
    std::string text(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    text.resize(std::fread(text.data(), 1, text.size(), file));
    return text;
}

// A ConsoleUi reading input from a temporary file, writing to another and
// keeping the events it reports as JSON lines.
struct ConsoleSession {
    explicit ConsoleSession(ConsoleOptions options, const std::string &input = "")
    {
        std::fputs(input.c_str(), in.get());
        std::rewind(in.get());
        options.in = in.get();
        options.err = err.get();
        options.onEvent = [this](const UiEvent &event) { events.push_back(toJsonLine(event)); };
        ui.emplace(std::move(options));
    }
    File in{std::tmpfile(), std::fclose};
    File err{std::tmpfile(), std::fclose};
    std::vector<std::string> events;
    std::optional<ConsoleUi> ui; // last: gone before its files
};

} // namespace

TEST(ConsoleUiTest, BoxesGoToStandardErrorAndUnansweredQuestionsAreNo)
{
    ConsoleSession session({}, "y\n"); // not a terminal: nobody reads the "y"
    session.ui->error("Out of memory");
    EXPECT_TRUE(session.ui->message(MessageBox_Warning, "No data found\nin file"));
    session.ui->help("overview.html");
    EXPECT_EQ(session.ui->chooseFile(SelectFileOption_ReadSingleFile, "Data file", "", "*.txt"),
              std::nullopt);
    EXPECT_FALSE(session.ui->message(MessageBox_YesNo, "Overwrite a.twc?"));
    EXPECT_EQ(readBack(session.err.get()),
              "Out of memory\nNo data found\nin file\ncorvane: help page overview.html\n"
              "corvane: no file chooser on the command line; \"Data file\" cancelled\n"
              "Overwrite a.twc? -> no\ncorvane: answered No to the question above; --yes or "
              "--answers would answer Yes\n");
    EXPECT_EQ(session.events[1], R"({"event":"message","type":"warning","text":)"
                                 R"("No data found\nin file","answer":"ok"})");
}

TEST(ConsoleUiTest, QuestionsTakeTheAnswersInOrderThenThePolicy)
{
    ConsoleOptions queued;
    queued.answers = {false, true};
    queued.policy = true;
    ConsoleSession answered(queued);
    EXPECT_FALSE(answered.ui->message(MessageBox_YesNo, "Overwrite a.twc?"));
    EXPECT_TRUE(answered.ui->message(MessageBox_Question, "Delete b.twc?"));
    EXPECT_TRUE(answered.ui->message(MessageBox_YesNo, "Continue?"));
    EXPECT_EQ(readBack(answered.err.get()),
              "Overwrite a.twc? -> no\nDelete b.twc? -> yes\nContinue? -> yes\n");
}

TEST(ConsoleUiTest, CancelAtPressesOnlyTheCancelOfTheBoxUp)
{
    ConsoleOptions cancelling;
    cancelling.cancelAt = 40;
    ConsoleSession session(cancelling);
    session.ui->progressLaunch("Releasing memory...", false);
    EXPECT_TRUE(session.ui->progressCheck(90));
    session.ui->progressDrop();
    session.ui->progressLaunch("Scanning file...", true);
    EXPECT_TRUE(session.ui->progressCheck(39));
    EXPECT_FALSE(session.ui->progressCheck(40));
    EXPECT_FALSE(session.ui->progressCheck(1));
    session.ui->progressDrop();
    EXPECT_EQ(readBack(session.err.get()), "") << "no bar off a terminal";
}

TEST(ConsoleUiTest, CtrlCPressesCancelUntilTheDrop)
{
    ConsoleSession interrupted({});
    interrupted.ui->progressLaunch("Scanning file...", true);
    EXPECT_TRUE(interrupted.ui->progressCheck(10));
    std::raise(SIGINT);
    EXPECT_FALSE(interrupted.ui->progressCheck(11));
    interrupted.ui->progressDrop();
    struct sigaction current {};
    sigaction(SIGINT, nullptr, &current);
    EXPECT_EQ(current.sa_handler, SIG_DFL) << "the drop puts back the default";
}

// A raw pseudo-terminal: the ConsoleUi uses its terminal end, the test the other.
class TerminalTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        master = posix_openpt(O_RDWR | O_NOCTTY);
        ASSERT_GE(master, 0);
        ASSERT_EQ(grantpt(master), 0);
        ASSERT_EQ(unlockpt(master), 0);
        int slave = open(ptsname(master), O_RDWR | O_NOCTTY);
        ASSERT_GE(slave, 0);
        termios mode{};
        tcgetattr(slave, &mode);
        cfmakeraw(&mode);
        tcsetattr(slave, TCSANOW, &mode);
        fcntl(master, F_SETFL, O_NONBLOCK);
        in.reset(fdopen(slave, "r"));
        err.reset(fdopen(dup(slave), "w"));
        options.in = in.get();
        options.err = err.get();
    }
    void TearDown() override
    {
        if (master >= 0)
            close(master);
    }

    // What the terminal showed since the last call.
    std::string screen()
    {
        std::fflush(err.get());
        std::string text;
        char buffer[256];
        for (ssize_t n; (n = read(master, buffer, sizeof buffer)) > 0;)
            text.append(buffer, static_cast<std::size_t>(n));
        return text;
    }

    int master = -1;
    File in{nullptr, std::fclose}, err{nullptr, std::fclose};
    ConsoleOptions options;
};

TEST_F(TerminalTest, TheUserAnswersAtAPrompt)
{
    ConsoleUi ui(options);
    EXPECT_EQ(write(master, "y\nn\n", 4), 4);
    EXPECT_TRUE(ui.message(MessageBox_YesNo, "Overwrite a.twc?"));
    EXPECT_FALSE(ui.message(MessageBox_YesNo, "Delete b.twc?"));
    EXPECT_EQ(screen(), "Overwrite a.twc? [y/N] Delete b.twc? [y/N] ");
}

// A message goes above the bar, which comes back at the same percent.
TEST_F(TerminalTest, TheBarIsDrawnAndRedrawnBelowAMessage)
{
    ConsoleUi ui(options);
    ui.progressLaunch("Scan", false);
    EXPECT_TRUE(ui.progressCheck(50));
    ui.error("Line 7 skipped");
    ui.progressDrop();
    const std::string half = "Scan [###############...............]  50%";
    const std::string clear = "\r" + std::string(half.size(), ' ') + "\r";
    EXPECT_EQ(screen(), "\rScan [..............................]   0%\r" + half + clear +
                            "Line 7 skipped\n\r" + half + clear);
}

TEST_F(TerminalTest, QuietDrawsNoBar)
{
    options.quiet = true;
    ConsoleUi quiet(options);
    quiet.progressLaunch("Scan", false);
    EXPECT_TRUE(quiet.progressCheck(50));
    quiet.progressDrop();
    EXPECT_EQ(screen(), "");
}
