#pragma once

#include "foundation/MainQueue.h"
#include "platform/Workspace.h"

#include <QObject>

#include <optional>

namespace quorvel {

/// Remembers the program, and the element in it, that had the focus last and is not ours: the
/// place into which is pasted.
class FocusTracker final : public QObject {
    Q_OBJECT

public:
    FocusTracker(Workspace& workspace, MainQueue& mainQueue, qint64 ownProcessIdentifier);

    void start();
    void stop();

    /// Looks once. Panels, docks and our own windows change nothing.
    void refresh();

    const std::optional<FocusTarget>& target() const { return m_target; }

    static constexpr std::chrono::milliseconds pollInterval{350};

private:
    Workspace& m_workspace;
    MainQueue& m_mainQueue;
    const qint64 m_ownProcessIdentifier;
    std::optional<FocusTarget> m_target;
    WorkItem m_focusTrackerTimer;
    QMetaObject::Connection m_announcements;
};

} // namespace quorvel
