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

inline const fs::path binDir = ORDALIS_BIN_DIR;
inline const fs::path examplesDir = fs::path(ORDALIS_SOURCE_DIR) / "examples";
inline const fs::path realDataDir = ORDALIS_REALDATA_DIR;
inline const fs::path expectedDir = fs::path(ORDALIS_SOURCE_DIR) / "tests" / "e2e" / "expected";

struct Result {
    int status = -1;      /* exit status; 128 + signal when killed */
    bool crashed = false; /* ended by a signal */
    std::string out;
    std::string err;
};

/* corvane::cli::run with args after the program name, no standard input. */
inline Result runInProcess(std::vector<std::string> args)
{
    args.insert(args.begin(), "corvane");
    std::FILE *out = std::tmpfile();
    std::FILE *err = std::tmpfile();
    Result result;
    result.status = corvane::cli::run(args, {nullptr, out, err});
    result.out = drain(out);
    result.err = drain(err);
    return result;
}

/* The corvane executable with args in folder cwd, standard input from
   /dev/null. */
inline Result runCorvane(const std::vector<std::string> &args, const fs::path &cwd)
{
    ScratchDir capture;
    fs::path outPath = capture / "stdout", errPath = capture / "stderr";
    std::string binary = (binDir / "corvane").string();
    std::vector<std::string> copies(args);
    std::vector<char *> argv{binary.data()};
    for (auto &arg : copies)
        argv.push_back(arg.data());
    argv.push_back(nullptr);

    pid_t pid = ::fork();
    if (pid == 0) {
        int in = ::open("/dev/null", O_RDONLY);
        int out = ::open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        int err = ::open(errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (in < 0 || out < 0 || err < 0 || ::chdir(cwd.c_str()) != 0)
            ::_exit(126);
        ::dup2(in, 0);
        ::dup2(out, 1);
        ::dup2(err, 2);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    Result result;
    int status = 0;
    if (pid < 0 || ::waitpid(pid, &status, 0) != pid)
        return result;
    result.crashed = WIFSIGNALED(status);
    result.status = result.crashed ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    result.out = readFile(outPath);
    result.err = readFile(errPath);
    return result;
}

} // namespace testfiles

#endif
