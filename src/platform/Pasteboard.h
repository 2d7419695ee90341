#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

#include <optional>

namespace quorvel {

/// One form of a copied thing: a type name as the platform spells it, and its bytes.
struct PasteboardRepresentation {
    QString type;
    QByteArray data;

    bool operator==(const PasteboardRepresentation&) const = default;
};

/// One copied thing in all its forms, in the order in which its owner listed them.
struct ClipboardSnapshotItem {
    QList<PasteboardRepresentation> payloadByType;

    bool operator==(const ClipboardSnapshotItem&) const = default;
};

/// The type under which plain text is written; readers find it under every usual name.
inline const QString pasteboardTypeString = QStringLiteral("text/plain;charset=utf-8");
inline const QString pasteboardTypePng = QStringLiteral("image/png");

/// What a pasteboard holds, or has held.
struct PasteboardContent {
    QList<ClipboardSnapshotItem> items;
    QString text;        ///< Empty when there is none.
    QByteArray imagePng; ///< The same.
};

/// What has happened on the clipboard since the start, for the status report.
struct PasteboardActivity {
    qint64 taken = 0;
    QMap<QString, qint64> skipped; ///< By reason: content that we must not read.
    QMap<QString, qint64> failed;  ///< By reason: content that we could not get.
};

/// The general pasteboard. Synchronous and never blocking: what is read here has arrived already.
/// Main thread only.
class Pasteboard : public QObject {
    Q_OBJECT

public:
    /// Grows with every change of the content, our own writes included.
    virtual qint64 changeCount() const = 0;

    virtual QList<ClipboardSnapshotItem> items() const = 0;

    /// The plain text; empty when there is none.
    virtual QString string() const = 0;

    /// The picture as PNG: the owner's own PNG, or another image form converted. Empty when there
    /// is none or it is broken.
    virtual QByteArray imagePng() const = 0;

    /// Replaces the content (an empty list clears it) and returns the new change count.
    virtual qint64 write(const QList<ClipboardSnapshotItem>& items) = 0;

    /// Puts this in the place of our own last write and returns the new change count. Absent, and
    /// nothing done, when another program has copied since. A copy of another program that is still
    /// arriving stays on the clipboard as well; it then follows as a change of its own.
    virtual std::optional<qint64> replaceOwnWrite(const QList<ClipboardSnapshotItem>& items) = 0;

    /// Whether `changed` tells of every change; if not, the count has to be polled.
    virtual bool announcesChanges() const = 0;

    virtual PasteboardActivity activity() const = 0;

signals:
    /// The change count has moved, and the content is the one of that moment. Our own writes are
    /// told from the main loop later, never from inside `write`, so that the caller can note the
    /// count first.
    void changed();

    /// Another program's copy that our own write has replaced while it was still arriving: it was
    /// never the content of this pasteboard, but nothing that was copied is to be lost.
    void arrivedLate(const quorvel::PasteboardContent& content);

    /// The program to which paste keys were sent has fetched the content that was meant for it.
    /// Not told where that cannot be seen.
    void fetched();
};

/// An item that holds nothing but a text.
inline ClipboardSnapshotItem textItem(const QString& text) {
    return {{{pasteboardTypeString, text.toUtf8()}}};
}

} // namespace quorvel
