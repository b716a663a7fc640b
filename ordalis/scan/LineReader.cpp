/*
 * LineReader.cpp - fgets-shaped lines from 4 MiB blocks. A line is handed
 * out in place: the character after it is saved and covered with a NUL, and
 * put back before the next line is looked for.
 */
#include "LineReader.h"

#include <cerrno>
#include <cstring>

#include "StringUtil.h"

namespace corvane::cvnutildataio {

#define TW_BLOCK_SIZE (4 << 20)

/* The block; one byte more for the NUL behind a last line that fills it. */
static char Block[TW_BLOCK_SIZE + 1];

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

char *TW_ReadLine(TW_LineReader_s *Reader, size_t *Length)
{
    if (Reader->Covered != NULL) {
        *Reader->Covered = Reader->CoveredChar;
        Reader->Covered = NULL;
    }
    char *LineEnd;
    for (;;) {
        size_t Unread = Reader->End - Reader->Begin;
        size_t Window = Unread < TW_MAX_LINE_LENGTH ? Unread : TW_MAX_LINE_LENGTH;
        char *Feed = (char *)memchr(Block + Reader->Begin, '\n', Window);
        if (Feed != NULL) {
            LineEnd = Feed + 1;
            break;
        }
        if (Unread >= TW_MAX_LINE_LENGTH) { /* 64000 characters without a line feed */
            LineEnd = Block + Reader->Begin + TW_MAX_LINE_LENGTH;
            break;
        }
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
    Reader->Begin = (size_t)(LineEnd - Block);
    Reader->Covered = LineEnd;
    Reader->CoveredChar = *LineEnd;
    *LineEnd = '\0';
    return Line;
}

} // namespace corvane::cvnutildataio
