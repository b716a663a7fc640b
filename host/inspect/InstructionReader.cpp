/*
 * InstructionReader.cpp - a small recursive-descent reader of the
 * instruction-set language.
 */
#include "InstructionReader.h"

#include <cctype>
#include <cmath>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "LoaderNumber.h"

namespace corvane::inspect {
namespace {

bool isBlank(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

std::string upper(std::string_view text)
{
    std::string out(text);
    for (char &c : out)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

/* What the loader's fields hold of a quoted text: a quoted text itself, a
   title, keywords and markers, a variable name. */
constexpr size_t textLimit = 1024;
constexpr size_t titleLimit = 1023;
constexpr size_t keywordLimit = 256;
constexpr size_t nameLimit = 128;

struct Token {
    enum Kind { end, number, string, word, open, close, equals, list, error } kind = end;
    std::string text;    /* word (upper case) or string */
    std::string message; /* error: what is wrong, when the token says */
    double value = 0;
    NumberList ranges;
};

/* The failure that ends the read, with the line it was found on. */
struct ReadError {
    std::string message;
};

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    host::Expected<InstructionSet> read()
    {
        InstructionSet set;
        if (auto failed = topLevel(set))
            return host::unexpected(fmt::format("line {}: {}", line_, failed->message));
        return set;
    }

private:
    using Failure = std::optional<ReadError>;

    char peek() const { return pos_ < text_.size() ? text_[pos_] : '\0'; }

    void skipSpace()
    {
        while (pos_ < text_.size()) {
            char c = text_[pos_];
            if (c == '#') {
                while (pos_ < text_.size() && text_[pos_] != '\n')
                    ++pos_;
            } else if (isBlank(c)) {
                if (c == '\n')
                    ++line_;
                ++pos_;
            } else {
                return;
            }
        }
    }

    Token next()
    {
        skipSpace();
        Token token;
        char c = peek();
        if (c == '\0')
            return token;
        if (c == '"')
            return quoted();
        if (c == '[')
            return numberList();
        if (std::isdigit(static_cast<unsigned char>(c)) || c == '+' || c == '-' || c == '.')
            return numberToken();
        if (std::isalpha(static_cast<unsigned char>(c))) {
            size_t start = pos_;
            while (std::isalpha(static_cast<unsigned char>(peek())))
                ++pos_;
            token.kind = Token::word;
            token.text = upper(text_.substr(start, pos_ - start));
            return token;
        }
        ++pos_;
        token.kind = c == '{' ? Token::open : c == '}' ? Token::close : c == '=' ? Token::equals
                                                                                : Token::error;
        token.text = std::string(1, c);
        return token;
    }

    Token quoted()
    {
        Token token;
        ++pos_;
        while (pos_ < text_.size() && text_[pos_] != '"') {
            char c = text_[pos_++];
            if (c == '\n')
                ++line_;
            if (c != '\\') {
                token.text += c;
                continue;
            }
            if (pos_ >= text_.size())
                break;
            char escaped = text_[pos_++];
            if (escaped == '\n')
                ++line_;
            if (escaped == '"' || escaped == '\\')
                token.text += escaped;
            else if (escaped == ',')
                token.text += "\\,";
            /* any other escaped character is dropped, as the loader does */
        }
        if (pos_ >= text_.size()) {
            token.kind = Token::error;
            token.message = "Expected closing double quote";
            return token;
        }
        ++pos_;
        token.kind = Token::string;
        if (token.text.size() > textLimit)
            token.text.resize(textLimit); /* the loader cuts it there */
        return token;
    }

    /* An integer at the cursor: optional '-', 1 to 10 digits. */
    std::optional<long long> integer()
    {
        size_t p = pos_;
        while (p < text_.size() && (text_[p] == ' ' || text_[p] == '\t'))
            ++p;
        bool negative = p < text_.size() && text_[p] == '-';
        if (negative)
            ++p;
        size_t digits = p;
        long long value = 0;
        while (p < text_.size() && std::isdigit(static_cast<unsigned char>(text_[p]))) {
            if (p - digits == 10)
                return std::nullopt;
            value = value * 10 + (text_[p] - '0');
            ++p;
        }
        if (p == digits)
            return std::nullopt;
        pos_ = p;
        return negative ? -value : value;
    }

    Token numberToken()
    {
        Token token;
        std::string_view rest = text_.substr(pos_);
        size_t length = 0;
        while (length < rest.size() && !isBlank(rest[length]))
            ++length;
        if (auto read = readLoaderNumber(rest.substr(0, length))) {
            pos_ += length;
            token.kind = Token::number;
            token.value = *read;
            return token;
        }
        if (auto value = integer()) {
            token.kind = Token::number;
            token.value = static_cast<double>(*value);
            return token;
        }
        ++pos_;
        token.kind = Token::error;
        return token;
    }

    Token numberList()
    {
        Token token;
        ++pos_;
        for (;;) {
            while (peek() == ' ' || peek() == '\t')
                ++pos_;
            char c = peek();
            if (c == '\0') {
                token.kind = Token::error;
                token.message = "Expected ending bracket (])";
                return token;
            }
            if (c == ']') {
                ++pos_;
                token.kind = Token::list;
                return token;
            }
            if (c == ',' || c == '[') {
                ++pos_;
                continue;
            }
            auto low = std::isdigit(static_cast<unsigned char>(c)) ? integer() : std::nullopt;
            if (!low) {
                token.kind = Token::error;
                token.message = "Invalid character in number list";
                return token;
            }
            NumberRange range{static_cast<int>(*low), static_cast<int>(*low)};
            while (peek() == ' ' || peek() == '\t')
                ++pos_;
            if (peek() == '-') {
                ++pos_;
                while (peek() == ' ' || peek() == '\t')
                    ++pos_;
                if (upper(text_.substr(pos_, 3)) == "END") {
                    pos_ += 3;
                    range.max = 0;
                } else if (auto high = integer()) {
                    range.max = static_cast<int>(*high);
                } else {
                    token.kind = Token::error;
                    token.message = "Invalid integer in number range";
                    return token;
                }
            }
            if (token.ranges.size() < 32)
                token.ranges.push_back(range);
        }
    }

    static ReadError expected(std::string_view what)
    {
        return ReadError{fmt::format("Expected {}.", what)};
    }

    Failure expect(Token::Kind kind, std::string_view what)
    {
        Token token = next();
        if (token.kind == Token::error && !token.message.empty())
            return ReadError{token.message};
        if (token.kind != kind)
            return expected(what);
        last_ = std::move(token);
        return std::nullopt;
    }

    /* A quoted text into out, at most limit characters of it as the
       loader's field holds. */
    Failure assignString(std::string &out, size_t limit = keywordLimit)
    {
        if (auto failed = expect(Token::equals, "'='"))
            return failed;
        if (auto failed = expect(Token::string, "double quoted string"))
            return failed;
        out = last_.text.substr(0, limit);
        return std::nullopt;
    }

    Failure assignInt(int &out)
    {
        if (next().kind != Token::equals)
            return ReadError{"Expected integer"};
        Token token = next();
        if (token.kind != Token::number)
            return ReadError{"Expected integer"};
        double floor = std::floor(token.value);
        out = floor < 1 ? 1 : floor > 2147483647.0 ? 2147483647 : static_cast<int>(floor);
        return std::nullopt;
    }

    Failure assignBool(bool &out)
    {
        if (auto failed = expect(Token::equals, "'='"))
            return failed;
        Token token = next();
        if (token.kind == Token::word && (token.text == "TRUE" || token.text == "YES" ||
                                          token.text == "T"))
            out = true;
        else if (token.kind == Token::word && (token.text == "FALSE" || token.text == "NO" ||
                                               token.text == "F"))
            out = false;
        else
            return expected("TRUE or FALSE");
        return std::nullopt;
    }

    Failure assignWord(std::string &out)
    {
        if (auto failed = expect(Token::equals, "'='"))
            return failed;
        Token token = next();
        if (token.kind != Token::word)
            return expected("keyword");
        out = token.text;
        return std::nullopt;
    }

    Failure assignSearch(SearchMode &out)
    {
        std::string word;
        if (auto failed = assignWord(word))
            return failed;
        if (word == "NONE")
            out = SearchMode::none;
        else if (word == "LINE")
            out = SearchMode::line;
        else if (word == "KEYWORD")
            out = SearchMode::keyword;
        else
            return ReadError{"Expected one of NONE,LINE,KEYWORD"};
        return std::nullopt;
    }

    Failure assignDelimiter(Delimiter &out)
    {
        std::string word;
        if (auto failed = assignWord(word))
            return failed;
        static const std::pair<const char *, Delimiter> kinds[] = {
            {"AUTO", Delimiter::automatic}, {"TAB", Delimiter::tab},
            {"SPACE", Delimiter::space},    {"SEMICOLON", Delimiter::semicolon},
            {"COMMA", Delimiter::comma},    {"FIXED", Delimiter::fixed}};
        for (const auto &[name, kind] : kinds) {
            if (word == name) {
                out = kind;
                return std::nullopt;
            }
        }
        return ReadError{"Expected one of AUTO,TAB,SPACE,SEMICOLON,COMMA,FIXED"};
    }

    Failure assignList(NumberList &out)
    {
        if (auto failed = expect(Token::equals, "'='"))
            return failed;
        Token token = next();
        if (token.kind != Token::list)
            return expected("Number range in the form of [nn-nn,...]");
        out = token.ranges;
        return std::nullopt;
    }

    /* LOADED: read from the text itself up to the end of its list. */
    Failure assignLoaded(std::vector<int> &out)
    {
        if (auto failed = expect(Token::equals, "'='"))
            return failed;
        out.clear();
        while (peek() == ' ' || peek() == '\t' || peek() == '"')
            ++pos_;
        if (peek() != '[') {
            while (peek() != '\0' && !isBlank(peek()))
                ++pos_;
            return std::nullopt;
        }
        ++pos_;
        while (peek() != '\0' && peek() != ']' && peek() != '\n') {
            if (!std::isdigit(static_cast<unsigned char>(peek()))) {
                ++pos_;
                continue;
            }
            long long number = 0;
            while (std::isdigit(static_cast<unsigned char>(peek()))) {
                if (number < 1000000000000LL)
                    number = number * 10 + (peek() - '0');
                ++pos_;
            }
            if (number >= 1 && number <= 2147483647LL)
                out.push_back(static_cast<int>(number));
        }
        if (peek() == ']')
            ++pos_;
        if (peek() == '"')
            ++pos_;
        return std::nullopt;
    }

    static std::vector<std::string> splitNames(std::string_view text)
    {
        std::vector<std::string> names;
        if (text.empty())
            return names;
        std::string piece;
        for (size_t i = 0;; ++i) {
            if (i < text.size() && text[i] == '\\' && i + 1 < text.size() && text[i + 1] == ',') {
                piece += ',';
                ++i;
            } else if (i == text.size() || text[i] == ',') {
                names.push_back(piece.substr(0, nameLimit));
                piece.clear();
                if (i == text.size())
                    return names;
            } else {
                piece += text[i];
            }
        }
    }

    Failure marker(FileMarker &out, bool isStart)
    {
        std::string word;
        if (auto failed = assignWord(word))
            return failed;
        if (word == "FIRSTNUMERICLINE" && isStart)
            out.kind = Marker::firstNumericLine;
        else if (word == "FIRSTNONNUMERICLINE" && !isStart)
            out.kind = Marker::firstNonNumericLine;
        else if (word == "LINE")
            out.kind = Marker::line;
        else if (word == "KEYWORD")
            out.kind = Marker::keyword;
        else if (word == "EOF" && !isStart)
            out.kind = Marker::endOfFile;
        else
            return ReadError{isStart ? "Expected one of: FIRSTNUMERICLINE,LINE,KEYWORD"
                                     : "Expected one of: FIRSTNONNUMERICLINE,LINE,KEYWORD"};
        if (auto failed = expect(Token::open, "{"))
            return failed;
        for (;;) {
            Token token = next();
            if (token.kind == Token::close)
                return std::nullopt;
            if (token.kind == Token::end)
                return ReadError{"Expected '}'"};
            if (out.kind != Marker::line && out.kind != Marker::keyword)
                continue; /* other markers skip their block */
            if (token.kind == Token::word && token.text == "KEYWORD") {
                if (auto failed = assignString(out.keyword))
                    return failed;
            } else if (token.kind == Token::word && token.text == "LINE") {
                if (auto failed = assignInt(out.line))
                    return failed;
            } else {
                return ReadError{"Expected KEYWORD = ... or LINE = ...."};
            }
        }
    }

    /* A section's body: each keyword handled by handle, up to "}". */
    template <typename Handle> Failure section(Handle handle)
    {
        if (auto failed = expect(Token::open, "{"))
            return failed;
        for (;;) {
            Token token = next();
            if (token.kind == Token::close)
                return std::nullopt;
            if (token.kind != Token::word)
                return ReadError{"Expected valid keyword or '}'"};
            if (auto failed = handle(token.text))
                return failed;
        }
    }

    Failure titleSection(InstructionSet &set)
    {
        return section([&](const std::string &key) -> Failure {
            if (key == "SEARCH")
                return assignSearch(set.titleSearch);
            if (key == "NAME")
                return assignString(set.titleName, titleLimit);
            if (key == "LINE")
                return assignInt(set.titleLine);
            if (key == "KEYWORD")
                return assignString(set.titleKeyword);
            if (key == "DELIMITER")
                return assignDelimiter(set.titleDelimiter);
            if (key == "WIDTH")
                return assignInt(set.titleWidth);
            return ReadError{"Invalid keyword"};
        });
    }

    Failure variablesSection(InstructionSet &set)
    {
        return section([&](const std::string &key) -> Failure {
            if (key == "SEARCH")
                return assignSearch(set.namesSearch);
            if (key == "NAMES") {
                std::string text;
                if (auto failed = assignString(text, textLimit))
                    return failed;
                set.names = splitNames(text);
                if (set.names.empty())
                    return ReadError{"No variable names specified"};
                return std::nullopt;
            }
            if (key == "LOADED")
                return assignLoaded(set.loaded);
            if (key == "STARTLINE")
                return assignInt(set.namesStartLine);
            if (key == "ENDLINE")
                return assignInt(set.namesEndLine);
            if (key == "WIDTH")
                return assignInt(set.namesWidth);
            if (key == "DELIMITER")
                return assignDelimiter(set.namesDelimiter);
            return ReadError{"Invalid keyword"};
        });
    }

    Failure importSection(InstructionSet &set)
    {
        return section([&](const std::string &key) -> Failure {
            if (key == "STARTID")
                return marker(set.start, true);
            if (key == "ENDID")
                return marker(set.end, false);
            if (key == "FORMAT") {
                std::string word;
                if (auto failed = assignWord(word))
                    return failed;
                if (word != "IJKPOINT" && word != "POINT" && word != "IJKBLOCK" && word != "BLOCK")
                    return ReadError{"Expected one of IJKPOINT, IJKBLOCK"};
                set.blockFormat = word == "IJKBLOCK" || word == "BLOCK";
                return std::nullopt;
            }
            if (key == "DELIMITER")
                return assignDelimiter(set.dataDelimiter);
            if (key == "WIDTH")
                return assignInt(set.dataWidth);
            return ReadError{"Invalid keyword found"};
        });
    }

    Failure dimensionSection(InstructionSet &set)
    {
        return section([&](const std::string &key) -> Failure {
            if (key == "AUTO")
                return assignBool(set.autoDimension);
            if (key == "CREATEMULTIPLEZONES")
                return assignBool(set.multipleZones);
            if (key == "KEYWORD")
                return assignString(set.zoneKeyword);
            if (key == "IMAX")
                return assignInt(set.imax);
            if (key == "JMAX")
                return assignInt(set.jmax);
            if (key == "KMAX")
                return assignInt(set.kmax);
            return ReadError{"Expected one of AUTO,IMAX,JMAX,KMAX"};
        });
    }

    Failure dataSection(InstructionSet &set)
    {
        return section([&](const std::string &key) -> Failure {
            if (key == "IGNORENONNUMERICTOKENS")
                return assignBool(set.ignoreNonNumericTokens);
            if (key == "IMPORT")
                return importSection(set);
            if (key == "DIMENSION")
                return dimensionSection(set);
            return ReadError{"Invalid keyword found"};
        });
    }

    Failure filtersSection(InstructionSet &set)
    {
        return section([&](const std::string &key) -> Failure {
            if (key == "KEYWORD")
                return assignString(set.skipKeyword);
            if (key == "COMMENT") {
                if (auto failed = assignString(set.comment))
                    return failed;
                set.useComment = !set.comment.empty();
                return std::nullopt;
            }
            if (key == "COLUMNS")
                return assignList(set.columns);
            if (key == "ROWS")
                return assignList(set.rows);
            if (key == "USEBLANKCELLVALUE") {
                bool ignored = false;
                set.useBlankCellValue = true; /* whatever it says, as the loader reads it */
                return assignBool(ignored);
            }
            if (key == "BLANKCELLVALUE") {
                if (auto failed = expect(Token::equals, "'='"))
                    return failed;
                Token token = next();
                if (token.kind != Token::number)
                    return expected("number");
                set.blankCellValue = token.value;
                set.useBlankCellValue = true;
                return std::nullopt;
            }
            return ReadError{"Invalid keyword"};
        });
    }

    Failure topLevel(InstructionSet &set)
    {
        for (;;) {
            Token token = next();
            if (token.kind == Token::end)
                return std::nullopt;
            if (token.kind == Token::error && !token.message.empty())
                return ReadError{token.message};
            if (token.kind != Token::word)
                return ReadError{"Invalid keyword"};
            Failure failed;
            if (token.text == "VERSION") {
                int version = 0;
                failed = assignInt(version);
            } else if (token.text == "FILEEXT" || token.text == "FILEDESC") {
                std::string ignored;
                failed = assignString(ignored, textLimit);
            } else if (token.text == "TITLE") {
                failed = titleSection(set);
            } else if (token.text == "VARIABLES") {
                failed = variablesSection(set);
            } else if (token.text == "DATA") {
                failed = dataSection(set);
            } else if (token.text == "GLOBALFILTERS") {
                failed = filtersSection(set);
            } else {
                failed = ReadError{"Invalid keyword"};
            }
            if (failed)
                return failed;
        }
    }

    std::string_view text_;
    size_t pos_ = 0;
    int line_ = 1;
    Token last_;
};

} // namespace

host::Expected<InstructionSet> readInstructionSet(std::string_view text)
{
    return Reader(text).read();
}

} // namespace corvane::inspect
