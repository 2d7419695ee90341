#pragma once

#include "foundation/MainQueue.h"
#include "menu/MenuItem.h"
#include "menu/MenuTimings.h"

#include <QHash>
#include <QObject>
#include <QSet>

namespace quorvel {

/// Fills the submenus of one opening: at once when they are opened, in two steps when they are
/// long, and some ahead of time while the user is still looking.
class SubmenuFiller final : public QObject {
    Q_OBJECT

public:
    using Build = std::function<QList<MenuItem>(const QString& identifier)>;

    SubmenuFiller(MainQueue& mainQueue, const MenuTimings& timings, Build build);

    /// A submenu is about to be shown. One that was shown before in this opening gets all its
    /// items at once: a rebuilt menu must not lose its place.
    void fill(const QString& identifier);

    /// Fills the first empty submenus of the tree a while later, unless the menu closes.
    void scheduleWarmUp(const QList<MenuItem>& tree);

    /// The content has changed: what was built is of no use any more.
    void forget();

    /// The menu opened or closed: nothing that was begun before goes on.
    void beginGeneration();

    static constexpr std::chrono::milliseconds warmUpDelay{140};
    static constexpr qsizetype warmUpItems = 28;
    static constexpr qsizetype warmUpChunk = 4;

    /// Items of a long submenu that are shown first; the others follow together.
    static constexpr qsizetype firstChunk = 100;

signals:
    void filled(const QString& identifier, const QList<quorvel::MenuItem>& items);

private:
    const QList<MenuItem>& items(const QString& identifier);
    void fillFirst(const QString& identifier, const QList<MenuItem>& items);
    void fillWhole(const QString& identifier, qsizetype chunk, qsizetype chunks);
    void warmUp(const QStringList& identifiers, qsizetype chunk);

    MainQueue& m_mainQueue;
    const MenuTimings& m_timings;
    Build m_build;
    QHash<QString, QList<MenuItem>> m_lazyAdvancedMenuItemCache;
    QSet<QString> m_shown; ///< Submenus that were shown since the menu opened.
    QHash<QString, WorkItem> m_pendingSubmenuHydration;
    WorkItem m_pendingWarmupWorkItem;
    int m_warmupGeneration = 0;
};

} // namespace quorvel
