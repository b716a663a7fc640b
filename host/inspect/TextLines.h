/*
 * TextLines.h - the lines of a file as the loader reads them: line ends
 * removed, a line cut at a NUL byte, and never more than the loader's
 * longest line is kept of one (the rest is read past), so that a file
 * without line ends does not become one huge string.
 */
#ifndef CORVANE_INSPECT_TEXTLINES_H
#define CORVANE_INSPECT_TEXTLINES_H

#include <cstddef>
#include <istream>
#include <string>

namespace corvane::inspect {

/* Characters of a line the loader takes at most. */
inline constexpr size_t longestLine = 64000;

class TextLines {
public:
    explicit TextLines(std::istream &in) : in_(in) {}
    /* The next line into line; false at the end of the stream. */
    bool next(std::string &line);
    /* The bytes of the lines read so far, line ends included. */
    size_t bytes() const { return bytes_; }

private:
    std::istream &in_;
    size_t bytes_ = 0;
};

} // namespace corvane::inspect

#endif
