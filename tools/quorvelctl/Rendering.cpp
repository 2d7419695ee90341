#include "Rendering.h"

#include "foundation/Text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace quorvel::ctl {

namespace {

QString titleOf(const QString& text) {
    constexpr int titleLimit = 100;
    constexpr int titleTail = 20;
    return shortened(singleLine(text), titleLimit, titleTail);
}

QString textOf(const QJsonObject& object, const QString& name) {
    return object.value(name).toString();
}

/// A row of its number, a mark and a title.
QString row(int number, const QString& mark, const QString& title) {
    return QStringLiteral("%1%2 %3\n").arg(number, 4).arg(mark, title);
}

QString clipRow(const QJsonObject& clip) {
    const QString title = clip.value(QStringLiteral("image")).toBool()
                              ? QStringLiteral("[picture]")
                              : titleOf(textOf(clip, QStringLiteral("text")));
    const bool isPinned = clip.value(QStringLiteral("pinned")).toBool();
    return row(clip.value(QStringLiteral("position")).toInt(),
               isPinned ? QStringLiteral("*") : QStringLiteral(" "), title);
}

QString snippetRow(const QJsonObject& snippet) {
    const QString group = textOf(snippet, QStringLiteral("group"));
    return row(snippet.value(QStringLiteral("number")).toInt(), QStringLiteral(" "),
               (group.isEmpty() ? QString() : titleOf(group) + QStringLiteral(" / ")) +
                   titleOf(textOf(snippet, QStringLiteral("title"))));
}

QString foundRow(const QJsonObject& found) {
    const QString id = textOf(found, QStringLiteral("id"));
    const QString name =
        id.isEmpty() ? QString::number(found.value(QStringLiteral("position")).toInt()) : id;
    return QStringLiteral("%1 %2  %3\n")
        .arg(textOf(found, QStringLiteral("kind")), name,
             titleOf(textOf(found, QStringLiteral("title"))));
}

QString layoutName(const QJsonObject& layout) {
    return QStringLiteral("%1 [%2]").arg(textOf(layout, QStringLiteral("name")),
                                         textOf(layout, QStringLiteral("id")));
}

QString variantRow(const QJsonObject& variant) {
    return QStringLiteral("%1, %2: %3\n")
        .arg(layoutName(variant), textOf(variant, QStringLiteral("likelihood")),
             singleLine(textOf(variant, QStringLiteral("text"))));
}

QString rows(const QJsonValue& result, QString (*rowOf)(const QJsonObject&),
             const QString& whenEmpty) {
    const QJsonArray objects = result.toArray();
    QString text;
    for (const auto& object : objects)
        text += rowOf(object.toObject());
    return objects.isEmpty() ? whenEmpty + u'\n' : text;
}

QString plain(const QJsonValue& value) {
    if (value.isString())
        return value.toString();
    if (value.isBool())
        return value.toBool() ? QStringLiteral("yes") : QStringLiteral("no");
    return value.toVariant().toString();
}

/// The fields of an object on one line: lists of them are to be read at a glance.
QString element(const QJsonValue& value) {
    if (!value.isObject())
        return plain(value);
    const QJsonObject object = value.toObject();
    QStringList fields;
    for (auto field = object.begin(); field != object.end(); ++field)
        fields += field.key() + QStringLiteral(": ") + plain(field.value());
    return fields.join(QStringLiteral(", "));
}

QString outlineAt(const QJsonValue& value, int depth) {
    const QString indent(depth * 2, QLatin1Char(' '));
    QString text;
    if (value.isArray()) {
        for (const auto& one : value.toArray())
            text += indent + element(one) + u'\n';
        return text;
    }
    const QJsonObject object = value.toObject();
    for (auto field = object.begin(); field != object.end(); ++field) {
        const bool nested = field.value().isObject() || field.value().isArray();
        text += indent + field.key() + QStringLiteral(": ") +
                (nested ? QStringLiteral("\n") + outlineAt(field.value(), depth + 1)
                        : plain(field.value()) + u'\n');
    }
    return text;
}

} // namespace

QString nothing(const QJsonValue&) {
    return {};
}

QString line(const QJsonValue& result) {
    return plain(result) + u'\n';
}

QString clipList(const QJsonValue& result) {
    return rows(result, clipRow, QStringLiteral("The history is empty."));
}

QString snippetList(const QJsonValue& result) {
    return rows(result, snippetRow, QStringLiteral("There are no snippets."));
}

QString foundList(const QJsonValue& result) {
    return rows(result, foundRow, QStringLiteral("Nothing was found."));
}

QString layoutList(const QJsonValue& result) {
    const QJsonObject object = result.toObject();
    if (object.value(QStringLiteral("layouts")).toArray().size() < 2)
        return QStringLiteral("Fewer than two keyboard layouts are configured.\n");
    const QJsonObject source = object.value(QStringLiteral("source")).toObject();
    if (source.isEmpty())
        return QStringLiteral("No configured layout has keys for this text.\n");
    return QStringLiteral("typed in %1\n").arg(layoutName(source)) +
           rows(object.value(QStringLiteral("variants")), variantRow,
                QStringLiteral("The other layouts give the same."));
}

QString outline(const QJsonValue& result) {
    return outlineAt(result, 0);
}

QString json(const QJsonValue& result) {
    const QJsonDocument document =
        result.isArray() ? QJsonDocument(result.toArray()) : QJsonDocument(result.toObject());
    return QString::fromUtf8(document.toJson());
}

} // namespace quorvel::ctl
