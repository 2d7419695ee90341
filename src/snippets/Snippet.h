#pragma once

#include "app/preferences/SnippetShortcut.h"

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace quorvel {

/// A text that the user keeps for pasting again.
struct Snippet {
    QUuid id;      ///< Fixed when the snippet is made.
    QString title; ///< What menus show.
    QString text;  ///< What is pasted.
    std::optional<qint64> shortcut;
    std::optional<SnippetShortcut> customShortcut;
    qint64 usageCount = 0;   ///< How often it was pasted.
    QJsonObject unknownKeys; ///< What the file says about it beyond this, kept as it is.

    bool operator==(const Snippet&) const = default;
};

struct SnippetGroup {
    QUuid id;
    QString name;
    QList<Snippet> snippets;
    std::optional<QString>
        packID; ///< The built-in pack that made the group; absent for the user's.
    std::optional<QString> packGroupID;
    std::optional<qint64> packVersion;
    QJsonObject unknownKeys;

    bool operator==(const SnippetGroup&) const = default;
};

/// The whole library. Cheap to copy.
struct StoreData {
    QList<Snippet> rootSnippets; ///< Those in no group.
    QList<SnippetGroup> groups;
    QJsonObject unknownKeys;

    bool operator==(const StoreData&) const = default;
};

} // namespace quorvel
