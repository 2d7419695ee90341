#pragma once

#include "foundation/BackgroundQueue.h"
#include "foundation/Clock.h"
#include "foundation/MainQueue.h"

#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace quorvel::testing {

/// Time that stands still until a test moves it.
class ManualClock final : public Clock {
public:
    Date now() const override { return m_now; }
    double uptime() const override { return m_uptime; }

    void advance(std::chrono::duration<double> span) {
        m_now = m_now + span;
        m_uptime += span.count();
    }
    void setNow(Date now) { m_now = now; }

private:
    Date m_now = Date{800000000};
    double m_uptime = 1000;
};

/// Delayed work that runs when a test lets its time pass, in the order of its due times.
class ManualMainQueue final : public MainQueue {
public:
    explicit ManualMainQueue(ManualClock& clock)
        : m_clock(clock) {}

    /// Lets the time pass and runs what falls due, with the clock at the due time of each.
    void advance(Milliseconds span) {
        const Milliseconds end = m_now + span;
        while (true) {
            const auto next = std::min_element(m_work.begin(), m_work.end(), earlier);
            if (next == m_work.end() || next->due > end)
                break;
            moveTo(std::max(m_now, next->due));
            const Fire fire = std::move(next->fire);
            m_work.erase(next);
            fire();
        }
        moveTo(end);
    }

    /// Runs what is due now, and what other threads have posted to the main loop.
    void settle() {
        QCoreApplication::processEvents();
        advance(Milliseconds(0));
    }

protected:
    void schedule(Milliseconds delay, Fire fire) override {
        m_work.push_back({m_now + delay, m_order++, std::move(fire)});
    }

private:
    struct Scheduled {
        Milliseconds due;
        int order;
        Fire fire;
    };

    static bool earlier(const Scheduled& a, const Scheduled& b) {
        return std::tie(a.due, a.order) < std::tie(b.due, b.order);
    }

    void moveTo(Milliseconds time) {
        m_clock.advance(time - m_now);
        m_now = time;
    }

    ManualClock& m_clock;
    Milliseconds m_now{0};
    int m_order = 0;
    std::vector<Scheduled> m_work;
};

/// Disk work that runs at once, or, while held, when the test lets go.
class ManualDisk final : public BackgroundQueue {
public:
    void post(Job job) override {
        m_jobs.push_back(std::move(job));
        if (!m_held)
            drain();
    }
    void drain() override {
        for (std::deque<Job> jobs; !m_jobs.empty();) {
            jobs.swap(m_jobs);
            for (Job& job : jobs)
                job();
            jobs.clear();
        }
    }

    void hold() { m_held = true; }
    void runOne() {
        const Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        job();
    }
    std::size_t waiting() const { return m_jobs.size(); }

    /// What a crash does: nothing of this reaches the disk.
    void forget() { m_jobs.clear(); }

private:
    bool m_held = false;
    std::deque<Job> m_jobs;
};

} // namespace quorvel::testing
