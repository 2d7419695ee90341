#include "menu/SubmenuFiller.h"

namespace quorvel {

namespace {

qsizetype chunkCount(qsizetype items, qsizetype perChunk) {
    return std::max<qsizetype>(1, (items + perChunk - 1) / perChunk);
}

QStringList emptySubmenus(const QList<MenuItem>& tree, qsizetype most) {
    QStringList identifiers;
    for (const MenuItem& item : tree)
        if (item.isLazy() && item.submenu.isEmpty() && identifiers.size() < most)
            identifiers.append(item.identifier);
    return identifiers;
}

} // namespace

SubmenuFiller::SubmenuFiller(MainQueue& mainQueue, const MenuTimings& timings, Build build)
    : m_mainQueue(mainQueue)
    , m_timings(timings)
    , m_build(std::move(build)) {}

void SubmenuFiller::fill(const QString& identifier) {
    fillChunks(identifier, 1);
}

void SubmenuFiller::scheduleWarmUp(const QList<MenuItem>& tree) {
    m_pendingWarmupWorkItem.cancel();
    m_pendingWarmupWorkItem = m_mainQueue.after(
        warmUpDelay, this,
        [this, generation = m_warmupGeneration, identifiers = emptySubmenus(tree, warmUpItems)] {
            if (generation == m_warmupGeneration)
                warmUp(identifiers, 0);
        });
}

void SubmenuFiller::forget() {
    m_lazyAdvancedMenuItemCache.clear();
    for (WorkItem& pending : m_pendingSubmenuHydration)
        pending.cancel();
    m_pendingSubmenuHydration.clear();
}

void SubmenuFiller::beginGeneration() {
    ++m_warmupGeneration;
    m_pendingWarmupWorkItem.cancel();
    forget();
}

const QList<MenuItem>& SubmenuFiller::items(const QString& identifier) {
    auto known = m_lazyAdvancedMenuItemCache.constFind(identifier);
    if (known == m_lazyAdvancedMenuItemCache.constEnd())
        known = m_lazyAdvancedMenuItemCache.insert(identifier, m_build(identifier));
    return *known;
}

/// Each chunk adds to what stands there already; the rest follows a turn later.
void SubmenuFiller::fillChunks(const QString& identifier, qsizetype chunk) {
    const QList<MenuItem> all = items(identifier);
    const qsizetype chunks = chunkCount(all.size(), fillChunk);
    m_timings.hydrated(identifier, chunk, chunks);
    m_pendingSubmenuHydration.take(identifier).cancel();
    if (chunk < chunks)
        m_pendingSubmenuHydration.insert(identifier,
                                         m_mainQueue.after({}, this, [this, identifier, chunk] {
                                             fillChunks(identifier, chunk + 1);
                                         }));
    emit filled(identifier, chunk < chunks ? all.first(chunk * fillChunk) : all);
}

/// One chunk a turn, so that the menu stays smooth.
void SubmenuFiller::warmUp(const QStringList& identifiers, qsizetype chunk) {
    const QStringList now = identifiers.mid(chunk * warmUpChunk, warmUpChunk);
    const qsizetype chunks = chunkCount(identifiers.size(), warmUpChunk);
    for (const QString& identifier : now) {
        items(identifier);
        m_timings.hydrated(identifier, chunk + 1, chunks);
    }
    if (chunk + 1 < chunks)
        m_pendingWarmupWorkItem = m_mainQueue.after(
            {}, this, [this, identifiers, chunk] { warmUp(identifiers, chunk + 1); });
}

} // namespace quorvel
