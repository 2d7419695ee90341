#pragma once

#include <QCache>
#include <QIcon>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QThreadPool>

namespace quorvel {

/// Small pictures of PNG data for menu rows, decoded once, off the main thread, and kept for later
/// menus up to a limit of memory. Data that is no picture, or a picture too large to be decoded in
/// reasonable time, never has one.
class Thumbnails final : public QObject {
    Q_OBJECT

public:
    struct Look {
        QSize box{26, 17}; ///< Points; what no picture is larger than.
        int rounding = 0;  ///< Radius of the corners.
    };

    Thumbnails();
    explicit Thumbnails(const Look& look);
    ~Thumbnails() override;

    /// The thumbnail when it is there. Otherwise null, decoding starts, and `decoded` follows.
    QIcon icon(const QByteArray& png);

signals:
    /// More thumbnails can be had now; emitted for data that cannot be decoded, too.
    void decoded();

private:
    /// What tells the data from other data: its size and hashes of its parts.
    struct Key {
        qsizetype size = 0;
        size_t beginning = 0;
        size_t end = 0;
        int scale = 0;

        bool operator==(const Key&) const = default;
    };
    friend size_t qHash(const Key& key, size_t seed) noexcept {
        return qHashMulti(seed, key.size, key.beginning, key.end, key.scale);
    }

    void makeRoom(QSize box);
    static Key keyOf(const QByteArray& png, qreal scale);
    void startDecoding(const Key& key, const QByteArray& png, qreal scale);
    void keep(const Key& key, const QImage& picture);

    const Look m_look;
    QCache<Key, QIcon> m_icons;
    QSet<Key> m_underway;
    QThreadPool m_pool;
};

} // namespace quorvel
