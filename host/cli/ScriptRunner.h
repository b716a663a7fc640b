/*
 * ScriptRunner.h - the steps of a dialog script carried out as a user
 * would: every action on the top dialog, controls found by label, caption
 * or kind#N, and texts matched as users read them (GuiState.h).
 */
#ifndef CORVANE_CLI_SCRIPTRUNNER_H
#define CORVANE_CLI_SCRIPTRUNNER_H

#include <cstddef>
#include <string>

#include "Expected.h"
#include "Script.h"
#include "ScriptRunUi.h"

namespace corvane::cli {

class ScriptRunner {
public:
    /* loader: the loader a user picks from the load menu; the data sets
       from firstSet on are this run's loads. */
    ScriptRunner(ScriptRunUi &ui, std::string loader, std::size_t firstSet);

    /* Opens the loader as a user picking it from the load menu, with the
       instructions of its last load in this run (none at first). */
    host::Expected<void> open();
    /* Carries out one step; the error says what did not hold. */
    host::Expected<void> run(const script::Step &step);

private:
    host::Expected<void> step(const script::Press &press);
    host::Expected<void> step(const script::Toggle &toggle);
    host::Expected<void> step(const script::Choose &choose);
    host::Expected<void> step(const script::Set &set);
    host::Expected<void> step(const script::Select &select);
    host::Expected<void> step(const script::File &file);
    host::Expected<void> step(const script::Answer &answer);
    host::Expected<void> step(const script::CancelAt &cancelAt);
    host::Expected<void> step(const script::Open &open);
    host::Expected<void> step(const script::ExpectDialog &expect);
    host::Expected<void> step(const script::ExpectText &expect);
    host::Expected<void> step(const script::ExpectItems &expect);
    host::Expected<void> step(const script::ExpectSensitive &expect);
    host::Expected<void> step(const script::ExpectMessage &expect);
    host::Expected<void> step(const script::Dump &dump);

    ScriptRunUi &ui_;
    std::string loader_;
    std::size_t firstSet_;
};

} // namespace corvane::cli

#endif
