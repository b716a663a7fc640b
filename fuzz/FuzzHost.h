/*
 * FuzzHost.h - what every harness needs of the host: a user interface that
 * answers questions from the input's bytes and shows nothing, installed for
 * the whole run, and the text of an input as a NUL-terminated string.
 */
#ifndef ORDALIS_FUZZ_FUZZHOST_H
#define ORDALIS_FUZZ_FUZZHOST_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "ScriptedUi.h"
#include "UserInterface.h"

namespace fuzzhost {

/* The silent backend of every harness, answering No until told otherwise;
   its transcript and the answers an earlier input left unused are cleared
   for each input, so an input behaves the same whatever ran before it. */
inline corvane::host::ScriptedUi &ui()
{
    static auto backend = [] {
        auto made = std::make_shared<corvane::host::ScriptedUi>();
        corvane::host::setUserInterface(made);
        return made;
    }();
    backend->clearTranscript();
    backend->clearAnswers();
    return *backend;
}

/* The input's bytes as a string (NUL bytes kept; c_str() ends it). */
inline std::string text(const uint8_t *data, size_t size)
{
    return std::string(reinterpret_cast<const char *>(data), size);
}

/* Stops the harness on a broken property: libFuzzer records the input. */
[[noreturn]] inline void broken(const std::string &what)
{
    std::fprintf(stderr, "property broken: %s\n", what.c_str());
    std::abort();
}

} // namespace fuzzhost

#endif
