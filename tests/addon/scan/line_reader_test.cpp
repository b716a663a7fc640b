/* The block line reader gives exactly the lines fgets with 64001 characters
   gives, across block boundaries, over-long lines, NUL bytes, CR LF and a
   last line without a line feed. */
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "LineReader.h"
#include "TestFiles.h"

namespace tw = corvane::cvnutildataio;

namespace {

std::vector<std::string> linesByFgets(const std::string &path)
{
    std::vector<std::string> lines;
    static char buffer[64001];
    std::FILE *file = std::fopen(path.c_str(), "r");
    while (std::fgets(buffer, sizeof buffer, file) != nullptr)
        lines.emplace_back(buffer); /* up to a NUL byte, as the scan sees it */
    std::fclose(file);
    return lines;
}

TEST(LineReaderTest, GivesTheLinesOfFgetsAcrossBlocks)
{
    std::string text;
    unsigned seed = 7;
    auto next = [&seed]() { return (seed = seed * 1103515245u + 12345u) >> 16; };
    while (text.size() < (9u << 20)) { /* more than two 4 MiB blocks */
        unsigned pick = next() % 100;
        size_t length = pick == 0 ? 63999 + next() % 3 : pick == 1 ? 130000 : next() % 200;
        std::string line(length, static_cast<char>('a' + next() % 26));
        if (pick == 2)
            line[length / 2] = '\0';
        text += line + (pick == 3 ? "\r\n" : "\n");
    }
    text += "last line without a line feed";
    testfiles::ScratchDir dir;
    std::string path = (dir / "lines.txt").string();
    testfiles::writeFile(path, text);

    std::vector<std::string> read;
    std::FILE *file = std::fopen(path.c_str(), "r");
    tw::TW_LineReader_s reader;
    tw::TW_LineReaderStart(&reader, file);
    size_t length = 0;
    size_t textLength = 0;
    size_t total = 0; /* characters read, NUL bytes included */
    for (char *line = tw::TW_ReadLine(&reader, &length, &textLength); line != nullptr;
         line = tw::TW_ReadLine(&reader, &length, &textLength)) {
        read.emplace_back(line);
        EXPECT_EQ(textLength, read.back().size());
        total += length;
    }
    std::fclose(file);
    EXPECT_EQ(read, linesByFgets(path));
    EXPECT_EQ(total, text.size());
    EXPECT_GT(read.size(), 3000u);
}

} // namespace
