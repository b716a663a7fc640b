/*
 * Script.cpp - reading a dialog script: lines into words, words into steps.
 */
#include "Script.h"

#include <charconv>
#include <span>

#include <fmt/format.h>

namespace corvane::cli::script {

namespace {

struct Token {
    std::string text;
    bool quoted = false;
};

using Args = std::span<const Token>;

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/* The character an escape stands for, or nothing for an unknown one. */
std::optional<char> unescaped(char c)
{
    switch (c) {
    case '"':
    case '\\':
        return c;
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return std::nullopt;
    }
}

/* The quoted argument starting at line[at] (the quote); at ends after it. */
host::Expected<Token> quotedToken(std::string_view line, std::size_t &at)
{
    Token token{"", true};
    for (++at; at < line.size() && line[at] != '"'; ++at) {
        if (line[at] != '\\') {
            token.text += line[at];
            continue;
        }
        if (++at == line.size())
            break;
        auto c = unescaped(line[at]);
        if (!c)
            return host::unexpected(fmt::format("unknown escape \\{} (use \\\", \\\\, \\n, \\r "
                                                "or \\t)",
                                                line[at]));
        token.text += *c;
    }
    if (at == line.size())
        return host::unexpected("a quoted text has no closing quote");
    ++at;
    if (at < line.size() && !isBlank(line[at]))
        return host::unexpected("a closing quote must be followed by a blank");
    return token;
}

host::Expected<std::vector<Token>> tokenize(std::string_view line)
{
    std::vector<Token> tokens;
    std::size_t at = 0;
    for (;;) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        if (at == line.size())
            return tokens;
        if (line[at] == '"') {
            auto token = quotedToken(line, at);
            if (!token)
                return host::unexpected(token.error());
            tokens.push_back(std::move(*token));
            continue;
        }
        std::size_t end = at;
        while (end < line.size() && !isBlank(line[end]))
            ++end;
        std::string_view word = line.substr(at, end - at);
        if (word.find('"') != std::string_view::npos)
            return host::unexpected(
                fmt::format("a double quote inside {}: quote the whole argument", word));
        tokens.push_back({std::string(word), false});
        at = end;
    }
}

bool isKeyword(const Token &token, std::string_view keyword)
{
    return !token.quoted && token.text == keyword;
}

host::Unexpected useInstead(std::string_view syntax)
{
    return host::unexpected(fmt::format("wrong arguments; use: {}", syntax));
}

/* A choice of two words, e.g. on|off: true for the first. */
host::Expected<bool> either(const Token &token, std::string_view yes, std::string_view no,
                            std::string_view syntax)
{
    if (token.text == yes)
        return true;
    if (token.text == no)
        return false;
    return useInstead(syntax);
}

host::Expected<ItemRef> itemRef(const Token &token)
{
    std::string_view text = token.text;
    if (token.quoted || text.size() < 2 || text[0] != '#' ||
        text.find_first_not_of("0123456789", 1) != std::string_view::npos)
        return ItemRef{token.text, 0};
    LgIndex_t position = 0;
    auto [end, error] = std::from_chars(text.data() + 1, text.data() + text.size(), position);
    if (error != std::errc() || position < 1)
        return host::unexpected(
            fmt::format("{} is not an item number (items are numbered from 1)", text));
    return ItemRef{"", position};
}

/* The items named by the tokens, by text or #N. */
host::Expected<std::vector<ItemRef>> itemRefs(Args args)
{
    std::vector<ItemRef> items;
    for (const Token &token : args) {
        auto item = itemRef(token);
        if (!item)
            return host::unexpected(item.error());
        items.push_back(std::move(*item));
    }
    return items;
}

using Parsed = host::Expected<Step>;

Parsed parseExpect(Args args)
{
    constexpr std::string_view syntax =
        "expect dialog TITLE, expect no dialog, expect CAPTION [contains] TEXT, expect "
        "items|selected CAPTION ITEM..., expect sensitive|insensitive NAME or expect message "
        "TEXT";
    if (args.empty())
        return useInstead(syntax);
    const Token &first = args[0];
    if (isKeyword(first, "dialog") && args.size() == 2)
        return Step{ExpectDialog{args[1].text}};
    if (isKeyword(first, "no") && args.size() == 2 && isKeyword(args[1], "dialog"))
        return Step{ExpectDialog{std::nullopt}};
    if ((isKeyword(first, "items") || isKeyword(first, "selected")) && args.size() >= 2) {
        auto items = itemRefs(args.subspan(2));
        if (!items)
            return host::unexpected(items.error());
        return Step{ExpectItems{args[1].text, std::move(*items), first.text == "selected"}};
    }
    if ((isKeyword(first, "sensitive") || isKeyword(first, "insensitive")) && args.size() == 2)
        return Step{ExpectSensitive{args[1].text, first.text == "sensitive"}};
    if (isKeyword(first, "message") && args.size() == 2)
        return Step{ExpectMessage{args[1].text}};
    for (std::string_view keyword :
         {"dialog", "no", "items", "selected", "sensitive", "insensitive", "message"})
        if (isKeyword(first, keyword))
            return useInstead(syntax);
    if (args.size() == 2)
        return Step{ExpectText{first.text, args[1].text, false}};
    if (args.size() == 3 && isKeyword(args[1], "contains"))
        return Step{ExpectText{first.text, args[2].text, true}};
    return useInstead(syntax);
}

Parsed parseSelect(Args args)
{
    if (args.size() < 2)
        return useInstead("select CAPTION ITEM...");
    auto items = itemRefs(args.subspan(1));
    if (!items)
        return host::unexpected(items.error());
    return Step{Select{args[0].text, std::move(*items)}};
}

Parsed parsePercent(Args args)
{
    if (args.size() != 1)
        return useInstead("cancel-at PERCENT");
    const std::string &text = args[0].text;
    int percent = -1;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), percent);
    if (error != std::errc() || end != text.data() + text.size() || percent < 0 || percent > 100)
        return host::unexpected(
            fmt::format("cancel-at: {} is not a percent from 0 to 100", quote(text)));
    return Step{CancelAt{percent}};
}

