/*
 * SniffNames.cpp - the line of variable names above the data (or in a
 * comment, or after a label such as "Data:"), the variables' names and
 * which of them are loaded; and the title: the first line of text before
 * the names, or the file's name.
 */
#include <algorithm>
#include <set>

#include <fmt/format.h>

#include "LineCells.h"
#include "LoaderNumber.h"
#include "SniffPlan.h"

namespace corvane::inspect {
namespace {

bool hasLetter(std::string_view text)
{
    for (char c : text)
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'))
            return true;
    return false;
}

bool whitespaceOnly(std::string_view text)
{
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

std::string trimmed(std::string_view text)
{
    size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    size_t last = text.find_last_not_of(" \t");
    return std::string(text.substr(first, last - first + 1));
}

/* The text of a comment line after its prefix. */
std::string commentText(const SniffPlan &plan, const SniffLine &line)
{
    std::string text = trimmed(line.raw);
    return trimmed(std::string_view(text).substr(plan.layout.commentPrefix.size()));
}

bool isComment(const SniffPlan &plan, const SniffLine &line)
{
    return startsWithPrefix(line.raw, plan.layout.commentPrefix);
}

/* The delimiter of the names: that of the data, blanks for fixed widths. */
Delimiter namesDelimiter(const InstructionSet &set)
{
    return set.dataDelimiter == Delimiter::fixed ? Delimiter::space : set.dataDelimiter;
}

std::vector<std::string> blankWords(std::string_view text)
{
    std::vector<std::string> words;
    for (const Cell &cell : cutTextTokens(text, Delimiter::space, 0))
        if (!cell.text.empty())
            words.push_back(cell.text);
    std::vector<std::string> split;
    for (const std::string &word : words) { /* tabs too */
        size_t at = 0;
        while ((at = word.find_first_not_of('\t', at)) != std::string::npos) {
            size_t end = word.find('\t', at);
            split.push_back(word.substr(at, end == std::string::npos ? end : end - at));
            at = end;
        }
    }
    return split;
}

/* Names that no number is among and half of which have a letter. */
bool nameLike(const std::vector<std::string> &tokens)
{
    size_t letters = 0;
    for (const std::string &token : tokens) {
        if (token.empty() || readLoaderNumber(token) || isDecimalCommaNumber(token))
            return false;
        letters += hasLetter(token) ? 1 : 0;
    }
    return letters * 2 >= tokens.size();
}

/* The line's names when it holds count of them (after a label). */
std::optional<NamesLine> namesOf(const SniffPlan &plan, size_t index, size_t count)
{
    const SniffLine &line = plan.line(index);
    NamesLine names;
    names.index = index;
    names.comment = isComment(plan, line);
    if (names.comment) {
        names.tokens = blankWords(commentText(plan, line));
    } else {
        for (const Cell &cell : cutTextTokens(line.view, namesDelimiter(plan.set), 0))
            names.tokens.push_back(cell.text);
    }
    if (names.tokens.size() == count + 1 && names.tokens.front().size() > 1 &&
        names.tokens.front().back() == ':') {
        names.label = names.tokens.front();
        names.tokens.erase(names.tokens.begin());
    }
    if (names.tokens.size() != count || !nameLike(names.tokens))
        return std::nullopt;
    return names;
}

/* Words that mark the start or end of data, not names. */
bool markerLine(std::string_view line)
{
    static const char *const markers[] = {"BEGIN", "START", "END", "BEGIN_DATA", "END_DATA"};
    std::string word = upperCase(firstWord(line));
    return std::any_of(std::begin(markers), std::end(markers),
                       [&word](const char *marker) { return word == marker; });
}

/* The lines right above the data that each name every column (lines
   without letters or digits passed over); the highest of them. A label
   ("Data:") before the names is taken on the line next to the data only. */
std::optional<NamesLine> namesLine(const SniffPlan &plan, size_t count)
{
    std::optional<NamesLine> found;
    size_t index = plan.sizeRow ? *plan.sizeRow : plan.firstRow();
    bool nearest = true;
    while (index-- > 0) {
        const SniffLine &line = plan.line(index);
        if (line.cls == LineClass::empty && !whitespaceOnly(line.raw))
            continue;
        if (line.cls != LineClass::text && line.cls != LineClass::comment)
            break;
        if (markerLine(line.raw))
            break;
        auto names = namesOf(plan, index, count);
        if (!names || (!names->label.empty() && !nearest))
            break;
        found = names;
        nearest = false;
    }
    return found;
}

/* Names made unique as the loader makes names read from a file: a repeated
   name gets its position appended. A backslash that ends a name is left
   out: in NAMES it would escape the comma after it and join the name to
   the next; a name of backslashes alone gets its generic name. */
std::vector<std::string> uniqueNames(std::vector<std::string> names)
{
    std::set<std::string> seen;
    for (size_t i = 0; i < names.size(); ++i) {
        names[i].resize(std::min<size_t>(names[i].size(), 120)); /* a set's names hold 128 */
        while (!names[i].empty() && names[i].back() == '\\')
            names[i].pop_back();
        if (names[i].empty())
            names[i] = fmt::format("V{}", i + 1);
        if (!seen.insert(names[i]).second)
            names[i] += std::to_string(i + 1);
    }
    return names;
}

std::string delimiterWords(Delimiter delimiter)
{
    switch (delimiter) {
    case Delimiter::tab:
        return "tab-separated";
    case Delimiter::semicolon:
        return "semicolon-separated";
    case Delimiter::comma:
        return "comma-separated";
    case Delimiter::automatic:
        return "separated by blanks and tabs";
    default:
        return "blank-separated";
    }
}

} // namespace

void findNames(SniffPlan &plan)
{
    bool grid = !plan.set.autoDimension && !plan.set.multipleZones;
    std::vector<size_t> named; /* the columns the names of a names line belong to */
    if (grid) {
        named = plan.variables;
    } else {
        for (size_t c = 0; c < plan.columns.size(); ++c)
            if (plan.columns[c].kind != Column::empty)
                named.push_back(c);
    }
    plan.names = namesLine(plan, named.size());
    std::vector<std::string> names = genericNames(plan.variables.size());
    if (plan.names) {
        std::vector<std::string> columnNames(grid ? named.size() : plan.columns.size());
        for (size_t i = 0; i < named.size(); ++i)
            (grid ? columnNames[i] : columnNames[named[i]]) = plan.names->tokens[i];
        for (size_t v = 0; v < plan.variables.size(); ++v) {
            const std::string &name = columnNames[grid ? v : plan.variables[v]];
            if (!name.empty())
                names[v] = name;
        }
        if (!grid)
            for (size_t c = 0; c < plan.columns.size(); ++c)
                plan.columns[c].name = columnNames[c];
    }
    bool oneToOne = plan.names && !plan.names->comment && plan.names->label.empty() &&
                    (grid || named == plan.variables);
    InstructionSet &set = plan.set;
    if (oneToOne) {
        set.namesSearch = SearchMode::line;
        set.namesStartLine = set.namesEndLine = plan.line(plan.names->index).number;
        set.namesDelimiter = namesDelimiter(set);
    } else {
        set.namesSearch = SearchMode::none;
        set.names = uniqueNames(names);
        if (!plan.names)
            plan.unsure(names.size() == 1
                            ? std::string("no line of names found: the variable is named V1")
                            : fmt::format("no line of names found: the variables are named V1-V{}",
                                          names.size()));
    }

    set.loaded.clear();
    bool all = true;
    for (size_t v = 0; v < plan.variables.size(); ++v) {
        const Column *column = grid ? nullptr : &plan.columns[plan.variables[v]];
        bool load = column == nullptr || (column->kind == Column::number && !column->wrong);
        if (load)
            set.loaded.push_back(static_cast<int>(v) + 1);
        all = all && load;
    }
    if (all)
        set.loaded.clear();
}

std::string namesRoleText(const SniffPlan &plan)
{
    const NamesLine &names = *plan.names;
    size_t count = names.tokens.size();
    if (plan.set.namesSearch == SearchMode::line)
        return fmt::format("{} variable name{}, {}", count, count == 1 ? "" : "s",
                           delimiterWords(plan.set.namesDelimiter));
    if (!names.label.empty())
        return fmt::format("{} variable names after \"{}\", entered in the set", count,
                           names.label);
    if (names.comment)
        return fmt::format("{} variable names in a comment, entered in the set", count);
    return fmt::format("{} variable names, entered in the set for the {} loaded columns", count,
                       plan.variables.size());
}

/* A title to enter in the set, no longer than the loader takes one. */
std::string enteredTitle(std::string text)
{
    if (text.size() > 1000)
        text.resize(1000);
    return text;
}

void findTitle(SniffPlan &plan)
{
    InstructionSet &set = plan.set;
    if (set.titleSearch == SearchMode::none && !set.titleName.empty()) {
        set.titleName = enteredTitle(set.titleName); /* given */
        return;
    }
    size_t limit = plan.names ? plan.names->index : plan.sizeRow ? *plan.sizeRow : plan.firstRow();
    for (size_t i = 0; i < limit; ++i) {
        const SniffLine &line = plan.line(i);
        if (line.cls == LineClass::empty || line.cls == LineClass::data || !hasLetter(line.raw) ||
            markerLine(line.raw))
            continue;
        auto words = blankWords(line.raw);
        if (words.size() == 2 && readLoaderNumber(words[1]))
            continue; /* a key and its value */
        plan.titleLine = i;
        if (isComment(plan, line)) {
            set.titleSearch = SearchMode::none;
            set.titleName = enteredTitle(commentText(plan, line));
            plan.titleText = set.titleName;
            return;
        }
        set.titleSearch = SearchMode::line;
        set.titleLine = line.number;
        std::string text = trimmed(line.view);
        size_t close = text.size() > 1 && text.front() == '"' ? text.find('"', 1) : text.npos;
        char cell = set.dataDelimiter == Delimiter::semicolon ? ';'
                    : set.dataDelimiter == Delimiter::comma   ? ','
                                                              : '\0';
        if (close != text.npos) {
            set.titleDelimiter = Delimiter::automatic;
        } else if (cell != '\0' && text.find(cell) != text.npos &&
                   text.find_first_not_of(std::string(1, cell) + " \t", text.find(cell)) ==
                       text.npos) {
            set.titleDelimiter = set.dataDelimiter;
        } else {
            set.titleDelimiter = Delimiter::fixed;
            set.titleWidth = std::max<int>(80, static_cast<int>(line.view.size()));
        }
        auto tokens = cutTextTokens(line.view, set.titleDelimiter, set.titleWidth);
        plan.titleText = tokens.empty() ? std::string() : tokens.front().text;
        return;
    }
    set.titleSearch = SearchMode::none;
    set.titleName = enteredTitle(plan.sample.name);
    plan.titleText = set.titleName;
}

} // namespace corvane::inspect
