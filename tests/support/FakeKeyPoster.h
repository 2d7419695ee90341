#pragma once

#include "foundation/MainQueue.h"
#include "platform/KeyPoster.h"

#include <QList>

namespace quorvel {

/// Records the pastes that were asked for and answers as it is told.
class FakeKeyPoster final : public KeyPoster {
public:
    void setTrusted(bool trusted) { m_trusted = trusted; }
    void setOutcome(PostOutcome outcome) { m_outcome = outcome; }
    const QList<std::optional<FocusTarget>>& posts() const { return m_posts; }

    /// Answers from the main loop, as the real ones do, instead of at once.
    void answerThrough(MainQueue& queue) { m_queue = &queue; }

    /// Waits, as for a user who still holds keys, until `answer` is called.
    void holdAnswers() { m_holds = true; }
    void answer() { std::exchange(m_held, {})(m_outcome); }

    bool isTrusted() const override { return m_trusted; }
    void postPaste(const std::optional<FocusTarget>& target, Done done) override {
        m_posts.append(target);
        const PostOutcome outcome = m_trusted ? m_outcome : PostOutcome::unavailable;
        if (m_holds) {
            m_held = std::move(done);
            return;
        }
        if (!m_queue)
            return done(outcome);
        m_queue->after(MainQueue::Milliseconds(0), &m_receiver, [done, outcome] { done(outcome); });
    }

private:
    bool m_trusted = true;
    PostOutcome m_outcome = PostOutcome::posted;
    QList<std::optional<FocusTarget>> m_posts;
    bool m_holds = false;
    Done m_held;
    MainQueue* m_queue = nullptr;
    QObject m_receiver;
};

} // namespace quorvel
