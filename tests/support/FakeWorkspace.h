#pragma once

#include "platform/Workspace.h"

#include <QHash>
#include <QList>
#include <QSet>

namespace quorvel {

/// A desktop in memory, driven by hand.
class FakeWorkspace final : public Workspace {
public:
    void setFrontmost(const std::optional<RunningApplication>& application, quint64 element = 0) {
        m_frontmost = application;
        m_element = element;
        if (application)
            m_seen.insert(application->window, *application);
        if (m_announces)
            emit focusChanged();
    }
    void setAnnouncesChanges(bool announces) { m_announces = announces; }

    /// The window has gone.
    void end(quint64 window) { m_ended.insert(window); }

    const QList<FocusTarget>& activations() const { return m_activations; }

    std::optional<RunningApplication> frontmostApplication() const override { return m_frontmost; }
    quint64 focusedElement() const override { return m_element; }
    bool isRunning(const FocusTarget& target) const override {
        return !m_ended.contains(target.window);
    }
    void activate(const FocusTarget& target) override {
        m_activations.append(target);
        const bool inFront = m_frontmost && m_frontmost->window == target.window;
        if (isRunning(target) && m_seen.contains(target.window) &&
            !(inFront && m_element == target.element))
            setFrontmost(m_seen.value(target.window), target.element);
    }
    bool announcesChanges() const override { return m_announces; }

private:
    std::optional<RunningApplication> m_frontmost;
    quint64 m_element = 0;
    bool m_announces = true;
    QHash<quint64, RunningApplication> m_seen;
    QSet<quint64> m_ended;
    QList<FocusTarget> m_activations;
};

} // namespace quorvel
