#include "platform/desktop/ClipboardText.h"

#include <QStringDecoder>

#include <array>

namespace quorvel {

namespace {

const QString charsetParameter = QStringLiteral(";charset=");

/// Types by preference; the empty entry stands for text/plain with any other charset. Some toolkits
/// end the lines of text/plain as mail does; UTF8_STRING has them as they were written.
constexpr std::array<QLatin1StringView, 7> preferredTypes{
    QLatin1StringView("UTF8_STRING"),
    QLatin1StringView("text/plain;charset=utf-8"),
    QLatin1StringView(""),
    QLatin1StringView("text/plain"),
    QLatin1StringView("STRING"),
    QLatin1StringView("TEXT"),
    QLatin1StringView("COMPOUND_TEXT"),
};

QString normalized(const QString& type) {
    QString plain = type.toLower();
    plain.remove(QLatin1Char(' '));
    plain.remove(QLatin1Char('"'));
    return plain;
}

QString charsetOf(const QString& type) {
    const QString plain = normalized(type);
    if (!plain.startsWith(QLatin1StringView("text/plain")))
        return {};
    const qsizetype start = plain.indexOf(charsetParameter);
    return start < 0 ? QString()
                     : plain.mid(start + charsetParameter.size()).section(QLatin1Char(';'), 0, 0);
}

bool isType(const QString& type, QLatin1StringView wanted) {
    if (wanted.isEmpty())
        return !charsetOf(type).isEmpty();
    return type == wanted || normalized(type) == wanted;
}

QString withoutTrailingZeros(QString text) {
    while (text.endsWith(QChar::Null))
        text.chop(1);
    return text;
}

QString decodedUtf8OrLatin1(const QByteArray& data) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(data);
    return utf8.hasError() ? QString::fromLatin1(data) : text;
}

QString decodedWith(const QString& charset, const QByteArray& data) {
    QStringDecoder decoder(charset.toLatin1().constData());
    if (!decoder.isValid())
        return decodedUtf8OrLatin1(data);
    return decoder(data);
}

} // namespace

qsizetype bestTextType(const QList<QString>& types) {
    for (const QLatin1StringView wanted : preferredTypes)
        for (qsizetype i = 0; i < types.size(); ++i)
            if (isType(types.at(i), wanted))
                return i;
    return -1;
}

QString decodedText(const PasteboardRepresentation& representation) {
    const QByteArray& data = representation.data;
    const QString charset = charsetOf(representation.type);
    if (!charset.isEmpty())
        return withoutTrailingZeros(decodedWith(charset, data));
    if (representation.type == QLatin1StringView("STRING"))
        return withoutTrailingZeros(QString::fromLatin1(data));
    if (representation.type == QLatin1StringView("UTF8_STRING"))
        return withoutTrailingZeros(decodedWith(QStringLiteral("UTF-8"), data));
    return withoutTrailingZeros(decodedUtf8OrLatin1(data));
}

QString plainText(const ClipboardSnapshotItem& item) {
    QList<QString> types;
    for (const PasteboardRepresentation& representation : item.payloadByType)
        types.append(representation.type);
    const qsizetype best = bestTextType(types);
    return best < 0 ? QString() : decodedText(item.payloadByType.at(best));
}

ClipboardSnapshotItem withTextAliases(const ClipboardSnapshotItem& item) {
    const QString text = plainText(item);
    if (text.isEmpty())
        return item;
    ClipboardSnapshotItem complete = item;
    const auto offer = [&](const QString& type, const QByteArray& data) {
        for (const PasteboardRepresentation& present : std::as_const(complete.payloadByType))
            if (present.type == type)
                return;
        complete.payloadByType.append({type, data});
    };
    const QByteArray utf8 = text.toUtf8();
    offer(pasteboardTypeString, utf8);
    offer(QStringLiteral("UTF8_STRING"), utf8);
    offer(QStringLiteral("text/plain"), utf8);
    offer(QStringLiteral("TEXT"), utf8);
    offer(QStringLiteral("STRING"), text.toLatin1());
    return complete;
}

} // namespace quorvel
