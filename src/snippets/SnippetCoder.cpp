#include "snippets/SnippetCoder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <array>
#include <utility>

namespace quorvel {

namespace {

using Key = QLatin1StringView;

namespace field {
constexpr Key rootSnippets{"rootSnippets"};
constexpr Key groups{"groups"};
constexpr Key id{"id"};
constexpr Key title{"title"};
constexpr Key text{"text"};
constexpr Key shortcut{"shortcut"};
constexpr Key customShortcut{"customShortcut"};
constexpr Key usageCount{"usageCount"};
constexpr Key name{"name"};
constexpr Key snippets{"snippets"};
constexpr Key packID{"packID"};
constexpr Key packGroupID{"packGroupID"};
constexpr Key packVersion{"packVersion"};

constexpr std::array ofStore{rootSnippets, groups};
constexpr std::array ofSnippet{id, title, text, shortcut, customShortcut, usageCount};
constexpr std::array ofGroup{id, name, snippets, packID, packGroupID, packVersion};
} // namespace field

template <std::size_t Count>
QJsonObject withoutKeys(QJsonObject object, const std::array<Key, Count>& known) {
    qsizetype unknown = object.size();
    for (const Key key : known)
        unknown -= object.contains(key) ? 1 : 0;
    if (unknown == 0)
        return {};
    for (const Key key : known)
        object.remove(key);
    return object;
}

QString encodedId(const QUuid& id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

template <typename Value>
void insertIfThere(QJsonObject& object, Key key, const std::optional<Value>& value) {
    if (value)
        object.insert(key, *value);
}

QJsonObject encodedSnippet(const Snippet& snippet) {
    QJsonObject object = snippet.unknownKeys;
    object.insert(field::id, encodedId(snippet.id));
    object.insert(field::title, snippet.title);
    object.insert(field::text, snippet.text);
    object.insert(field::usageCount, snippet.usageCount);
    insertIfThere(object, field::shortcut, snippet.shortcut);
    if (snippet.customShortcut)
        object.insert(field::customShortcut, snippet.customShortcut->toJsonObject());
    return object;
}

QJsonArray encodedSnippets(const QList<Snippet>& snippets) {
    QJsonArray array;
    for (const Snippet& snippet : snippets)
        array.append(encodedSnippet(snippet));
    return array;
}

QJsonObject encodedGroup(const SnippetGroup& group) {
    QJsonObject object = group.unknownKeys;
    object.insert(field::id, encodedId(group.id));
    object.insert(field::name, group.name);
    object.insert(field::snippets, encodedSnippets(group.snippets));
    insertIfThere(object, field::packID, group.packID);
    insertIfThere(object, field::packGroupID, group.packGroupID);
    insertIfThere(object, field::packVersion, group.packVersion);
    return object;
}

/// Reads one library and remembers whether anything in it was wrong.
class Decoder {
public:
    DecodedStoreData read(const QJsonObject& object) {
        StoreData data;
        data.unknownKeys = withoutKeys(object, field::ofStore);
        data.rootSnippets = snippets(object.value(field::rootSnippets));
        for (const QJsonValue value : array(object.value(field::groups)))
            readGroup(value.toObject(), data);
        return {std::move(data), m_damaged};
    }

private:
    void readGroup(const QJsonObject& object, StoreData& data) {
        QList<Snippet> members = snippets(object.value(field::snippets));
        const QUuid id(object.value(field::id).toString());
        if (id.isNull() || !object.value(field::name).isString()) {
            m_damaged = true;
            return data.rootSnippets.append(std::move(members));
        }
        data.groups.append(
            {.id = firstUse(id),
             .name = object.value(field::name).toString(),
             .snippets = std::move(members),
             .packID = optional(object, field::packID, &Decoder::textValue),
             .packGroupID = optional(object, field::packGroupID, &Decoder::textValue),
             .packVersion = optional(object, field::packVersion, &Decoder::integerValue),
             .unknownKeys = withoutKeys(object, field::ofGroup)});
    }

    QList<Snippet> snippets(const QJsonValue& value) {
        const QJsonArray objects = array(value);
        QList<Snippet> list;
        list.reserve(objects.size());
        for (const QJsonValue object : objects)
            readSnippet(object.toObject(), list);
        return list;
    }

    void readSnippet(const QJsonObject& object, QList<Snippet>& list) {
        const QJsonValue title = object.value(field::title);
        const QJsonValue text = object.value(field::text);
        const QUuid id(object.value(field::id).toString());
        if (id.isNull() || !title.isString() || !text.isString()) {
            m_damaged = true;
            return;
        }
        list.append(
            {.id = firstUse(id),
             .title = title.toString(),
             .text = text.toString(),
             .shortcut = optional(object, field::shortcut, &Decoder::integerValue),
             .customShortcut = optional(object, field::customShortcut, &Decoder::shortcutValue),
             .usageCount = optional(object, field::usageCount, &Decoder::integerValue).value_or(0),
             .unknownKeys = withoutKeys(object, field::ofSnippet)});
    }

    QJsonArray array(const QJsonValue& value) {
        m_damaged |= !value.isArray();
        return value.toArray();
    }

    QUuid firstUse(const QUuid& id) {
        const qsizetype before = m_ids.size();
        m_ids.insert(id);
        if (m_ids.size() > before)
            return id;
        m_damaged = true;
        return QUuid::createUuid();
    }

    template <typename Value>
    std::optional<Value> optional(const QJsonObject& object, Key key,
                                  std::optional<Value> (*valueOf)(const QJsonValue&)) {
        const QJsonValue value = object.value(key);
        if (value.isUndefined() || value.isNull())
            return std::nullopt;
        std::optional<Value> result = valueOf(value);
        m_damaged |= !result;
        return result;
    }

    static std::optional<QString> textValue(const QJsonValue& value) {
        return value.isString() ? std::optional(value.toString()) : std::nullopt;
    }

    static std::optional<qint64> integerValue(const QJsonValue& value) {
        // Fractions and numbers out of range yield whatever is asked for instead.
        const qint64 number = value.toInteger(0);
        return number == value.toInteger(1) ? std::optional(number) : std::nullopt;
    }

    static std::optional<SnippetShortcut> shortcutValue(const QJsonValue& value) {
        return SnippetShortcut::fromJsonObject(value.toObject());
    }

    QSet<QUuid> m_ids;
    bool m_damaged = false;
};

} // namespace

QJsonObject encodedStoreData(const StoreData& data) {
    QJsonObject object = data.unknownKeys;
    QJsonArray groups;
    for (const SnippetGroup& group : data.groups)
        groups.append(encodedGroup(group));
    object.insert(field::rootSnippets, encodedSnippets(data.rootSnippets));
    object.insert(field::groups, groups);
    return object;
}

DecodedStoreData decodedStoreData(const QJsonObject& object) {
    return Decoder().read(object);
}

QByteArray encodedSnippetFile(const StoreData& data) {
    return QJsonDocument(encodedStoreData(data)).toJson(QJsonDocument::Indented);
}

DecodedStoreData decodedSnippetFile(const QByteArray& bytes) {
    return decodedStoreData(QJsonDocument::fromJson(bytes).object());
}

} // namespace quorvel