/* A step of one text argument: syntax names it in the error. */
template <class Kind>
Parsed oneText(Args args, std::string_view syntax)
{
    if (args.size() != 1)
        return useInstead(syntax);
    return Step{Kind{args[0].text}};
}

Parsed parseStep(const Token &word, Args args)
{
    const std::string &w = word.text;
    if (w == "press")
        return oneText<Press>(args, "press LABEL");
    if (w == "choose")
        return oneText<Choose>(args, "choose ITEM");
    if (w == "dump")
        return oneText<Dump>(args, "dump PATH");
    if (w == "toggle") {
        auto on = args.size() == 2 ? either(args[1], "on", "off", "toggle LABEL on|off")
                                   : host::Expected<bool>(useInstead("toggle LABEL on|off"));
        if (!on)
            return host::unexpected(on.error());
        return Step{Toggle{args[0].text, *on}};
    }
    if (w == "set") {
        if (args.size() != 2)
            return useInstead("set CAPTION TEXT");
        return Step{Set{args[0].text, args[1].text}};
    }
    if (w == "select")
        return parseSelect(args);
    if (w == "file") {
        if (args.size() != 1)
            return useInstead("file PATH or file cancel");
        if (isKeyword(args[0], "cancel"))
            return Step{File{std::nullopt}};
        return Step{File{args[0].text}};
    }
    if (w == "answer") {
        auto yes = args.size() == 1 ? either(args[0], "yes", "no", "answer yes|no")
                                    : host::Expected<bool>(useInstead("answer yes|no"));
        if (!yes)
            return host::unexpected(yes.error());
        return Step{Answer{*yes}};
    }
    if (w == "cancel-at")
        return parsePercent(args);
    if (w == "open") {
        if (!args.empty())
            return useInstead("open");
        return Step{Open{}};
    }
    if (w == "expect")
        return parseExpect(args);
    return host::unexpected(fmt::format("unknown command {}", quote(w)));
}

} // namespace

host::Expected<std::vector<Line>> parse(std::string_view text, std::string_view name)
{
    std::vector<Line> lines;
    int number = 0;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        std::string_view line = text.substr(start, end == std::string_view::npos ? end : end - start);
        start = end == std::string_view::npos ? text.size() : end + 1;
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        auto first = line.find_first_not_of(" \t");
        if (first == std::string_view::npos || line[first] == '#')
            continue;
        auto tokens = tokenize(line);
        auto step = tokens ? parseStep((*tokens)[0], Args(*tokens).subspan(1))
                           : Parsed(host::unexpected(tokens.error()));
        if (!step)
            return host::unexpected(fmt::format("{}:{}: {}", name, number, step.error()));
        lines.push_back({number, std::move(*step)});
    }
    return lines;
}

std::string quote(std::string_view text)
{
    std::string out = "\"";
    for (char c : text) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            out += c;
        }
    }
    return out + "\"";
}

} // namespace corvane::cli::script
