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
    const bool wasShown = m_shown.contains(identifier);
    m_shown.insert(identifier);
    const QList<MenuItem> all = items(identifier);
    if (all.size() > firstChunk && !wasShown)
        fillFirst(identifier, all);
    else
        fillWhole(identifier, 1, 1);
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
    m_shown.clear();
    forget();
}

const QList<MenuItem>& SubmenuFiller::items(const QString& identifier) {
    auto known = m_lazyAdvancedMenuItemCache.constFind(identifier);
    if (known == m_lazyAdvancedMenuItemCache.constEnd())
        known = m_lazyAdvancedMenuItemCache.insert(identifier, m_build(identifier));
    return *known;
}

void SubmenuFiller::fillFirst(const QString& identifier, const QList<MenuItem>& items) {
    m_timings.hydrated(identifier, 1, 2);
    m_pendingSubmenuHydration.insert(identifier, m_mainQueue.after({}, this, [this, identifier] {
        fillWhole(identifier, 2, 2);
    }));
    emit filled(identifier, items.first(firstChunk));
}

void SubmenuFiller::fillWhole(const QString& identifier, qsizetype chunk, qsizetype chunks) {
    m_timings.hydrated(identifier, chunk, chunks);
    m_pendingSubmenuHydration.take(identifier).cancel();
    emit filled(identifier, QList<MenuItem>(items(identifier)));
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
