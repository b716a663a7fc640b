/*
 * TextLines.cpp - reading capped lines from a stream buffer.
 */
#include "TextLines.h"

namespace corvane::inspect {

bool TextLines::next(std::string &line)
{
    line.clear();
    std::streambuf *buffer = in_.rdbuf();
    bool any = false;
    bool cut = false; /* a NUL byte was met: the rest is not part of the line */
    for (;;) {
        int c = buffer->sbumpc();
        if (c == std::char_traits<char>::eof()) {
            if (!any)
                in_.setstate(std::ios::eofbit);
            break;
        }
        any = true;
        ++bytes_;
        if (c == '\n')
            break;
        if (c == '\0')
            cut = true;
        if (!cut && line.size() <= longestLine)
            line.push_back(static_cast<char>(c));
    }
    while (!line.empty() && line.back() == '\r')
        line.pop_back();
    return any;
}

} // namespace corvane::inspect
