/*
 * StoredLoad.cpp - resolving stored loader instructions and checking them.
 */
#include "StoredLoad.h"

#include <cctype>
#include <charconv>
#include <fstream>
#include <sstream>

#include <fmt/format.h>

#include "Check.h"
#include "InstructionReader.h"
#include "LineFilter.h"

namespace corvane::inspect {
namespace {

constexpr std::string_view referenceKeyword = "CONFIGFNAME";

/* The path of a reference (text past the keyword): after the first '='
   and blanks; in double quotes up to the closing one, else up to a double
   quote or the end, trailing blanks cut. */
std::string referencePath(std::string_view text)
{
    size_t equals = text.find('=');
    if (equals == std::string_view::npos)
        return {};
    size_t start = equals + 1;
    while (start < text.size() && std::isspace(static_cast<unsigned char>(text[start])))
        ++start;
    if (start < text.size() && text[start] == '"')
        ++start;
    size_t end = text.find('"', start);
    if (end == std::string_view::npos) {
        end = text.size();
        while (end > start && std::isspace(static_cast<unsigned char>(text[end - 1])))
            --end;
    }
    return std::string(text.substr(start, end - start));
}

} // namespace

host::Expected<std::string> instructionText(const std::string &instructions)
{
    size_t first = 0;
    while (first < instructions.size() &&
           std::isspace(static_cast<unsigned char>(instructions[first])))
        ++first;
    std::string_view text = std::string_view(instructions).substr(first);
    if (text.size() < referenceKeyword.size() ||
        !containsNoCase(text.substr(0, referenceKeyword.size()), referenceKeyword))
        return instructions;
    std::string path = referencePath(text.substr(referenceKeyword.size()));
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return host::unexpected(fmt::format("cannot read the instruction set \"{}\"", path));
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

host::Expected<CheckReport> checkStoredLoad(const std::vector<std::string> &strings,
                                            const std::set<int> &stoppedLines)
{
    if (strings.size() < 2)
        return host::unexpected("the load stored no data file and instruction set");
    auto text = instructionText(strings[1]);
    if (!text)
        return host::unexpected(text.error());
    auto set = readInstructionSet(*text);
    if (!set)
        return host::unexpected("the instruction set does not read: " + set.error());
    return checkFile(strings[0], strings[0], *set, stoppedLines);
}

namespace {
constexpr std::string_view malformedQuestion =
    "Possible malformed numeric data values were found on line ";
}

std::optional<int> stoppedLine(const host::UiEvent &event)
{
    if (event.kind != host::UiEvent::Kind::message || event.answer != "no" ||
        !event.text.starts_with(malformedQuestion))
        return std::nullopt;
    const char *digits = event.text.data() + malformedQuestion.size();
    int line = 0;
    auto [end, error] = std::from_chars(digits, event.text.data() + event.text.size(), line);
    return error == std::errc() ? std::optional<int>(line) : std::nullopt;
}

} // namespace corvane::inspect
