/*
 * Handles.h - what the host's opaque handles hold. Host code reads and
 * builds them directly; add-ons see only the C declarations.
 */
#ifndef CORVANE_HOST_HANDLES_H
#define CORVANE_HOST_HANDLES_H

#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "CvnAPI.h"

struct StringList_s {
    std::vector<std::string> items;
};

struct Set_s {
    std::set<LgIndex_t> members;
};

struct ArgList_s {
    using Value = std::variant<std::string, LgIndex_t, const void *, std::vector<std::string>>;
    struct Arg {
        std::string name;
        Value value;
    };
    std::vector<Arg> args;

    /* The first argument named name (case ignored), or nullptr. */
    const Arg *find(std::string_view name) const;
};

#endif
