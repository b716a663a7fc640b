// Runs the built corvane executable as a child process in a chosen folder,
// capturing its exit status and both output streams; and a scratch folder
// that removes itself.
#ifndef CORVANE_TESTS_E2E_CORVANEPROCESS_H
#define CORVANE_TESTS_E2E_CORVANEPROCESS_H

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace e2e {

namespace fs = std::filesystem;

inline const fs::path binDir = ORDALIS_BIN_DIR;
inline const fs::path examplesDir = fs::path(ORDALIS_SOURCE_DIR) / "examples";
inline const fs::path realDataDir = ORDALIS_REALDATA_DIR;
inline const fs::path expectedDir = fs::path(ORDALIS_SOURCE_DIR) / "tests" / "e2e" / "expected";

inline std::string readFile(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline void writeFile(const fs::path &path, const std::string &text)
{
    std::ofstream(path, std::ios::binary) << text;
}

/* A fresh folder under the test temp folder, removed at scope exit. */
class ScratchDir {
public:
    ScratchDir()
    {
        std::string pattern = (fs::temp_directory_path() / "corvane_e2e_XXXXXX").string();
        path_ = ::mkdtemp(pattern.data()) ? fs::path(pattern) : fs::path();
    }
    ~ScratchDir()
    {
        std::error_code ec;
        fs::remove_all(path_, ec);
    }
    ScratchDir(const ScratchDir &) = delete;
    ScratchDir &operator=(const ScratchDir &) = delete;
    const fs::path &path() const { return path_; }
    fs::path operator/(const std::string &name) const { return path_ / name; }
    /* Names of the entries, sorted. */
    std::vector<std::string> entries() const
    {
        std::vector<std::string> names;
        for (const auto &entry : fs::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    fs::path path_;
};

struct Result {
    int status = -1;      /* exit status; 128 + signal when killed */
    bool crashed = false; /* ended by a signal */
    std::string out;
    std::string err;
};

/* Runs corvane with args in folder cwd, standard input from /dev/null. */
inline Result runCorvane(const std::vector<std::string> &args, const fs::path &cwd)
{
    ScratchDir capture;
    fs::path outPath = capture / "stdout", errPath = capture / "stderr";
    std::string binary = (binDir / "corvane").string();
    std::vector<char *> argv{binary.data()};
    std::vector<std::string> copies(args);
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
    if (WIFSIGNALED(status)) {
        result.crashed = true;
        result.status = 128 + WTERMSIG(status);
    } else {
        result.status = WEXITSTATUS(status);
    }
    result.out = readFile(outPath);
    result.err = readFile(errPath);
    return result;
}

} // namespace e2e

#endif
