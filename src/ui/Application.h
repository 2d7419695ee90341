#pragma once

#include <QApplication>

namespace quorvel {

/// The toolkit's application, but a lost focus closes none of our popups: it is noticed up to 0.4
/// seconds late, when the next popup may be open already, with the keyboard by a grab of its own.
class Application final : public QApplication {
    Q_OBJECT

public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        const bool wouldClosePopups =
            event->type() == QEvent::ApplicationDeactivate && activePopupWidget();
        return wouldClosePopups || QApplication::notify(receiver, event);
    }
};

} // namespace quorvel
