// Files for tests: whole-file reads and writes, the text a stream received,
// and a scratch folder that removes itself.
#ifndef ORDALIS_TESTS_TESTFILES_H
#define ORDALIS_TESTS_TESTFILES_H

#include <stdlib.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace testfiles {

namespace fs = std::filesystem;

inline std::string readFile(const fs::path &path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeFile(const fs::path &path, const std::string &text)
{
    std::ofstream(path, std::ios::binary) << text;
}

/* Everything written to file, which ends where the writing stopped; closes it. */
inline std::string drain(std::FILE *file)
{
    std::fflush(file);
    std::string text(static_cast<size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    text.resize(std::fread(text.data(), 1, text.size(), file));
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
