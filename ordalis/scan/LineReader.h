/*
 * LineReader.h - reads a text file line by line as fgets with a buffer of
 * 64001 characters would, but from large blocks: each line stays where it
 * was read, NUL-terminated, and nothing is copied per line.
 */
#ifndef TW_LINEREADER_H
#define TW_LINEREADER_H

#include <cstddef>
#include <cstdio>

namespace corvane::cvnutildataio {

typedef struct {
    FILE *File;
    size_t Begin;      /* first unread character of the block */
    size_t End;        /* end of the characters read into the block */
    bool AtEof;        /* the file has no more characters, or cannot be read further */
    int Error;         /* errno of a failed read; 0 when the file ended normally */
    char *Covered;     /* where the last line's NUL stands */
    char CoveredChar;  /* the character that NUL covers */
} TW_LineReader_s;

/* Starts reading File (opened for reading; the reader does its own
   buffering). One reader at a time: the block is static. */
void TW_LineReaderStart(TW_LineReader_s *Reader, FILE *File);
/* The next line: up to and including its line feed, at most 64000
   characters (a longer line comes in pieces, as from fgets), NUL-terminated
   and writable up to its NUL; valid until the next call. *Length is the
   number of characters read, NUL bytes included; *TextLength is the line's
   length as a C string (a NUL inside the line ends it there, not as read).
   NULL at the end of the file or on a read error. */
char *TW_ReadLine(TW_LineReader_s *Reader, size_t *Length, size_t *TextLength);
/* After TW_ReadLine gave NULL: the errno of the read that failed, or 0 when
   the file simply ended. */
int TW_LineReaderError(const TW_LineReader_s *Reader);

} // namespace corvane::cvnutildataio

#endif
