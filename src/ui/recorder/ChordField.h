#pragma once

#include <QAbstractButton>

#include <functional>

namespace quorvel {

/// Shows keys as key caps in a field that looks like what it is: something to click and to press
/// keys in. While it records, every key goes to its reader, even Tab and the keys of hot keys.
class ChordField final : public QAbstractButton {
    Q_OBJECT

public:
    /// Returns whether it has used the key.
    using Reader = std::function<bool(QKeyEvent&)>;

    explicit ChordField(Reader reader);

    /// The caps, in order; the text stands behind them, or alone.
    void show(const QStringList& caps, const QString& text = {});

    void setRecording(bool isRecording);
    bool isRecording() const { return m_isRecording; }

    const QStringList& caps() const { return m_caps; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The field is hidden or no longer has the keyboard.
    void left();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void paintGround(QPainter& painter) const;
    int paintCaps(QPainter& painter, const QRect& place) const;
    void paintCap(QPainter& painter, const QRect& place, const QString& text) const;
    int capWidth(const QString& text) const;
    int capsWidth() const;

    const Reader m_reader;
    QStringList m_caps;
    QString m_behind;
    bool m_isRecording = false;
};

} // namespace quorvel
