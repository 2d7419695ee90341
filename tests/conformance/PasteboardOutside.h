#pragma once

#include "support/FakePasteboard.h"

#include <optional>

namespace quorvel {

/// A pasteboard and the other programs around it.
class PasteboardOutside {
public:
    virtual ~PasteboardOutside() = default;

    virtual Pasteboard& pasteboard() = 0;

    /// Another program copies this, in this order of types.
    virtual void copy(const ClipboardSnapshotItem& item) = 0;

    /// Another program has the clipboard at once and gives what it copied some time later.
    virtual void copySlowly(const QString& text) = 0;

    /// Another program empties the clipboard on purpose.
    virtual void clear() = 0;

    /// Another program copies a text and marks it as a secret.
    virtual void copySecret(const QByteArray& text) = 0;

    /// Another program says that it has copied something and never gives it.
    virtual void copyAndHang() = 0;

    /// What another program gets for this type now; absent when it is refused.
    virtual std::optional<QByteArray> paste(const QString& type) = 0;
};

class FakePasteboardOutside final : public PasteboardOutside {
public:
    Pasteboard& pasteboard() override { return m_pasteboard; }
    void copy(const ClipboardSnapshotItem& item) override { m_pasteboard.copyFromOutside({item}); }
    void copySlowly(const QString& text) override {
        m_pasteboard.beginCopyFromOutside();
        QMetaObject::invokeMethod(
            &m_pasteboard, [this, text] { m_pasteboard.finishCopyFromOutside(text); },
            Qt::QueuedConnection);
    }
    void clear() override { m_pasteboard.copyFromOutside(QList<ClipboardSnapshotItem>()); }
    void copySecret(const QByteArray&) override {
        m_pasteboard.copySecretFromOutside(QStringLiteral("secret"));
    }
    void copyAndHang() override { m_pasteboard.failFromOutside(QStringLiteral("silent")); }

    std::optional<QByteArray> paste(const QString& type) override {
        for (const ClipboardSnapshotItem& item : m_pasteboard.items())
            for (const PasteboardRepresentation& representation : item.payloadByType)
                if (representation.type == type)
                    return representation.data;
        return std::nullopt;
    }

private:
    FakePasteboard m_pasteboard;
};

} // namespace quorvel
