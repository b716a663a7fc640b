/*
 * SniffLayout.cpp - comment prefix, separator, line classes, blocks, zones
 * and the data section of a sampled file.
 */
#include "SniffLayout.h"

#include <algorithm>
#include <map>

#include "LineFilter.h"

namespace corvane::inspect {
namespace {

const char *const commentPrefixes[] = {"#", "%", "!", "//"};


/* The prefix that starts the most lines, if any does. */
std::string commentPrefix(const FileSample &sample)
{
    std::string best;
    int most = 0;
    for (const char *prefix : commentPrefixes) {
        int count = 0;
        for (const SampleLine &line : sample.lines)
            count += startsWithPrefix(line.text, prefix) ? 1 : 0;
        if (count > most) {
            best = prefix;
            most = count;
        }
    }
    return best;
}

/* A header line naming a value: a word, then a number ("ncols 4"). */
bool keyAndValue(const std::vector<Field> &fields)
{
    return fields.size() == 2 && fields[0].kind == FieldKind::unreadable &&
           fields[1].kind == FieldKind::number;
}

/* The text before the first occurrence of marker (the whole line without
   one). */
std::string beforeMarker(const std::string &line, const std::string &marker)
{
    if (marker.empty())
        return line;
    size_t at = line.find(marker);
    return at == std::string::npos ? line : line.substr(0, at);
}

/* The separator that fits the data-like lines best; on equal fits the
   earlier of tab, semicolon, comma, blanks. */
Separator chooseSeparator(const std::vector<SniffLine> &lines)
{
    Separator best = Separator::blanks;
    std::pair<long, long> bestFit{-1, -1}; /* numbers less other fields; data-like lines */
    for (Separator separator :
         {Separator::tab, Separator::semicolon, Separator::comma, Separator::blanks}) {
        std::pair<long, long> fit{0, 0};
        for (const SniffLine &line : lines) {
            if (isBlankLine(line.view))
                continue;
            auto fields = splitFields(line.view, separator);
            LineFit lineFitted = lineFit(fields);
            if (lineFitted.dataLike() && !keyAndValue(fields)) {
                fit.first += lineFitted.score();
                ++fit.second;
            }
        }
        if (fit > bestFit) {
            best = separator;
            bestFit = fit;
        }
    }
    return best;
}

class LayoutBuilder {
public:
    LayoutBuilder(const FileSample &sample, std::string marker)
    {
        layout_.commentMarker = std::move(marker);
        for (const SampleLine &line : sample.lines)
            layout_.lines.push_back(
                {line.number, line.text, beforeMarker(line.text, layout_.commentMarker),
                 LineClass::empty, {}});
        layout_.separator = chooseSeparator(layout_.lines);
        classify();
        findBlocks();
        chooseData();
    }

    Layout take() { return std::move(layout_); }

private:
    void classify()
    {
        strictClasses();
        /* Rows with as many fields as most data rows and a number among
           them are data too, however many of their cells are missing. */
        std::vector<int> counts;
        for (const SniffLine &line : layout_.lines)
            if (line.cls == LineClass::data)
                counts.push_back(static_cast<int>(line.fields.size()));
        int fields = mostCommon(counts);
        for (SniffLine &line : layout_.lines)
            if (line.cls == LineClass::text && static_cast<int>(line.fields.size()) == fields &&
                lineFit(line.fields).numbers >= 1 && !keyAndValue(line.fields))
                line.cls = LineClass::data;
    }

    void strictClasses()
    {
        for (SniffLine &line : layout_.lines) {
            line.fields = splitFields(line.view, layout_.separator);
            if (isBlankLine(line.raw))
                line.cls = LineClass::empty;
            else if (!layout_.commentMarker.empty() && startsWithPrefix(line.raw, layout_.commentMarker))
                line.cls = LineClass::comment;
            else if (!isBlankLine(line.view) && lineFit(line.fields).dataLike() &&
                     !keyAndValue(line.fields))
                line.cls = LineClass::data;
            else
                line.cls = LineClass::text;
        }
    }

    /* Lines that do not part data lines: empty lines, and comments that
       are cut away. */
    bool transparent(const SniffLine &line) const
    {
        return line.cls == LineClass::empty ||
               (line.cls == LineClass::comment && isBlankLine(line.view));
    }

    void findBlocks()
    {
        auto &lines = layout_.lines;
        std::vector<std::vector<size_t>> chunks;
        for (size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].cls != LineClass::data)
                continue;
            if (!chunks.empty() && chunks.back().back() + 1 == i)
                chunks.back().push_back(i);
            else
                chunks.push_back({i});
        }
        for (auto &chunk : chunks) {
            int fields = chunkFields(chunk);
            Block *last = layout_.blocks.empty() ? nullptr : &layout_.blocks.back();
            if (!last || last->fields != fields || !onlyTransparent(last->last + 1, chunk.front())) {
                layout_.blocks.emplace_back();
                last = &layout_.blocks.back();
                last->first = chunk.front();
                last->introducer = introducer(chunk.front());
            }
            last->chunks.push_back(chunk);
            last->rows.insert(last->rows.end(), chunk.begin(), chunk.end());
            last->last = chunk.back();
            for (size_t row : chunk)
                ++last->fieldCounts[static_cast<int>(layout_.lines[row].fields.size())];
            last->fields = mostFields(*last);
        }
    }

