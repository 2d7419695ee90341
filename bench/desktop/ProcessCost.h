#pragma once

#include <sys/types.h>

namespace quorvel::bench {

/// What a process has used so far, over all its threads; from the kernel's own counters.
struct ProcessCost {
    double cpuMilliseconds = 0;
    long wakeUps = 0;        ///< Voluntary switches: each is one wake-up from sleep.
    double pssMegabytes = 0; ///< Memory with shared pages counted by their share.
};

ProcessCost costOf(pid_t process);

} // namespace quorvel::bench
