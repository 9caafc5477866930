#pragma once

#include <csignal>
#include <QtGlobal>
#include <sys/resource.h>

/// Makes writing beyond `bytes` fail as on a full disk, for as long as it lives.
class SmallFiles
{
public:
    explicit SmallFiles(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallFiles()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY(SmallFiles)

private:
    rlimit m_before{};
    void (*m_handler)(int);
};
