/*
 * load_fuzz.cpp - a whole load through the host as corvane load runs it: the
 * input holds the answers to the loader's questions (first byte, one bit a
 * question, then No), the instruction set and the data file, the two
 * separated by the first NUL byte. The data file is written to a scratch
 * file; the host replays the load from the two loader-instruction strings.
 * Whatever the input, the load must end (no hang, no crash, no leak), leave
 * the host lock free, and keep a data set only when it succeeded.
 */
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "AddOns.h"
#include "DataModel.h"
#include "FuzzHost.h"
#include "Lock.h"

extern "C" void InitCvnAddOn113(void);

namespace {

/* The scratch data file of this process. */
const std::string &dataPath()
{
    static const std::string path = "/tmp/ordalis_load_fuzz_" + std::to_string(::getpid()) + ".txt";
    return path;
}

/* Starts the add-on once, as the host does when it loads it. Each block the
   add-on allocates is held to 16 MiB (2 million values): a larger fill the
   input asks for is refused as out of memory, so that no input's load
   takes more than a fraction of a second under the sanitizers. Zones of
   millions of values, filled and copied value by value, had taken most of
   the harness's time for no more coverage. */
void startAddOn()
{
    static bool started = [] {
        ::setenv("ORDALIS_ALLOCATION_LIMIT_MB", "16", 0);
        InitCvnAddOn113();
        return true;
    }();
    (void)started;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    corvane::host::ScriptedUi &ui = fuzzhost::ui();
    startAddOn();
    for (int bit = 0; bit < 8; bit++)
        ui.queueAnswer((data[0] >> bit) & 1);
    std::string rest = fuzzhost::text(data + 1, size - 1);
    size_t split = rest.find('\0');
    std::string instructions = rest.substr(0, split);
    std::string file = split == std::string::npos ? std::string() : rest.substr(split + 1);
    if (std::FILE *out = std::fopen(dataPath().c_str(), "wb")) {
        std::fwrite(file.data(), 1, file.size(), out);
        std::fclose(out);
    }

    size_t before = corvane::host::dataSets().size();
    auto loaded = corvane::host::replayLoad("Ordalis Loader", {dataPath(), instructions});
    if (corvane::host::lockDepth() != 0)
        fuzzhost::broken("the load left the host lock taken");
    if (loaded && !*loaded && corvane::host::dataSets().size() > before &&
        !corvane::host::dataSets().back().zones.empty() &&
        corvane::host::dataSets().back().loaderInstructions)
        fuzzhost::broken("a failed load kept a data set with its instructions");
    corvane::host::clearDataSets();
    return 0;
}
