/*
 * BrowserLaunch.cpp - xdg-open through a shell that puts it in the
 * background and returns at once, so that nothing is left to wait for.
 */
#include "BrowserLaunch.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstdlib>

#include <fmt/format.h>

extern char **environ;

namespace corvane::server {

namespace {

bool hasDisplay()
{
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY"})
        if (const char *value = std::getenv(name); value != nullptr && *value != '\0')
            return true;
    return false;
}

/* Spawn attributes: the signals corvane blocks or handles are back to
   normal in the child. */
class SpawnAttributes {
public:
    SpawnAttributes()
    {
        posix_spawnattr_init(&attributes_);
        sigset_t none, normal;
        sigemptyset(&none);
        sigemptyset(&normal);
        for (int signal : {SIGINT, SIGTERM, SIGPIPE, SIGCHLD})
            sigaddset(&normal, signal);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &normal);
        short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
#ifdef POSIX_SPAWN_SETSID
        flags |= POSIX_SPAWN_SETSID;
#endif
        posix_spawnattr_setflags(&attributes_, flags);
    }
    ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
    SpawnAttributes(const SpawnAttributes &) = delete;
    SpawnAttributes &operator=(const SpawnAttributes &) = delete;
    const posix_spawnattr_t *get() const { return &attributes_; }

private:
    posix_spawnattr_t attributes_{};
};

constexpr int notFound = 127;

} // namespace

void openInBrowser(const std::string &url, std::FILE *err)
{
    if (!hasDisplay())
        return;
    const char *script = "command -v xdg-open >/dev/null 2>&1 || exit 127\n"
                         "xdg-open \"$1\" </dev/null >/dev/null 2>&1 &";
    const char *argv[] = {"sh", "-c", script, "sh", url.c_str(), nullptr};
    SpawnAttributes attributes;
    pid_t shell = 0;
    if (posix_spawnp(&shell, "sh", nullptr, attributes.get(), const_cast<char *const *>(argv),
                     environ) != 0) {
        fmt::print(err, "corvane: cannot start a shell to open the browser\n");
        return;
    }
    int status = 0;
    if (waitpid(shell, &status, 0) == shell && WIFEXITED(status) && WEXITSTATUS(status) == notFound)
        fmt::print(err, "corvane: xdg-open is not installed: open the address in a browser\n");
}

} // namespace corvane::server
