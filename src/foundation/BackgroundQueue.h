#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace quorvel {

/// Work that may wait for a disk, done one piece after the other, off the main thread.
class BackgroundQueue {
public:
    using Job = std::function<void()>;

    virtual ~BackgroundQueue() = default;

    /// Queues a job; jobs run in the order in which they were posted. Callable from any thread.
    virtual void post(Job job) = 0;

    /// Returns when every job posted so far has run.
    virtual void drain() = 0;
};

/// One thread, started at the first job and asleep while there is none. The destructor finishes
/// what was posted.
class ThreadBackgroundQueue final : public BackgroundQueue {
public:
    ~ThreadBackgroundQueue() override;

    void post(Job job) override;
    void drain() override;

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::condition_variable m_idle;
    std::deque<Job> m_jobs;
    bool m_busy = false;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace quorvel
