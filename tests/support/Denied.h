#pragma once

#include <csignal>
#include <grp.h>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

/// Runs `act` in a process of its own and returns whether it returned true.
template <class Act>
bool succeedsApart(const Act& act)
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(act() ? 0 : 1);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

/// The same, for whom files deny something: root's power over their rights is given up, and
/// anybody else has none to give up.
template <class Act>
bool succeedsWithoutRights(const Act& act)
{
    return succeedsApart([&act] {
        __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
        const __user_cap_data_struct none[2] = {};
        return syscall(SYS_capset, &header, none) == 0 && act();
    });
}

/// The same as a user who owns none of the files. Only root can become that.
template <class Act>
bool succeedsAsNobody(const Act& act)
{
    constexpr unsigned nobody = 65534;
    return succeedsApart([&act] {
        return setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0 && act();
    });
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
