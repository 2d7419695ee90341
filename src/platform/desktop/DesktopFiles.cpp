#include "platform/desktop/DesktopFiles.h"

#include <atomic>
#include <mutex>

namespace quorvel {

namespace {

constexpr double secondsBetweenChecks = 5;

} // namespace

/// What the background jobs hand over.
struct DesktopFiles::Shared {
    std::mutex mutex;
    Index fresh;
    std::atomic_bool busy = false;
};

DesktopFiles::DesktopFiles(DesktopSources sources, const Clock& clock, BackgroundQueue& background)
    : m_sources(std::move(sources))
    , m_clock(clock)
    , m_background(background)
    , m_shared(std::make_shared<Shared>()) {}

DesktopFiles::~DesktopFiles() = default;

void DesktopFiles::preload() {
    // Not under the mutex: a queue may run the job at once.
    if (m_shared->busy.exchange(true))
        return;
    m_background.post([shared = m_shared, sources = m_sources, old = m_index] {
        const bool needed = !old || old->isOutdated();
        Index index = needed ? std::make_shared<const DesktopIndex>(sources) : nullptr;
        const std::lock_guard handOver(shared->mutex);
        shared->fresh = std::move(index);
        shared->busy = false;
    });
}

void DesktopFiles::takeNewIndex() {
    const std::lock_guard lock(m_shared->mutex);
    if (!m_shared->fresh)
        return;
    m_index = std::move(m_shared->fresh);
    m_shared->fresh = nullptr;
    m_answers.clear();
}

void DesktopFiles::refreshWhenDue() {
    if (m_clock.uptime() < m_nextCheck)
        return;
    m_nextCheck = m_clock.uptime() + secondsBetweenChecks;
    preload();
}

std::optional<DesktopApplication> DesktopFiles::find(const QString& instance, const QString& name) {
    takeNewIndex();
    if (!m_index) {
        m_index = std::make_shared<const DesktopIndex>(m_sources);
        m_nextCheck = m_clock.uptime() + secondsBetweenChecks;
    }
    refreshWhenDue();
    const QPair<QString, QString> key(instance, name);
    const auto known = m_answers.constFind(key);
    if (known != m_answers.cend())
        return *known;
    return *m_answers.insert(key, m_index->find(instance, name));
}

} // namespace quorvel
