#pragma once

#include "app/preferences/PreferenceKeys.h"
#include "app/preferences/SnippetShortcut.h"
#include "foundation/PreferenceStore.h"

#include <QByteArray>
#include <QJsonValue>
#include <QStringList>

namespace quorvel {

/// Typed access to the preference store. Nothing is cached here: every read applies the default
/// and the bounds of the key, every write clamps before storing. A value of the wrong type reads
/// like one that is not there.
class Preferences {
public:
    explicit Preferences(PreferenceStore& store);

    bool isOn(const keys::Switch& key) const;
    void set(const keys::Switch& key, bool on);

    int number(const keys::Number& key) const;
    void set(const keys::Number& key, int value);

    QString text(const keys::Text& key) const;
    void set(const keys::Text& key, const QString& value);

    /// The default stands in for a stored shortcut that would take what is typed from every
    /// program, and the default's key for one that is not a single character.
    SnippetShortcut hotKey(const keys::HotKey& key) const;

    /// Whether something is stored that could not be taken as it stands.
    bool hasUnusableHotKey(const keys::HotKey& key) const;
    void set(const keys::HotKey& key, const SnippetShortcut& shortcut);
    void clear(const keys::HotKey& key);

    /// A list of base URLs: the stored list, which may be empty; else a single address stored under
    /// the same key or under the former one; else the value of the environment variable.
    QStringList baseUrls(const keys::BaseUrls& key) const;
    void setBaseUrls(const keys::BaseUrls& key, const QStringList& urls);

    QJsonValue record(const keys::Record& key) const;
    void set(const keys::Record& key, const QJsonValue& value);
    void clear(const keys::Record& key);

    /// How many clips are kept in storage: four times the menu's limit.
    int historyStorageCount() const;

    static constexpr int recentClipboardStorageMultiplier = 4;

private:
    QByteArray bytes(const char* name) const;

    PreferenceStore& m_store;
};

} // namespace quorvel
