// The command-line backend with its input and error streams swapped for
// temporary files.
#include <csignal>
#include <cstdio>
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

// A ConsoleUi writing to a temporary file, reading from another, and
// keeping the events it reports as JSON lines.
class ConsoleSession {
public:
    explicit ConsoleSession(ConsoleOptions options, const std::string &input = "")
        : in_(std::tmpfile()), err_(std::tmpfile())
    {
        std::fputs(input.c_str(), in_);
        std::rewind(in_);
        options.in = in_;
        options.err = err_;
        options.onEvent = [this](const UiEvent &event) { events.push_back(toJsonLine(event)); };
        ui_.emplace(std::move(options));
    }
    ~ConsoleSession()
    {
        ui_.reset();
        std::fclose(in_);
        std::fclose(err_);
    }

    ConsoleUi &ui() { return *ui_; }

    std::string err()
    {
        std::fflush(err_);
        std::rewind(err_);
        std::string text;
        for (int c; (c = std::fgetc(err_)) != EOF;)
            text.push_back(static_cast<char>(c));
        return text;
    }

    std::vector<std::string> events;

private:
    std::FILE *in_;
    std::FILE *err_;
    std::optional<ConsoleUi> ui_;
};

} // namespace

TEST(ConsoleUiTest, MessagesGoToStandardErrorAsWritten)
{
    ConsoleSession session({});
    session.ui().error("Out of memory");
    EXPECT_TRUE(session.ui().message(MessageBox_Warning, "No data found\nin file"));
    EXPECT_TRUE(session.ui().message(MessageBox_Information, "Done"));
    session.ui().help("addon_ordalis_loader_overview.html");
    EXPECT_EQ(session.ui().chooseFile(SelectFileOption_ReadSingleFile, "Data file", "", "*.txt"),
              std::nullopt);
    EXPECT_EQ(session.err(),
              "Out of memory\n"
              "No data found\nin file\n"
              "Done\n"
              "corvane: help page addon_ordalis_loader_overview.html\n"
              "corvane: no file chooser on the command line; \"Data file\" cancelled\n");
    EXPECT_EQ(session.events, (std::vector<std::string>{
                                  R"({"event":"error","text":"Out of memory"})",
                                  R"({"event":"message","type":"warning","text":"No data found\nin file","answer":"ok"})",
                                  R"({"event":"message","type":"information","text":"Done","answer":"ok"})",
                                  R"({"event":"help","page":"addon_ordalis_loader_overview.html"})",
                                  R"({"event":"file","title":"Data file","answer":""})",
                              }));
}

TEST(ConsoleUiTest, QuestionsTakeQueuedAnswersThenThePolicyElseNoWithAHint)
{
    ConsoleOptions options;
    options.answers = {false, true};
    options.policy = true;
    ConsoleSession session(std::move(options));
    EXPECT_FALSE(session.ui().message(MessageBox_YesNo, "Overwrite a.twc?"));
    EXPECT_TRUE(session.ui().message(MessageBox_Question, "Delete b.twc?"));
    EXPECT_TRUE(session.ui().message(MessageBox_YesNo, "Continue?"));
    EXPECT_EQ(session.err(), "Overwrite a.twc? -> no\nDelete b.twc? -> yes\nContinue? -> yes\n");
    EXPECT_EQ(session.events.back(),
              R"({"event":"message","type":"yesno","text":"Continue?","answer":"yes"})");

    // The input holds "y", but it is not a terminal: nobody is asked.
    ConsoleSession plain({}, "y\n");
    EXPECT_FALSE(plain.ui().message(MessageBox_YesNo, "Overwrite a.twc?"));
    EXPECT_EQ(plain.err(), "Overwrite a.twc? -> no\n"
                           "corvane: answered No to the question above; --yes or --answers "
                           "would answer Yes\n");
}

TEST(ConsoleUiTest, CancelAtPercentOnlyInBoxesWithCancelAndNoBarOffTerminal)
{
    ConsoleOptions options;
    options.cancelAt = 40;
    ConsoleSession session(std::move(options));
    session.ui().progressLaunch("Releasing memory...", false);
    EXPECT_TRUE(session.ui().progressCheck(90));
    session.ui().progressDrop();
    session.ui().progressLaunch("Scanning file...", true);
    EXPECT_TRUE(session.ui().progressCheck(39));
    EXPECT_FALSE(session.ui().progressCheck(40));
    EXPECT_FALSE(session.ui().progressCheck(1));
    session.ui().progressDrop();
    EXPECT_EQ(session.err(), "");
    EXPECT_EQ(session.events, (std::vector<std::string>{
                                  R"({"event":"progress","label":"Releasing memory...","cancel":false})",
                                  R"({"event":"progress-end"})",
                                  R"({"event":"progress","label":"Scanning file...","cancel":true})",
                                  R"({"event":"progress-end"})",
                              }));
}

