#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace quorvel {

enum class ApplicationKind {
    ordinary,
    overlay, ///< Panels, docks, desktops: never a place to paste into.
};

/// A program with a window in front.
struct RunningApplication {
    qint64 processIdentifier = 0; ///< 0 when the window does not tell.
    quint64 window = 0;           ///< The platform's handle of its top window.
    std::optional<QString> name;  ///< Localized; absent when unknown.
    std::optional<QString> bundleIdentifier;
    ApplicationKind kind = ApplicationKind::ordinary;
};

/// Where the user's keys go: a program, its top window and the element with the input focus.
struct FocusTarget {
    qint64 processIdentifier = 0;
    quint64 window = 0;
    quint64 element = 0; ///< 0 when unknown.

    bool operator==(const FocusTarget&) const = default;
};

/// The programs on this desktop. Main thread only; answers come from the display server at once.
class Workspace : public QObject {
    Q_OBJECT

public:
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    /// The element that has the input focus now; 0 when none has.
    virtual quint64 focusedElement() const = 0;

    virtual bool isRunning(const FocusTarget& target) const = 0;

    /// Asks for the target to come to the front with the focus in its element. Does nothing when
    /// it has the focus already.
    virtual void activate(const FocusTarget& target) = 0;

    /// Whether `focusChanged` tells of every change; if not, it has to be polled.
    virtual bool announcesChanges() const = 0;

signals:
    /// The frontmost application or the focused element has changed.
    void focusChanged();
};

} // namespace quorvel
