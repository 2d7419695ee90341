#pragma once

#include <QIcon>
#include <QLabel>

namespace quorvel {

/// A sentence below a control, said in passing or as a warning with a mark. Hidden while there is
/// none; as high as its text needs at the width it has.
class MessageLine final : public QWidget {
    Q_OBJECT

public:
    enum class Tone { quiet, warning };

    explicit MessageLine(const QIcon& warning);

    void say(const QString& message, Tone tone);
    QString text() const { return m_text.text(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showMark();
    void layOut();

    const QIcon m_warning;
    QLabel m_mark;
    QLabel m_text;
};

} // namespace quorvel
