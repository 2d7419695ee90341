#pragma once

#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>
#include <memory>

namespace quorvel {

/// Handle of one piece of delayed work. Copies refer to the same work; letting go of a handle
/// does not cancel it.
class WorkItem {
public:
    WorkItem() = default;

    /// The work will not run (again). Harmless when it has run or was never scheduled.
    void cancel();
    bool isPending() const;

private:
    friend class MainQueue;
    struct State;
    explicit WorkItem(std::shared_ptr<State> state);

    std::shared_ptr<State> m_state;
};

/// Delayed work on the main thread. Work whose receiver is gone is dropped.
class MainQueue {
public:
    using Work = std::function<void()>;
    using Milliseconds = std::chrono::milliseconds;

    virtual ~MainQueue() = default;

    /// Runs `work` once, `delay` from now. A delay of zero means the next turn of the main loop.
    WorkItem after(Milliseconds delay, QObject* receiver, Work work);

    /// Runs `work` again and again until it is cancelled or the receiver is gone.
    WorkItem every(Milliseconds interval, QObject* receiver, Work work);

protected:
    using Fire = std::function<void()>;

    /// Calls `fire` once on the main thread, `delay` from now.
    virtual void schedule(Milliseconds delay, Fire fire) = 0;

private:
    void arm(Milliseconds delay, const std::shared_ptr<WorkItem::State>& state);
};

/// The real one, on Qt's event loop.
class QtMainQueue final : public MainQueue {
public:
    QtMainQueue();
    ~QtMainQueue() override;

protected:
    void schedule(Milliseconds delay, Fire fire) override;

private:
    std::unique_ptr<QObject> m_context;
};

} // namespace quorvel
