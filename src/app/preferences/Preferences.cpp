#include "app/preferences/Preferences.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace quorvel {

namespace {

QString named(const char* name) {
    return QString::fromLatin1(name);
}

QStringList strings(const QJsonArray& array) {
    QStringList list;
    for (const auto& value : array)
        if (value.isString())
            list.append(value.toString());
    return list;
}

} // namespace

Preferences::Preferences(PreferenceStore& store)
    : m_store(store) {}

bool Preferences::isOn(const keys::Switch& key) const {
    return m_store.value(named(key.name)).toBool(key.byDefault);
}

void Preferences::set(const keys::Switch& key, bool on) {
    m_store.set(named(key.name), on);
}

int Preferences::number(const keys::Number& key) const {
    const double stored = m_store.value(named(key.name)).toDouble();
    const double whole = std::clamp<double>(stored, INT32_MIN, INT32_MAX);
    const int value = static_cast<int>(whole);
    return value == 0 ? key.byDefault : std::clamp(value, key.lowest, key.highest);
}

void Preferences::set(const keys::Number& key, int value) {
    m_store.set(named(key.name), std::clamp(value, key.lowest, key.highest));
}

QString Preferences::text(const keys::Text& key) const {
    return m_store.value(named(key.name)).toString(named(key.byDefault));
}

void Preferences::set(const keys::Text& key, const QString& value) {
    m_store.set(named(key.name), value);
}

SnippetShortcut Preferences::hotKey(const keys::HotKey& key) const {
    const QString defaultKey = QChar::fromLatin1(key.key);
    auto stored = SnippetShortcut::fromJson(bytes(key.name));
    if (!stored || !stored->sparesTyping())
        return {defaultKey, key.modifiers};
    stored->key = stored->key.toLower();
    if (stored->key.size() != 1)
        stored->key = defaultKey;
    stored->modifiersRawValue &= modifierMask;
    return *stored;
}

bool Preferences::hasUnusableHotKey(const keys::HotKey& key) const {
    if (m_store.value(named(key.name)).isUndefined())
        return false;
    const auto stored = SnippetShortcut::fromJson(bytes(key.name));
    return !stored || stored->key.toLower() != hotKey(key).key ||
           stored->modifiers() != hotKey(key).modifiers();
}

void Preferences::clear(const keys::HotKey& key) {
    m_store.remove(named(key.name));
}

void Preferences::set(const keys::HotKey& key, const SnippetShortcut& shortcut) {
    m_store.set(named(key.name), QString::fromLatin1(shortcut.toJson().toBase64()));
}

QStringList Preferences::baseUrls(const keys::BaseUrls& key) const {
    const QJsonValue stored = m_store.value(named(key.name));
    if (stored.isArray()) // written by hand
        return strings(stored.toArray());
    const QJsonDocument list = QJsonDocument::fromJson(bytes(key.name));
    if (list.isArray())
        return strings(list.array());
    const QString alone = stored.toString();
    if (alone.contains(QLatin1String("://")))
        return {alone};
    const QString former =
        key.formerName ? m_store.value(named(key.formerName)).toString() : QString();
    if (!former.isEmpty())
        return {former};
    const QString fromEnvironment =
        key.environmentVariable ? qEnvironmentVariable(key.environmentVariable) : QString();
    return fromEnvironment.isEmpty() ? QStringList() : QStringList(fromEnvironment);
}

void Preferences::setBaseUrls(const keys::BaseUrls& key, const QStringList& urls) {
    const QByteArray json =
        QJsonDocument(QJsonArray::fromStringList(urls)).toJson(QJsonDocument::Compact);
    m_store.set(named(key.name), QString::fromLatin1(json.toBase64()));
}

QJsonValue Preferences::record(const keys::Record& key) const {
    return m_store.value(named(key.name));
}

void Preferences::set(const keys::Record& key, const QJsonValue& value) {
    m_store.set(named(key.name), value);
}

void Preferences::clear(const keys::Record& key) {
    m_store.remove(named(key.name));
}

int Preferences::historyStorageCount() const {
    const int limit = number(keys::clipboardHistoryLimit);
    return std::max(recentClipboardStorageMultiplier * limit, limit);
}

QByteArray Preferences::bytes(const char* name) const {
    const auto decoded = QByteArray::fromBase64Encoding(
        m_store.value(named(name)).toString().toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? *decoded : QByteArray();
}

} // namespace quorvel
