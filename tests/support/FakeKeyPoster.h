#pragma once

#include "platform/KeyPoster.h"

#include <QList>

namespace quorvel {

/// Records the pastes that were asked for and answers as it is told.
class FakeKeyPoster final : public KeyPoster {
public:
    void setTrusted(bool trusted) { m_trusted = trusted; }
    void setOutcome(PostOutcome outcome) { m_outcome = outcome; }
    const QList<std::optional<FocusTarget>>& posts() const { return m_posts; }

    bool isTrusted() const override { return m_trusted; }
    void postPaste(const std::optional<FocusTarget>& target, Done done) override {
        m_posts.append(target);
        done(m_trusted ? m_outcome : PostOutcome::unavailable);
    }

private:
    bool m_trusted = true;
    PostOutcome m_outcome = PostOutcome::posted;
    QList<std::optional<FocusTarget>> m_posts;
};

} // namespace quorvel
