#pragma once

#include "ManualTime.h"

#include "snippets/SnippetStore.h"

#include <QFile>
#include <QTemporaryDir>

namespace quorvel::testing {

inline QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void putContent(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot prepare %s", qPrintable(path));
}

/// One session of the program on a file; another one sees what this one left.
struct SnippetSession {
    explicit SnippetSession(const QString& file)
        : store(file, clock, mainQueue, disk) {
        store.load();
    }

    QUuid add(const char* text, const std::optional<QUuid>& group = {}) {
        return store.addFromClipboard(QString::fromUtf8(text), group).id;
    }
    QUuid addGroup(const char* name) { return store.addGroup(QString::fromUtf8(name)).id; }

    /// Every title: those of the root, then each group's after its name.
    QString outline() const {
        QStringList lists{titles(store.rootSnippets())};
        for (const SnippetGroup& group : store.groups())
            lists.append(group.name + u':' + titles(group.snippets));
        return lists.join(u'|');
    }
    StoreData data() const { return {store.rootSnippets(), store.groups(), {}}; }

    static QString titles(const QList<Snippet>& snippets) {
        QStringList list;
        for (const Snippet& snippet : snippets)
            list.append(snippet.title);
        return list.join(u',');
    }

    ManualClock clock;
    ManualMainQueue mainQueue{clock};
    ManualDisk disk;
    SnippetStore store;
};

} // namespace quorvel::testing
