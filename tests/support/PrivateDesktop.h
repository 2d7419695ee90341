#pragma once

#include "support/ChildProgram.h"
#include "support/WaitUntil.h"

#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace quorvel {

class DisplayProbe;

enum class TrayHost {
    none,
    tint2,      ///< Embeds icons as windows.
    xfce4Panel, ///< Speaks StatusNotifierItem; brings a session bus.
};

/// A desktop of a test's own: display, window manager, tray, session bus and home folder, alone
/// with the programs that are started on it. All of it ends with this object, or with the test
/// process however that ends. What cannot be started is an exception with the reason.
class PrivateDesktop {
public:
    struct Options {
        TrayHost tray = TrayHost::none;
        bool windowManager = true;
        bool sessionBus = false;
        QString display; ///< A running display to use instead of a new one, such as ":7".
    };

    PrivateDesktop();
    explicit PrivateDesktop(const Options& options);
    ~PrivateDesktop();

    /// Such as ":7".
    const QString& display() const { return m_display; }
    const DisplayProbe& probe() const { return *m_probe; }

    /// The throw-away folder that holds everything; "home" in it is the home folder.
    QString folder() const { return m_folder.path(); }
    QString home() const { return m_folder.filePath(QStringLiteral("home")); }
    QString dataHome() const { return m_folder.filePath(QStringLiteral("home/.local/share")); }
    QString configHome() const { return m_folder.filePath(QStringLiteral("home/.config")); }
    QString runtimeFolder() const { return m_folder.filePath(QStringLiteral("runtime")); }

    /// Sets a variable for the programs that are started from now on.
    void setVariable(const QString& name, const QString& value);

    /// Starts a tray now, for tests of a tray that comes late.
    void startTray(TrayHost host);

    /// Starts a program on this desktop. The handle ends it.
    std::unique_ptr<ChildProgram> start(const QString& program, const QStringList& arguments = {},
                                        const QByteArray& input = {});

    /// Runs a program to its end. What it leaves in the background, as xclip does, lives on with
    /// the desktop. The event loop of the test does not turn meanwhile.
    ProgramResult run(const QString& program, const QStringList& arguments = {},
                      const QByteArray& input = {},
                      std::chrono::milliseconds patience = usualPatience);

    /// Ends what `run` has left in the background.
    void endBackgroundPrograms() { m_ranPrograms.clear(); }

    /// Saves a picture of the whole display as a PNG; false when that failed.
    bool screenshot(const QString& path);

private:
    void makeFolders();
    void startDisplay();
    void connectProbe();
    void startSessionBus();
    void startWindowManager();
    bool isOnBus(const QString& name);
    ChildProgram::Setup setup(const QString& program, const QStringList& arguments,
                              const QByteArray& input);
    void startPart(const QString& program, const QStringList& arguments, const char* condition,
                   const std::function<bool()>& isReady);
    void forgetFinishedPrograms();

    QTemporaryDir m_folder;
    QString m_display;
    QStringList m_environment;
    int m_programs = 0;
    std::unique_ptr<DisplayProbe> m_probe;
    std::vector<std::unique_ptr<ChildProgram>> m_parts; ///< Ended last to first.
    std::vector<std::unique_ptr<ChildProgram>> m_ranPrograms;
};

} // namespace quorvel
