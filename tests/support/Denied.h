#pragma once

#include <csignal>
#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// Runs `act` in a process of its own that has no rights but those of everybody, and returns
/// whether it returned true. Without root's rights from the start there is nothing to drop.
template <class Act>
bool succeedsWithoutRights(const Act& act)
{
    constexpr unsigned nobody = 65534;
    const pid_t child = fork();
    if (child == 0) {
        const bool isDropped = getuid() != 0 || (setgroups(0, nullptr) == 0 &&
                                                 setgid(nobody) == 0 && setuid(nobody) == 0);
        _exit(isDropped && act() ? 0 : 1);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

/// While it lives no file of this process grows beyond some bytes, as on a full disk.
class FullDisk
{
public:
    explicit FullDisk(const unsigned long& bytes)
        : handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit limit = before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
    void (*handler)(int);
};
