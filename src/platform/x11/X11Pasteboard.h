#pragma once

#include "platform/Pasteboard.h"
#include "platform/x11/SelectionTransfer.h"

#include <deque>
#include <functional>
#include <memory>

namespace quorvel {

class ClipboardExchange;
class ClipboardThread;

/// The CLIPBOARD selection as a mirror: a thread of its own fetches what other programs copy and
/// serves what we write, this object holds the newest content and counts the changes.
class X11Pasteboard final : public Pasteboard {
    Q_OBJECT

public:
    explicit X11Pasteboard(QObject* parent = nullptr, TransferLimits limits = {});
    ~X11Pasteboard() override;

    /// False when the display could not be reached; the pasteboard then stays empty.
    bool isConnected() const { return m_connected; }

    qint64 changeCount() const override { return m_changeCount; }
    QList<ClipboardSnapshotItem> items() const override;
    QString string() const override { return m_text; }
    QByteArray imagePng() const override { return m_imagePng; }
    qint64 write(const QList<ClipboardSnapshotItem>& items) override;
    std::optional<qint64> replaceOwnWrite(const QList<ClipboardSnapshotItem>& items) override;
    bool announcesChanges() const override { return true; }
    PasteboardActivity activity() const override;

    /// Whether the present content was written here, not copied by another program.
    bool holdsOwnWrite() const { return m_isOwn; }

    /// Whether another program has copied something that is not here yet. `changed` follows, even
    /// when it cannot be read.
    bool isArriving() const;

    /// Offers the present content as the primary selection too, for programs whose paste keys
    /// take that one. With nothing here that selection stays what it is.
    void offerAsPrimary();

    /// The program of this window is about to be told to paste: it gets what is here now, however
    /// late it asks and whatever has been written since.
    void expectReader(quint32 window);

    /// Gets the text of the primary selection if the program of this window has it, else an empty
    /// one. `done` is called once, from the main loop; never when this object ends before.
    void readPrimary(quint32 window, std::function<void(const QString& text)> done);

    /// Whether the server has carried out everything that was written here: a paste key pressed
    /// now gets the new content.
    bool isSettled() const;

signals:
    /// The display has gone; nothing more will come.
    void connectionLost();

private:
    qint64 hold(const ClipboardSnapshotItem& item);
    void receive();
    void takeContents();
    void take(const struct ClipboardHandover& handover);
    void wakeThread() const;

    class Worker;

    int m_wakeFd;
    bool m_connected = false;
    qint64 m_changeCount = 0;
    qint64 m_writes = 0;
    bool m_isOwn = false; ///< The present content is our own write.
    ClipboardSnapshotItem m_item;
    QString m_text;
    QByteArray m_imagePng;
    std::deque<std::function<void(const QString&)>> m_primaryReaders;
    std::unique_ptr<ClipboardExchange> m_exchange;
    std::unique_ptr<Worker> m_worker;
};

} // namespace quorvel
