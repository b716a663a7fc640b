// Files for tests: whole-file reads and writes, the text a stream received,
// and a scratch folder that removes itself.
#ifndef ORDALIS_TESTS_TESTFILES_H
#define ORDALIS_TESTS_TESTFILES_H

#include <stdlib.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace testfiles {

namespace fs = std::filesystem;

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

/* Everything written to file so far (read from its start); closes it. */
inline std::string drain(std::FILE *file)
{
    std::fflush(file);
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;)
        text += static_cast<char>(c);
    std::fclose(file);
    return text;
}

/* A fresh folder under the temp folder, removed at scope exit. */
class ScratchDir {
public:
    ScratchDir()
    {
        std::string pattern = (fs::temp_directory_path() / "corvane_test_XXXXXX").string();
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

} // namespace testfiles

#endif
