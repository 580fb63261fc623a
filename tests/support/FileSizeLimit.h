#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tarvex {

/// Lets no file of this process grow above so many bytes while it lives, as a full disk would.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{bytes, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, SIG_DFL);
    }

private:
    rlimit old_{};
};

}
