/*
 * CommandLine.h - the corvane command line: what the user asked for.
 *
 *   corvane load DATAFILE (--set FILE.twc | --instructions TEXT |
 *                          --instructions-file FILE) [options]
 *   corvane replay LAYOUT [options]
 *   corvane ui [DATAFILE] [--port N] [--no-open] [--addon PATH] [--transcript FILE]
 *   corvane ui --script FILE [options]
 *   corvane sniff DATAFILE [-o SET.twc] [--title TEXT]
 *   corvane check DATAFILE (--set FILE.twc | --instructions TEXT) [--json] [options]
 *
 * Parsing never runs anything: it turns the arguments into a Command, or
 * into the text and exit status to stop with (help, usage errors).
 */
#ifndef CORVANE_CLI_COMMANDLINE_H
#define CORVANE_CLI_COMMANDLINE_H

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Expected.h"

namespace corvane::cli {

/* Exit statuses of the command line. */
inline constexpr int exitSuccess = 0; /* every load succeeded */
inline constexpr int exitFailure = 1; /* a load failed or was cancelled */
inline constexpr int exitUsage = 2;   /* the command line or an input file is wrong */
inline constexpr int exitFound = 3;   /* check: places where the load may be wrong */

/* ui is the scripted dialog run, browser the browser front end (ui
   without --script). */
enum class CommandKind { load, replay, ui, browser, sniff, check };
enum class OutputFormat { json, csv };

struct OutputSpec {
    std::string path;
    OutputFormat format = OutputFormat::json;
    bool operator==(const OutputSpec &) const = default;
};

struct Command {
    CommandKind kind = CommandKind::load;
    /* load: the two loader-instruction strings (data file as given; the
       instruction text or a CONFIGFNAME reference). browser: the data file
       chosen in the loader's dialog the first time (empty: none). */
    std::string dataFile;
    std::string instructions;
    /* replay: the layout file to replay. */
    std::string layoutFile;
    /* ui: the script file as named, and its text. */
    std::string scriptFile;
    std::string scriptText;
    /* browser: the port to listen on (0: a free one), and whether to leave
       the browser closed. */
    int port = 0;
    bool noOpen = false;

    std::vector<OutputSpec> outputs; /* -o/--output, in the order given */
    std::string saveLayout;          /* --save-layout; empty: none */
    std::string transcript;          /* --transcript; empty: none */
    std::deque<bool> answers;        /* --answers, in order */
    std::optional<bool> policy;      /* --yes / --no */
    std::optional<int> cancelAt;     /* --cancel-at PERCENT */
    std::string addOnPath;           /* --addon; empty: the default add-on */
    bool quiet = false;              /* -q/--quiet */

    /* load --sniff: the instructions are the set sniff proposes. */
    bool sniff = false;
    /* sniff: where the set goes (-o; empty: standard output), the title. */
    std::string setOutput;
    std::optional<std::string> title;
    /* check: --json. */
    bool json = false;
};

/* Where parsing stops instead of running: the text for standard output
   and standard error, and the exit status. */
struct ParseStop {
    int status = exitUsage;
    std::string out;
    std::string err;
};

/* Parses the full argument vector (args[0] is the program name). */
std::variant<Command, ParseStop> parseCommandLine(const std::vector<std::string> &args);

/* "y,n,yes,No" -> answers in order; an item that is not y/yes/n/no (case
   ignored) is an error naming it. */
host::Expected<std::deque<bool>> parseAnswers(std::string_view list);

/* The output format of a path by its extension (.json or .csv, case
   ignored); anything else is an error naming the path. */
host::Expected<OutputFormat> outputFormatOf(const std::string &path);

/* The whole content of an input file; the error is "PATH: why". */
host::Expected<std::string> readWholeFile(const std::string &path);

/* The usage-error text: the problem, then a pointer to --help. */
std::string usageMessage(std::string_view problem);

} // namespace corvane::cli

#endif