TEST(ConsoleUiTest, InterruptPressesCancelOnlyWhileACancelBoxIsUp)
{
    ConsoleSession session({});
    session.ui().progressLaunch("Scanning file...", true);
    EXPECT_TRUE(session.ui().progressCheck(10));
    std::raise(SIGINT);
    EXPECT_FALSE(session.ui().progressCheck(11));
    session.ui().progressDrop();

    // The drop puts back the previous disposition (the default).
    struct sigaction current {};
    sigaction(SIGINT, nullptr, &current);
    EXPECT_EQ(current.sa_handler, SIG_DFL);

    session.ui().progressLaunch("Transferring...", true);
    EXPECT_TRUE(session.ui().progressCheck(5)) << "a new box starts unpressed";
    session.ui().progressDrop();
}

namespace {

// A pseudo-terminal in raw mode (no echo, no newline translation): the
// ConsoleUi reads and writes its terminal end, the test the other.
class Terminal {
public:
    Terminal()
    {
        master_ = posix_openpt(O_RDWR | O_NOCTTY);
        if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0)
            return;
        int slave = open(ptsname(master_), O_RDWR | O_NOCTTY);
        if (slave < 0)
            return;
        termios mode{};
        tcgetattr(slave, &mode);
        cfmakeraw(&mode);
        tcsetattr(slave, TCSANOW, &mode);
        in = fdopen(slave, "r");
        err = fdopen(dup(slave), "w");
        fcntl(master_, F_SETFL, O_NONBLOCK);
    }
    ~Terminal()
    {
        if (in)
            std::fclose(in);
        if (err)
            std::fclose(err);
        if (master_ >= 0)
            close(master_);
    }
    bool ok() const { return in && err; }
    void type(const std::string &text)
    {
        EXPECT_EQ(write(master_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    // Everything written to the terminal so far.
    std::string screen()
    {
        std::fflush(err);
        std::string text;
        char buffer[256];
        for (ssize_t n; (n = read(master_, buffer, sizeof buffer)) > 0;)
            text.append(buffer, static_cast<std::size_t>(n));
        return text;
    }

    std::FILE *in = nullptr;
    std::FILE *err = nullptr;

private:
    int master_ = -1;
};

} // namespace

TEST(ConsoleUiTest, OnATerminalTheUserAnswersAndSeesTheBar)
{
    Terminal terminal;
    ASSERT_TRUE(terminal.ok());
    ConsoleOptions options;
    options.in = terminal.in;
    options.err = terminal.err;
    ConsoleUi ui(std::move(options));

    terminal.type("y\nn\n");
    EXPECT_TRUE(ui.message(MessageBox_YesNo, "Overwrite a.twc?"));
    EXPECT_FALSE(ui.message(MessageBox_YesNo, "Delete b.twc?"));
    EXPECT_EQ(terminal.screen(), "Overwrite a.twc? [y/N] Delete b.twc? [y/N] ");

    ui.progressLaunch("Scan", false);
    EXPECT_TRUE(ui.progressCheck(50));
    ui.error("Line 7 skipped");
    ui.progressDrop();
    const std::string empty = "Scan [..............................]   0%";
    const std::string half = "Scan [###############...............]  50%";
    std::string clear = "\r";
    clear.append(half.size(), ' ');
    clear += '\r';
    // The message goes above the bar, which comes back at the same percent.
    EXPECT_EQ(terminal.screen(), "\r" + empty + "\r" + half + clear + "Line 7 skipped\n\r" + half +
                                     clear);

    ConsoleOptions quietOptions;
    quietOptions.in = terminal.in;
    quietOptions.err = terminal.err;
    quietOptions.quiet = true;
    ConsoleUi quiet(std::move(quietOptions));
    quiet.progressLaunch("Scan", false);
    EXPECT_TRUE(quiet.progressCheck(50));
    quiet.progressDrop();
    EXPECT_EQ(terminal.screen(), "");
}
