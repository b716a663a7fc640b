// Runs the corvane command line and captures its exit status and both
// output streams: in this process through cli::run, or as the built
// executable in a chosen folder. For the tests that link the command line.
#ifndef ORDALIS_TESTS_CORVANERUN_H
#define ORDALIS_TESTS_CORVANERUN_H

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "Cli.h"
#include "TestFiles.h"

namespace testfiles {

inline const fs::path sourceDir = ORDALIS_SOURCE_DIR; /* the top of the repository */
inline const fs::path examplesDir = sourceDir / "examples";
inline const fs::path realDataDir = ORDALIS_REALDATA_DIR;
inline const fs::path expectedDir = fs::path(ORDALIS_SOURCE_DIR) / "tests" / "e2e" / "expected";

struct Result {
    int status = -1; /* exit status; 128 + signal when killed */
    std::string out;
    std::string err;
};

/* corvane::cli::run with args after the program name, no standard input. */
inline Result runInProcess(std::vector<std::string> args)
{
    args.insert(args.begin(), "corvane");
    std::FILE *out = std::tmpfile(), *err = std::tmpfile();
    int status = corvane::cli::run(args, {nullptr, out, err});
    return {status, drain(out), drain(err)};
}

/* The corvane executable with args in folder cwd, standard input from
   /dev/null. */
inline Result runCorvane(std::vector<std::string> args, const fs::path &cwd)
{
    std::string binary = (fs::path(ORDALIS_BIN_DIR) / "corvane").string();
    std::vector<char *> argv{binary.data()};
    for (auto &arg : args)
        argv.push_back(arg.data());
    argv.push_back(nullptr);
    std::FILE *out = std::tmpfile(), *err = std::tmpfile();
    pid_t pid = ::fork();
    if (pid == 0) {
        int in = ::open("/dev/null", O_RDONLY);
        if (in < 0 || ::chdir(cwd.c_str()) != 0)
            ::_exit(126);
        ::dup2(in, 0);
        ::dup2(::fileno(out), 1);
        ::dup2(::fileno(err), 2);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    bool ended = pid > 0 && ::waitpid(pid, &status, 0) == pid;
    int code = !ended ? -1 : WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return {code, drain(out), drain(err)};
}

} // namespace testfiles

#endif
