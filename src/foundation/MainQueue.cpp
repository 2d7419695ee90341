#include "foundation/MainQueue.h"

#include <QTimer>

#include <optional>

namespace quorvel {

struct WorkItem::State {
    QPointer<QObject> receiver;
    MainQueue::Work work;
    std::optional<MainQueue::Milliseconds> interval;
    bool pending = true;
};

WorkItem::WorkItem(std::shared_ptr<State> state)
    : m_state(std::move(state)) {}

void WorkItem::cancel() {
    if (m_state)
        m_state->pending = false;
}

bool WorkItem::isPending() const {
    return m_state && m_state->pending;
}

WorkItem MainQueue::after(Milliseconds delay, QObject* receiver, Work work) {
    auto state = std::make_shared<WorkItem::State>();
    state->receiver = receiver;
    state->work = std::move(work);
    arm(delay, state);
    return WorkItem(state);
}

WorkItem MainQueue::every(Milliseconds interval, QObject* receiver, Work work) {
    auto state = std::make_shared<WorkItem::State>();
    state->receiver = receiver;
    state->work = std::move(work);
    state->interval = interval;
    arm(interval, state);
    return WorkItem(state);
}

void MainQueue::arm(Milliseconds delay, const std::shared_ptr<WorkItem::State>& state) {
    schedule(delay, [this, state] {
        if (!state->pending || !state->receiver)
            return;
        state->pending = state->interval.has_value();
        state->work();
        if (state->pending)
            arm(*state->interval, state);
    });
}

QtMainQueue::QtMainQueue()
    : m_context(std::make_unique<QObject>()) {}

QtMainQueue::~QtMainQueue() = default;

void QtMainQueue::schedule(Milliseconds delay, Fire fire) {
    QTimer::singleShot(delay, Qt::PreciseTimer, m_context.get(), std::move(fire));
}

} // namespace quorvel
