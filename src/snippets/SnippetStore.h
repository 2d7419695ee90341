#pragma once

#include "snippets/SnippetFile.h"

#include <QObject>

#include <limits>

namespace quorvel {

/// What the user gives a snippet.
struct SnippetContent {
    QString title; ///< When there is nothing to see in it, one is made from the text.
    QString text;
    std::optional<qint64> shortcut;
    std::optional<SnippetShortcut> customShortcut;
};

/// Where a snippet stands; the root when there is no group. A position beyond the end is the end.
struct SnippetPlace {
    std::optional<QUuid> group;
    qsizetype position = std::numeric_limits<qsizetype>::max();
};

/// Why an operation was refused; nothing has changed then.
enum class SnippetProblem {
    blank, ///< There would be nothing to show in a menu.
    noSuchGroup,
    noSuchSnippet,
};

struct SnippetResult {
    QUuid id; ///< Of the group or snippet that was made or changed; null when there is a problem.
    std::optional<SnippetProblem> problem;

    bool isOk() const { return !problem; }
};

enum class SnippetCreation { group, snippet };

/// The library of snippets: in memory, and in its file after each change. An operation takes
/// effect at once; whether the disk took it is told later by `creationNotSaved` and
/// `saveProblemChanged`. What could not be saved stays in memory and is tried again.
class SnippetStore final : public QObject {
    Q_OBJECT

public:
    SnippetStore(QString fileURL, const Clock& clock, MainQueue& mainQueue, BackgroundQueue& disk);

    /// Reads the file; called once, before any other use.
    void load();

    /// Sees to it that everything is on the disk, use counts too, and waits for it.
    void saveNow();

    const QString& fileURL() const { return m_file.path(); }
    const QStringList& setAsideFiles() const { return m_file.setAsideFiles(); }
    const QString& saveProblem() const { return m_file.problem(); }

    const QList<Snippet>& rootSnippets() const { return m_data.rootSnippets; }
    const QList<SnippetGroup>& groups() const { return m_data.groups; }

    /// Null when there is none with this id; valid until the next change.
    const Snippet* snippet(const QUuid& id) const;
    const SnippetGroup* group(const QUuid& id) const;

    SnippetResult addGroup(const QString& name);
    SnippetResult renameGroup(const QUuid& id, const QString& name);

    /// With all its snippets.
    SnippetResult deleteGroup(const QUuid& id);
    SnippetResult moveGroup(const QUuid& id, qsizetype position);

    SnippetResult addSnippet(const SnippetContent& content, const SnippetPlace& place = {});
    SnippetResult addFromClipboard(const QString& text, const std::optional<QUuid>& group = {});
    SnippetResult editSnippet(const QUuid& id, const SnippetContent& content);
    SnippetResult deleteSnippet(const QUuid& id);

    /// Also within its own list: the position is the one that it has afterwards.
    SnippetResult moveSnippet(const QUuid& id, const SnippetPlace& place);

    /// Counts a paste. Such counts are written together, a while later.
    SnippetResult incrementUsageCount(const QUuid& id);

    static constexpr std::chrono::milliseconds usageSaveDelay{3000};

signals:
    /// Emitted once after each operation that changed anything.
    void changed();

    /// What was just made is in memory but not on the disk.
    void creationNotSaved(quorvel::SnippetCreation creation, const QString& reason);

    void saveProblemChanged();

private:
    struct Position {
        qsizetype list;
        qsizetype index;
    };
    struct UnsavedCreation {
        SnippetCreation creation;
        qint64 save;
    };

    qsizetype groupIndex(const QUuid& id) const;
    std::optional<qsizetype> listOf(const std::optional<QUuid>& group) const;
    std::optional<Position> positionOf(const QUuid& id) const;
    const QList<Snippet>& snippets(qsizetype list) const;
    QList<Snippet>& snippets(qsizetype list);

    SnippetResult changedAndSaved(const QUuid& id);
    SnippetResult createdAndSaved(SnippetCreation creation, const QUuid& id);
    qint64 save();
    void saveTried(qint64 number, const QString& problem);

    MainQueue& m_mainQueue;
    SnippetFile m_file;
    StoreData m_data;
    WorkItem m_usageSave;
    QList<UnsavedCreation> m_unsavedCreations;
};

} // namespace quorvel
