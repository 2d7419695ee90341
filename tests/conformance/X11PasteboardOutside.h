#pragma once

#include "conformance/PasteboardOutside.h"
#include "conformance/TestDesktop.h"
#include "platform/x11/X11Pasteboard.h"

namespace quorvel {

/// What a requestor got for one target.
struct SelectionAnswer {
    enum class Kind { received, refused, timedOut } kind = Kind::timedOut;
    QByteArray type;
    QByteArray bytes; ///< Atoms and numbers in words, separated by blanks.
    bool inPieces = false;
};

/// The clipboard of a real display, with clients that speak its protocol by hand.
class X11PasteboardOutside final : public PasteboardOutside {
public:
    explicit X11PasteboardOutside(TransferLimits limits = {});
    ~X11PasteboardOutside() override;

    Pasteboard& pasteboard() override { return *m_pasteboard; }
    void copy(const ClipboardSnapshotItem& item) override;
    void copySlowly(const QString& text) override;
    void clear() override;
    void copySecret(const QByteArray& text) override;
    void copyAndHang() override;
    std::optional<QByteArray> paste(const QString& type) override;

    /// Starts a selection owner and returns when it owns the clipboard.
    ChildProgram& startOwner(const QStringList& arguments);

    /// The owner that was started last.
    ChildProgram& owner() { return *m_owners.back(); }

    /// Asks for targets as another program; answers stand in the order of the targets.
    QList<SelectionAnswer> request(const QStringList& targets, const QStringList& options = {});

    /// The display's present time stamp.
    quint32 serverTime();

    /// A file with these bytes, for an argument such as "image/png=@FILE".
    QString fileWith(const QByteArray& bytes);

private:
    std::unique_ptr<X11Pasteboard> m_pasteboard;
    std::vector<std::unique_ptr<ChildProgram>> m_owners;
    int m_files = 0;
};

} // namespace quorvel
