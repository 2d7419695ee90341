#include "foundation/BackgroundQueue.h"

namespace quorvel {

ThreadBackgroundQueue::~ThreadBackgroundQueue() {
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void ThreadBackgroundQueue::post(Job job) {
    const std::lock_guard lock(m_mutex);
    m_jobs.push_back(std::move(job));
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    m_wake.notify_one();
}

void ThreadBackgroundQueue::drain() {
    std::unique_lock lock(m_mutex);
    m_idle.wait(lock, [this] { return m_jobs.empty() && !m_busy; });
}

void ThreadBackgroundQueue::run() {
    std::unique_lock lock(m_mutex);
    while (true) {
        m_wake.wait(lock, [this] { return m_stopping || !m_jobs.empty(); });
        if (m_jobs.empty())
            return;
        Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_busy = true;
        lock.unlock();
        job();
        job = nullptr;
        lock.lock();
        m_busy = false;
        if (m_jobs.empty())
            m_idle.notify_all();
    }
}

} // namespace quorvel
