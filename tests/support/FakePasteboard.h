#pragma once

#include "platform/Pasteboard.h"

#include <QMetaObject>

namespace quorvel {

/// A pasteboard in memory, driven by hand. Announces changes unless told otherwise.
class FakePasteboard final : public Pasteboard {
public:
    /// Another program copies: the count moves and `changed` is emitted at once.
    qint64 copyFromOutside(const QList<ClipboardSnapshotItem>& items) {
        m_items = items;
        m_isOwn = false;
        ++m_changeCount;
        if (m_announces)
            emit changed();
        return m_changeCount;
    }
    qint64 copyFromOutside(const QString& text) { return copyFromOutside({textItem(text)}); }

    /// Another program has the clipboard now, but what it copied is still on its way.
    void beginCopyFromOutside() { m_arriving = Arriving::asNewest; }

    /// It has arrived.
    void finishCopyFromOutside(const QString& text) {
        if (std::exchange(m_arriving, Arriving::nothing) == Arriving::asNewest)
            copyFromOutside(text);
        else
            emit arrivedLate({{textItem(text)}, text, {}});
    }

    /// Another program copies something that must not be read: the pasteboard is empty for us.
    qint64 copySecretFromOutside(const QString& reason) {
        ++m_activity.skipped[reason];
        return copyFromOutside(QList<ClipboardSnapshotItem>());
    }

    /// Another program copies something that does not arrive: the pasteboard is empty for us.
    void failFromOutside(const QString& reason) {
        ++m_activity.failed[reason];
        copyFromOutside(QList<ClipboardSnapshotItem>());
    }

    /// The program that was sent the paste keys takes the content.
    void fetchFromOutside() { emit fetched(); }

    /// Without announcements the count has to be polled.
    void setAnnouncesChanges(bool announces) { m_announces = announces; }

    int writeCount() const { return m_writeCount; }

    qint64 changeCount() const override { return m_changeCount; }
    QList<ClipboardSnapshotItem> items() const override { return m_items; }

    QString string() const override {
        for (const QString& type : {pasteboardTypeString, QStringLiteral("UTF8_STRING"),
                                    QStringLiteral("text/plain"), QStringLiteral("TEXT")})
            if (const QByteArray* data = payload(type))
                return QString::fromUtf8(*data);
        if (const QByteArray* data = payload(QStringLiteral("STRING")))
            return QString::fromLatin1(*data);
        return {};
    }

    /// The picture of type image/png; what does not begin like one counts as broken.
    QByteArray imagePng() const override {
        const QByteArray* data = payload(pasteboardTypePng);
        return data && data->startsWith("\x89PNG\r\n\x1a\n") ? *data : QByteArray();
    }

    /// `changed` comes with the next turn of the event loop.
    qint64 write(const QList<ClipboardSnapshotItem>& items) override {
        if (m_arriving == Arriving::asNewest)
            m_arriving = Arriving::late;
        return hold(items);
    }

    std::optional<qint64> replaceOwnWrite(const QList<ClipboardSnapshotItem>& items) override {
        return m_isOwn ? std::optional(hold(items)) : std::nullopt;
    }

    bool announcesChanges() const override { return m_announces; }
    PasteboardActivity activity() const override { return m_activity; }

    /// Counters of the status report, for tests to set.
    PasteboardActivity& activityForTest() { return m_activity; }

private:
    enum class Arriving { nothing, asNewest, late };

    qint64 hold(const QList<ClipboardSnapshotItem>& items) {
        ++m_writeCount;
        m_isOwn = true;
        m_items = items;
        ++m_changeCount;
        if (m_announces)
            QMetaObject::invokeMethod(
                this, [this] { emit changed(); }, Qt::QueuedConnection);
        return m_changeCount;
    }

    const QByteArray* payload(const QString& type) const {
        for (const ClipboardSnapshotItem& item : m_items)
            for (const PasteboardRepresentation& representation : item.payloadByType)
                if (representation.type == type)
                    return &representation.data;
        return nullptr;
    }

    QList<ClipboardSnapshotItem> m_items;
    PasteboardActivity m_activity;
    qint64 m_changeCount = 0;
    int m_writeCount = 0;
    Arriving m_arriving = Arriving::nothing;
    bool m_announces = true;
    bool m_isOwn = false; ///< The present content was written here.
};

} // namespace quorvel
