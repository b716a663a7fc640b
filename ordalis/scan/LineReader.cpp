/*
 * LineReader.cpp - fgets-shaped lines from blocks of the file. A line is
 * handed out in place: the character after it is saved and covered with a
 * NUL, and put back before the next line is looked for.
 *
 * The line feed that ends a line and a NUL byte inside it (which ends it as
 * a C string) are found in one pass, sixteen characters at a time where the
 * processor has the instructions for it.
 */
#include "LineReader.h"

#include <cerrno>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "StringUtil.h"

namespace corvane::cvnutildataio {

#define TW_BLOCK_SIZE (4 << 20)
/* Characters the search may read past the end of what it looks at. */
#define TW_BLOCK_SLACK 16

/* The block; one byte more for the NUL behind a last line that fills it,
   and the search's slack behind that. */
static char Block[TW_BLOCK_SIZE + 1 + TW_BLOCK_SLACK];

void TW_LineReaderStart(TW_LineReader_s *Reader, FILE *File)
{
    Reader->File = File;
    Reader->Begin = 0;
    Reader->End = 0;
    Reader->AtEof = false;
    Reader->Error = 0;
    Reader->Covered = NULL;
    Reader->CoveredChar = '\0';
    setvbuf(File, NULL, _IONBF, 0); /* blocks are read straight into Block */
}

/* Moves the unread characters to the front and fills the rest of the block.
   False when nothing more could be read. */
static bool Refill(TW_LineReader_s *Reader)
{
    size_t Unread = Reader->End - Reader->Begin;
    memmove(Block, Block + Reader->Begin, Unread);
    Reader->Begin = 0;
    Reader->End = Unread;
    errno = 0;
    size_t Read = fread(Block + Unread, 1, TW_BLOCK_SIZE - Unread, Reader->File);
    Reader->End += Read;
    if (Read == 0) {
        Reader->AtEof = true;
        if (ferror(Reader->File))
            Reader->Error = errno != 0 ? errno : EIO;
    }
    return Read > 0;
}

int TW_LineReaderError(const TW_LineReader_s *Reader)
{
    return Reader->Error;
}

/* Offset of the first line feed or NUL among the Count characters at P of
   the block, or Count when there is none. */
static size_t FindFeedOrNul(const char *P, size_t Count)
{
#if defined(__SSE2__)
    /* Whole sixteen-character steps: the last may reach into the slack. */
    const __m128i Feed = _mm_set1_epi8('\n');
    const __m128i Nul = _mm_setzero_si128();
    for (size_t At = 0; At < Count; At += 16) {
        __m128i Chars = _mm_loadu_si128((const __m128i *)(P + At));
        unsigned Hits = (unsigned)_mm_movemask_epi8(
            _mm_or_si128(_mm_cmpeq_epi8(Chars, Feed), _mm_cmpeq_epi8(Chars, Nul)));
        if (Hits != 0) {
            size_t Found = At + (size_t)__builtin_ctz(Hits);
            return Found < Count ? Found : Count;
        }
    }
    return Count;
#else
    size_t At = 0;
    while (At < Count && P[At] != '\n' && P[At] != '\0')
        At++;
    return At;
#endif
}

char *TW_ReadLine(TW_LineReader_s *Reader, size_t *Length, size_t *TextLength)
{
    if (Reader->Covered != NULL) {
        *Reader->Covered = Reader->CoveredChar;
        Reader->Covered = NULL;
    }
    /* Searched is how far from Begin the characters hold neither a line
       feed nor a NUL; Nul is where the first NUL stands, once one is seen. */
    size_t Searched = 0;
    size_t Nul = (size_t)-1;
    char *LineEnd;
    for (;;) {
        size_t Unread = Reader->End - Reader->Begin;
        size_t Window = Unread < TW_MAX_LINE_LENGTH ? Unread : TW_MAX_LINE_LENGTH;
        char *Start = Block + Reader->Begin;
        char *Feed = NULL;
        while (Searched < Window) {
            if (Nul != (size_t)-1) { /* only the line feed matters now */
                Feed = (char *)memchr(Start + Searched, '\n', Window - Searched);
                Searched = Window;
                break;
            }
            Searched += FindFeedOrNul(Start + Searched, Window - Searched);
            if (Searched == Window)
                break;
            if (Start[Searched] == '\n') {
                Feed = Start + Searched;
                break;
            }
            Nul = Searched++;
        }
        if (Feed != NULL) {
            LineEnd = Feed + 1;
            break;
        }
        if (Unread >= TW_MAX_LINE_LENGTH) { /* 64000 characters without a line feed */
            LineEnd = Start + TW_MAX_LINE_LENGTH;
            break;
        }
        /* Refill moves the unread characters to the front: offsets from
           Begin stay what they were. */
        if (Reader->AtEof || !Refill(Reader)) {
            /* After a failed read the characters before it are not a line. */
            if (Reader->Error != 0 || Reader->End == Reader->Begin)
                return NULL;
            LineEnd = Block + Reader->End; /* a last line without a line feed */
            break;
        }
    }
    char *Line = Block + Reader->Begin;
    *Length = (size_t)(LineEnd - Line);
    *TextLength = Nul < *Length ? Nul : *Length;
    Reader->Begin = (size_t)(LineEnd - Block);
    Reader->Covered = LineEnd;
    Reader->CoveredChar = *LineEnd;
    *LineEnd = '\0';
    return Line;
}

} // namespace corvane::cvnutildataio
