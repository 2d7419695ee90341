#pragma once

#include "platform/desktop/DesktopEntry.h"

#include <QHash>
#include <QList>

namespace quorvel {

/// A program as the desktop knows it.
struct DesktopApplication {
    QString id;   ///< Desktop-file id without ".desktop".
    QString name; ///< Localized.

    bool operator==(const DesktopApplication&) const = default;
};

/// Where desktop files are looked for and in which languages their names are wanted.
struct DesktopSources {
    QStringList folders; ///< Each named ".../applications"; earlier ones win.
    QStringList locales; ///< Variants, best first.

    /// From `XDG_DATA_HOME`, `XDG_DATA_DIRS`, `LANGUAGE`, `LC_ALL`, `LC_MESSAGES` and `LANG`.
    static DesktopSources fromEnvironment();
};

/// All desktop files of one moment, with look-up by window class. Never changes once it is made,
/// so that any thread may read it.
class DesktopIndex {
public:
    /// Reads every folder, with its subfolders. Files that cannot be read are passed over.
    explicit DesktopIndex(const DesktopSources& sources);

    std::optional<DesktopApplication> find(const QString& instance, const QString& name) const;

    /// Whether a folder was changed, made or removed since the index was made. Looks at the
    /// folders only, not into them.
    bool isOutdated() const;

private:
    using Keys = QHash<QString, qsizetype>; ///< Folded name to position in the entries.

    void readFolder(const QString& root, const QString& folder, const QStringList& locales);
    void readFile(const QString& path, const QString& id, const QStringList& locales);
    void buildKeys();

    QHash<QString, qint64> m_folderTimes;
    QHash<QString, bool> m_ids;
    QList<DesktopEntry> m_entries;
    Keys m_byStartupClass;
    Keys m_byId;
    Keys m_byLastPart;
    Keys m_byExecutable;
};

} // namespace quorvel
