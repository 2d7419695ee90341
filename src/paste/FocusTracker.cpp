#include "paste/FocusTracker.h"

namespace quorvel {

FocusTracker::FocusTracker(Workspace& workspace, MainQueue& mainQueue, qint64 ownProcessIdentifier)
    : m_workspace(workspace)
    , m_mainQueue(mainQueue)
    , m_ownProcessIdentifier(ownProcessIdentifier) {}

void FocusTracker::start() {
    stop();
    if (m_workspace.announcesChanges())
        m_announcements =
            connect(&m_workspace, &Workspace::focusChanged, this, &FocusTracker::refresh);
    else
        m_focusTrackerTimer = m_mainQueue.every(pollInterval, this, [this] { refresh(); });
    refresh();
}

void FocusTracker::stop() {
    disconnect(m_announcements);
    m_focusTrackerTimer.cancel();
}

void FocusTracker::refresh() {
    const auto application = m_workspace.frontmostApplication();
    if (!application || application->kind == ApplicationKind::overlay)
        return;
    if (application->processIdentifier == m_ownProcessIdentifier)
        return;
    m_target = FocusTarget{application->processIdentifier, application->window,
                           m_workspace.focusedElement()};
}

} // namespace quorvel
