/*
 * Script.h - the language of scripted dialog runs (corvane ui --script):
 * one step a line, a word and its arguments separated by blanks. An
 * argument with blanks is written in double quotes, with the escapes \",
 * \\, \n, \r and \t; blank lines and lines starting with # are skipped.
 *
 *   press LABEL                 toggle LABEL on|off        choose ITEM
 *   set CAPTION TEXT            select CAPTION ITEM...     (ITEM: text or #N)
 *   file PATH | file cancel     answer yes|no              cancel-at PERCENT
 *   open                        dump PATH
 *   expect dialog TITLE | expect no dialog
 *   expect CAPTION TEXT | expect CAPTION contains TEXT
 *   expect items CAPTION ITEM... | expect selected CAPTION ITEM...
 *   expect sensitive NAME | expect insensitive NAME | expect message TEXT
 *
 * The words after "expect", "contains" and "cancel" after "file" are
 * keywords only when they are not quoted: expect "message" 3 checks a field
 * captioned message.
 */
#ifndef CORVANE_CLI_SCRIPT_H
#define CORVANE_CLI_SCRIPT_H

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "CvnAPI.h"
#include "Expected.h"

namespace corvane::cli::script {

struct Press {
    std::string label;
};
struct Toggle {
    std::string label;
    bool on = false;
};
struct Choose {
    std::string item;
};
struct Set {
    std::string caption;
    std::string text;
};
/* An item of a list: by its text, or by its 1-based position (#N). */
struct ItemRef {
    std::string text;
    LgIndex_t position = 0; /* 0: by text */
    bool operator==(const ItemRef &) const = default;
};
struct Select {
    std::string caption;
    std::vector<ItemRef> items;
};
struct File {
    std::optional<std::string> path; /* nothing: the chooser is cancelled */
};
struct Answer {
    bool yes = false;
};
struct CancelAt {
    int percent = 0;
};
struct Open {};
struct ExpectDialog {
    std::optional<std::string> title; /* nothing: no dialog is up */
};
struct ExpectText {
    std::string caption;
    std::string text;
    bool contains = false; /* else equal */
};
struct ExpectItems {
    std::string caption;
    std::vector<ItemRef> items;
    bool selected = false; /* the selected items, else all of them */
};
struct ExpectSensitive {
    std::string name;
    bool sensitive = true;
};
struct ExpectMessage {
    std::string text;
};
struct Dump {
    std::string path;
};

using Step = std::variant<Press, Toggle, Choose, Set, Select, File, Answer, CancelAt, Open,
                          ExpectDialog, ExpectText, ExpectItems, ExpectSensitive, ExpectMessage,
                          Dump>;

struct Line {
    int number = 0; /* 1-based, in the script file */
    Step step;
};

/* The steps of a script; the error is "NAME:LINE: what is wrong", NAME
   being how the script is named in messages. */
host::Expected<std::vector<Line>> parse(std::string_view text, std::string_view name);

/* The text in double quotes as a script writes it, with the escapes above. */
std::string quote(std::string_view text);

} // namespace corvane::cli::script

#endif