    int chunkFields(const std::vector<size_t> &rows) const
    {
        std::vector<int> counts;
        for (size_t row : rows)
            counts.push_back(static_cast<int>(layout_.lines[row].fields.size()));
        return mostCommon(counts);
    }

    /* The number of fields most of the block's rows have; of equal ones the
       smaller. */
    static int mostFields(const Block &block)
    {
        int best = 0;
        size_t most = 0;
        for (const auto &[fields, rows] : block.fieldCounts)
            if (rows > most)
                best = fields, most = rows;
        return best;
    }

    bool onlyTransparent(size_t from, size_t to) const
    {
        for (size_t i = from; i < to; ++i)
            if (!transparent(layout_.lines[i]))
                return false;
        return true;
    }

    /* First word of the nearest line before index that is not empty. */
    std::string introducer(size_t index) const
    {
        while (index-- > 0) {
            const SniffLine &line = layout_.lines[index];
            if (line.cls == LineClass::empty)
                continue;
            if (line.cls == LineClass::data)
                return {};
            return upperCase(firstWord(line.raw));
        }
        return {};
    }

    /* Runs of blocks with the same fields, each introduced by a line with
       the same first word, are zones of one data section; the run (or
       block) with the most rows is the data. */
    void chooseData()
    {
        const auto &blocks = layout_.blocks;
        size_t bestFirst = 0, bestLast = 0, bestRows = 0;
        for (size_t first = 0; first < blocks.size();) {
            size_t last = first;
            while (!blocks[first].introducer.empty() && last + 1 < blocks.size() &&
                   blocks[last + 1].fields == blocks[first].fields &&
                   blocks[last + 1].introducer == blocks[first].introducer &&
                   !keywordInRows(blocks[first].introducer, first == last ? first : last + 1,
                                  last + 1))
                ++last;
            size_t rows = 0;
            for (size_t b = first; b <= last; ++b)
                rows += blocks[b].rows.size();
            if (rows > bestRows) {
                bestFirst = first;
                bestLast = last;
                bestRows = rows;
            }
            first = last + 1;
        }
        layout_.firstBlock = bestFirst;
        layout_.lastBlock = bestLast;
        if (bestLast > bestFirst)
            layout_.zoneKeyword = keywordText(blocks[bestFirst].first);
        if (layout_.zoneKeyword.size() > 200) { /* longer than a set's keyword */
            layout_.zoneKeyword.clear();
            layout_.lastBlock = bestFirst;
        }
    }

    /* The introducing word as written in the file. */
    std::string keywordText(size_t blockFirst) const
    {
        size_t index = blockFirst;
        while (index-- > 0)
            if (layout_.lines[index].cls != LineClass::empty)
                return firstWord(layout_.lines[index].raw);
        return {};
    }

    /* Whether a data row of blocks first..last holds word (then it cannot
       split zones). */
    bool keywordInRows(const std::string &word, size_t first, size_t last) const
    {
        for (size_t b = first; b <= last; ++b)
            for (size_t row : layout_.blocks[b].rows)
                if (containsNoCase(layout_.lines[row].raw, word))
                    return true;
        return false;
    }

    Layout layout_;
};

} // namespace

bool startsWithPrefix(std::string_view line, std::string_view prefix)
{
    size_t first = line.find_first_not_of(" \t");
    return !prefix.empty() && first != std::string_view::npos &&
           line.substr(first).substr(0, prefix.size()) == prefix;
}

int mostCommon(const std::vector<int> &counts)
{
    std::map<int, std::pair<size_t, size_t>> seen; /* count -> times, first index */
    for (size_t i = 0; i < counts.size(); ++i) {
        auto &entry = seen.try_emplace(counts[i], 0, i).first->second;
        ++entry.first;
    }
    int best = 0;
    std::pair<size_t, size_t> most{0, 0};
    for (const auto &[count, entry] : seen) {
        if (entry.first > most.first || (entry.first == most.first && entry.second < most.second)) {
            best = count;
            most = entry;
        }
    }
    return best;
}

std::string firstWord(std::string_view line)
{
    size_t first = line.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    size_t end = line.find_first_of(" \t", first);
    return std::string(line.substr(first, end == std::string_view::npos ? line.npos : end - first));
}

std::string upperCase(std::string_view text)
{
    std::string out(text);
    for (char &c : out)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return out;
}

Layout analyseLayout(const FileSample &sample)
{
    std::string marker = commentPrefix(sample);
    if (!marker.empty()) {
        /* Comment lines that introduce zones are kept: comments are then
           not cut. */
        Layout kept = LayoutBuilder(sample, "").take();
        if (!kept.zoneKeyword.empty() && startsWithPrefix(kept.zoneKeyword, marker)) {
            kept.commentPrefix = marker;
            return kept;
        }
    }
    Layout layout = LayoutBuilder(sample, marker).take();
    layout.commentPrefix = marker;
    return layout;
}

std::vector<size_t> dataRows(const Layout &layout)
{
    std::vector<size_t> rows;
    for (size_t b = layout.firstBlock; layout.hasData() && b <= layout.lastBlock; ++b)
        rows.insert(rows.end(), layout.blocks[b].rows.begin(), layout.blocks[b].rows.end());
    return rows;
}


} // namespace corvane::inspect
