#pragma once

#include "foundation/BackgroundQueue.h"
#include "foundation/Clock.h"
#include "platform/desktop/DesktopIndex.h"

#include <QPair>

#include <memory>

namespace quorvel {

/// Which program a window class belongs to, from the installed desktop files. The files are read
/// on the background queue; only a look-up that comes before `preload` has ended reads them itself.
/// Main thread only.
class DesktopFiles {
public:
    DesktopFiles(DesktopSources sources, const Clock& clock, BackgroundQueue& background);
    ~DesktopFiles();

    /// Starts reading, so that the first look-up finds everything in memory.
    void preload();

    /// Absent when no desktop file fits. After programs were installed or removed, look-ups see
    /// that a few seconds later.
    std::optional<DesktopApplication> find(const QString& instance, const QString& name);

private:
    struct Shared;
    using Index = std::shared_ptr<const DesktopIndex>;

    void takeNewIndex();
    void refreshWhenDue();

    const DesktopSources m_sources;
    const Clock& m_clock;
    BackgroundQueue& m_background;
    const std::shared_ptr<Shared> m_shared; ///< Outlives us in jobs that still run.
    Index m_index;
    double m_nextCheck = 0;
    QHash<QPair<QString, QString>, std::optional<DesktopApplication>> m_answers;
};

} // namespace quorvel
