/*
 * CommandLine.cpp - parsing of the corvane command line with CLI11.
 */
#include "CommandLine.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "InputFile.h"

namespace corvane::cli {
namespace {

std::string lowered(std::string_view text)
{
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

/* The option values as CLI11 fills them, before they are checked. */
struct RawOptions {
    std::string dataFile;
    std::string layoutFile;
    std::string scriptFile;
    std::string setFile;
    std::string instructionText;
    std::string instructionFile;
    std::vector<std::string> outputs;
    std::string saveLayout;
    std::string transcript;
    std::string answers;
    bool yes = false;
    bool no = false;
    std::optional<int> cancelAt;
    std::string addOnPath;
    bool quiet = false;
    std::string uiDataFile;
    int port = 0;
    bool noOpen = false;
    std::vector<std::string> scriptOnly;  /* options given that only a script run takes */
    std::vector<std::string> browserOnly; /* options given that only the browser takes */
    std::string instructionSource; /* the one given */
    int setSources = 0; /* how many of --set, --instructions, --instructions-file, --sniff */
    bool sniff = false;
    std::string setOutput;
    std::optional<std::string> title;
    bool json = false;
};

/* The two ways of running the dialogs and the script language, under
   corvane ui --help. */
constexpr const char *scriptHelp = R"(Without --script, corvane prints "Open http://127.0.0.1:PORT/?token=TOKEN",
opens that address in the default browser (unless --no-open) and serves the
dialogs there until Ctrl-C. Options only for --script: -o, --save-layout, -q.

Script lines (one step a line; quote arguments with blanks, "like \"this\""):
  press LABEL                  a button; OK, Cancel, Help: the dialog's own
  toggle LABEL on|off          a toggle
  choose ITEM                  a radio-box item
  set CAPTION TEXT             type into a field and leave it; an option menu's item
  select CAPTION ITEM...       list items by text or as #N
  file PATH | file cancel      the answer of the next file chooser
  answer yes|no                the answer of the next question
  cancel-at PERCENT            cancel the next progress box at PERCENT
  open                         open the loader again (no dialog up)
  expect dialog TITLE | expect no dialog
  expect CAPTION [contains] TEXT
  expect items|selected CAPTION ITEM...
  expect sensitive|insensitive NAME
  expect message TEXT          the last error, message or question shown
  dump PATH                    the dialogs up, as JSON
Controls are named by label or caption (blanks and a final ':' aside) or as
kind#N (field#1, list#2). Every action is on the top dialog. A step that fails
stops the run with status 1; a script that cannot be parsed gives status 2.
)";

/* Answers to the loader's questions and a Cancel point, for loads and
   replays. */
void addAnswerOptions(CLI::App &cmd, RawOptions &raw)
{
    auto *yes = cmd.add_flag("--yes", raw.yes, "Answer Yes to every question");
    auto *no = cmd.add_flag("--no", raw.no, "Answer No to every question");
    yes->excludes(no);
    cmd.add_option("--answers", raw.answers,
                   "Answer the questions in order (e.g. y,n,y), then as --yes/--no say")
        ->type_name("LIST");
    cmd.add_option("--cancel-at", raw.cancelAt,
                   "Press Cancel at the first progress check at or above PERCENT")
        ->type_name("PERCENT")
        ->check(CLI::Range(0, 100));
}

/* The options that load, replay and ui share; the answers to questions and
   Cancel points are a script's own in ui. */
void addRunOptions(CLI::App &cmd, RawOptions &raw, bool answerOptions = true)
{
    cmd.add_option("-o,--output", raw.outputs,
                   "Write the loaded data to FILE: JSON for .json, CSV for .csv (repeatable)")
        ->type_name("FILE")
        ->allow_extra_args(false);
    cmd.add_option("--save-layout", raw.saveLayout,
                   "Write a layout that replays this run's loads to FILE")
        ->type_name("FILE");
    cmd.add_option("--transcript", raw.transcript,
                   "Write every message, question and progress box to FILE (JSON Lines)")
        ->type_name("FILE");
    if (answerOptions)
        addAnswerOptions(cmd, raw);
    cmd.add_option("--addon", raw.addOnPath,
                   "The loader add-on to use (default: the one beside corvane)")
        ->type_name("PATH");
    cmd.add_flag("-q,--quiet", raw.quiet, "Show no progress bar");
}

} // namespace

host::Expected<std::string> readWholeFile(const std::string &path)
{
    auto in = host::openInputFile(path);
    if (!in)
        return host::unexpected(in.error());
    std::ostringstream text;
    text << in->rdbuf();
    if (in->bad())
        return host::unexpected(fmt::format("{}: read error", path));
    return text.str();
}

namespace {

/* Whether the file is a plain file that can be opened for reading; the
   error is "PATH: why". */
host::Expected<void> checkReadable(const std::string &path)
{
    std::error_code ec;
    if (!std::filesystem::is_directory(path, ec) && std::filesystem::exists(path, ec) &&
        !std::filesystem::is_regular_file(path, ec))
        return host::unexpected(fmt::format("{}: is not a plain file", path));
    if (auto in = host::openInputFile(path); !in)
        return host::unexpected(in.error());
    return {};
}

/* Checks the raw values and builds the command; a problem becomes the
   usage-error stop. */
std::variant<Command, ParseStop> finish(RawOptions &raw, CommandKind kind)
{
    auto stop = [](const std::string &problem) {
        return ParseStop{exitUsage, "", usageMessage(problem)};
    };
    Command cmd;
    cmd.kind = kind;
    if (kind == CommandKind::sniff) {
        cmd.dataFile = raw.dataFile;
        cmd.setOutput = raw.setOutput;
        cmd.title = raw.title;
        return cmd;
    }
    if (kind == CommandKind::load || kind == CommandKind::check) {
        bool load = kind == CommandKind::load;
        if (raw.setSources == 0)
            return stop(load ? "load needs one of --set, --instructions, --instructions-file or "
                               "--sniff"
                             : "check needs one of --set or --instructions");
        if (raw.setSources > 1)
            return stop(load ? "--set, --instructions, --instructions-file and --sniff are "
                               "mutually exclusive"
                             : "--set and --instructions are mutually exclusive");
        cmd.dataFile = raw.dataFile;
        cmd.json = raw.json;
        if (raw.instructionSource == "--sniff") {
            cmd.sniff = true;
        } else if (raw.instructionSource == "--set") {
            cmd.instructions = fmt::format("CONFIGFNAME=\"{}\"", raw.setFile);
        } else if (raw.instructionSource == "--instructions") {
            cmd.instructions = raw.instructionText;
        } else {
            auto text = readWholeFile(raw.instructionFile);
            if (!text)
                return stop("cannot read --instructions-file " + text.error());
            cmd.instructions = std::move(*text);
        }
    } else if (kind == CommandKind::replay) {
        cmd.layoutFile = raw.layoutFile;
    } else if (raw.scriptFile.empty()) {
        if (!raw.scriptOnly.empty())
            return stop(fmt::format("{} is only for ui --script runs", raw.scriptOnly.front()));
        cmd.kind = CommandKind::browser;
        if (!raw.uiDataFile.empty()) {
            if (auto readable = checkReadable(raw.uiDataFile); !readable)
                return stop("cannot read DATAFILE " + readable.error());
        }
        cmd.dataFile = raw.uiDataFile;
        cmd.port = raw.port;
        cmd.noOpen = raw.noOpen;
    } else {
        if (!raw.browserOnly.empty())
            return stop(fmt::format("{} is not for ui --script runs", raw.browserOnly.front()));
        auto text = readWholeFile(raw.scriptFile);
        if (!text)
            return stop("cannot read --script " + text.error());
        cmd.scriptFile = raw.scriptFile;
        cmd.scriptText = std::move(*text);
    }
    for (const auto &path : raw.outputs) {
        auto format = outputFormatOf(path);
        if (!format)
            return stop(format.error());
        cmd.outputs.push_back({path, *format});
    }
    if (!raw.answers.empty()) {
        auto answers = parseAnswers(raw.answers);
        if (!answers)
            return stop(answers.error());
        cmd.answers = std::move(*answers);
    }
    if (raw.yes)
        cmd.policy = true;
    if (raw.no)
        cmd.policy = false;
    cmd.saveLayout = raw.saveLayout;
    cmd.transcript = raw.transcript;
    cmd.cancelAt = raw.cancelAt;
    cmd.addOnPath = raw.addOnPath;
    cmd.quiet = raw.quiet;
    return cmd;
}

} // namespace

std::string usageMessage(std::string_view problem)
{
    return fmt::format("{}\nRun with --help for more information.\n", problem);
}

host::Expected<std::deque<bool>> parseAnswers(std::string_view list)
{
    std::deque<bool> answers;
    size_t start = 0;
    while (true) {
        size_t comma = list.find(',', start);
        std::string item = lowered(list.substr(start, comma == std::string_view::npos
                                                          ? std::string_view::npos
                                                          : comma - start));
        if (item == "y" || item == "yes")
            answers.push_back(true);
        else if (item == "n" || item == "no")
            answers.push_back(false);
        else
            return host::unexpected(
                fmt::format("--answers: \"{}\" is not an answer (use y or n)", item));
        if (comma == std::string_view::npos)
            return answers;
        start = comma + 1;
    }
}

host::Expected<OutputFormat> outputFormatOf(const std::string &path)
{
    std::string ext = lowered(std::filesystem::path(path).extension().string());
    if (ext == ".json")
        return OutputFormat::json;
    if (ext == ".csv")
        return OutputFormat::csv;
    return host::unexpected(
        fmt::format("--output: \"{}\" must end in .json or .csv", path));
}

std::variant<Command, ParseStop> parseCommandLine(const std::vector<std::string> &args)
{
    RawOptions raw;
    CLI::App app{"corvane - loads ASCII data files through the Ordalis loader add-on", "corvane"};
    app.require_subcommand(1);

    auto *load = app.add_subcommand(
        "load", "Load DATAFILE with an instruction set, as a replayed load does");
    load->add_option("DATAFILE", raw.dataFile, "The data file to load")->required();
    load->add_option("--set", raw.setFile,
                     "Read the instruction set from FILE.twc (stored as a reference)")
        ->type_name("FILE.twc");
    load->add_option("--instructions", raw.instructionText,
                     "The instruction set itself, in instruction-set text")
        ->type_name("TEXT");
    load->add_option("--instructions-file", raw.instructionFile,
                     "Use the content of FILE as the instruction set text")
        ->type_name("FILE");
    addRunOptions(*load, raw);

    auto *replay = app.add_subcommand(
        "replay", "Replay every load stored in LAYOUT (written by --save-layout), in order");
    replay->add_option("LAYOUT", raw.layoutFile, "The layout file to replay")->required();
    addRunOptions(*replay, raw);

    load->add_flag("--sniff", raw.sniff,
                   "Load with the instruction set that corvane sniff proposes for DATAFILE");

    auto *sniff = app.add_subcommand(
        "sniff", "Propose an instruction set for DATAFILE and explain the role of each range of "
                 "its lines");
    sniff->add_option("DATAFILE", raw.dataFile, "The data file to look at")->required();
    sniff->add_option("-o,--output", raw.setOutput,
                      "Write the set to SET.twc and print the explanation (default: print the "
                      "set, the explanation in its comments)")
        ->type_name("SET.twc");
    sniff->add_option("--title", raw.title,
                      "The data set's title (default: the first line of text above the data, "
                      "or the file's name)")
        ->type_name("TEXT");
    sniff->footer("The explanation: one line per range of lines and its role (\"lines 1-5   "
                  "header text (kept as text)\"), then \"note:\" lines on choices made and "
                  "\"unsure:\" lines on choices to look at. The set carries them as comments.");

    auto *check = app.add_subcommand(
        "check", "Load DATAFILE as load does, then report every place where the loaded numbers "
                 "may differ from what the file means");
    check->add_option("DATAFILE", raw.dataFile, "The data file to load and check")->required();
    check->add_option("--set", raw.setFile, "Read the instruction set from FILE.twc")
        ->type_name("FILE.twc");
    check->add_option("--instructions", raw.instructionText,
                      "The instruction set itself, in instruction-set text")
        ->type_name("TEXT");
    check->add_flag("--json", raw.json,
                    "Print the report as JSON, with every place (default: a summary with the "
                    "first five places of each kind)");
    addAnswerOptions(*check, raw);
    check->add_option("--addon", raw.addOnPath,
                      "The loader add-on to use (default: the one beside corvane)")
        ->type_name("PATH");
    check->add_flag("-q,--quiet", raw.quiet, "Show no progress bar");
    check->footer("Exit status: 0 nothing found, 3 places found, 1 the load failed, 2 usage.");

    auto *ui = app.add_subcommand(
        "ui", "Run the loader's dialogs in a web browser, served on 127.0.0.1 until Ctrl-C; or, "
              "with --script FILE, act in them as the script says");
    ui->add_option("DATAFILE", raw.uiDataFile,
                   "The data file chosen in the loader's dialog when it first opens (browser)");
    ui->add_option("--port", raw.port,
                   "The port to serve the browser front end on (default: a free one)")
        ->type_name("N")
        ->check(CLI::Range(0, 65535));
    ui->add_flag("--no-open", raw.noOpen,
                 "Print the address of the browser front end but do not open a browser");
    ui->add_option("--script", raw.scriptFile,
                   "Run the dialogs without a browser, as the dialog script FILE says")
        ->type_name("FILE");
    addRunOptions(*ui, raw, false);
    ui->footer(scriptHelp);

    if (args.size() > 1 && !args[1].empty() && args[1][0] != '-' && args[1] != "load" &&
        args[1] != "replay" && args[1] != "ui" && args[1] != "sniff" && args[1] != "check")
        return ParseStop{exitUsage, "",
                         usageMessage(fmt::format(
                             "unknown command \"{}\" (use load, replay, ui, sniff or check)",
                             args[1]))};
    std::vector<const char *> argv;
    for (const auto &arg : args)
        argv.push_back(arg.c_str());
    try {
        app.parse(static_cast<int>(argv.size()), argv.data());
    } catch (const CLI::ParseError &e) {
        std::ostringstream out, err;
        int status = app.exit(e, out, err);
        return ParseStop{status == 0 ? exitSuccess : exitUsage, out.str(), err.str()};
    }
    for (auto *cmd : {load, check}) {
        for (const char *name : {"--set", "--instructions", "--instructions-file", "--sniff"}) {
            auto *option = cmd->get_option_no_throw(name);
            if (option != nullptr && option->count() > 0) {
                raw.instructionSource = name;
                ++raw.setSources;
            }
        }
    }
    for (const char *name : {"--output", "--save-layout", "--quiet"})
        if (ui->get_option(name)->count() > 0)
            raw.scriptOnly.push_back(name);
    for (const char *name : {"DATAFILE", "--port", "--no-open"})
        if (ui->get_option(name)->count() > 0)
            raw.browserOnly.push_back(name);
    return finish(raw, load->parsed()     ? CommandKind::load
                       : replay->parsed() ? CommandKind::replay
                       : sniff->parsed()  ? CommandKind::sniff
                       : check->parsed()  ? CommandKind::check
                                          : CommandKind::ui);
}

} // namespace corvane::cli
