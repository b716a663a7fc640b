/*
 * main.cpp - the corvane executable: the command line of the reference host.
 */
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "Cli.h"

int main(int argc, char **argv)
{
    std::vector<std::string> args(argv, argv + argc);
    try {
        return corvane::cli::run(args);
    } catch (const std::exception &e) {
        std::fprintf(stderr, "corvane: %s\n", e.what());
        return 1;
    }
}
