#pragma once

#include "desktop/DesktopTest.h"

#include <QFile>

namespace quorvel {

/// A test that drives the menu of the real program.
class MenuDesktopTest : public DesktopTest {
protected:
    void begin(TrayHost tray, const QByteArray& preferences = {}) {
        startDesktop(tray);
        if (!preferences.isEmpty()) {
            const QString folder = desktop().configHome() + QStringLiteral("/QuorvelMenuBar");
            QDir().mkpath(folder);
            put(folder + QStringLiteral("/preferences.json"), preferences);
        }
        desktop().setVariable(QStringLiteral("QUORVEL_MENU_TIMINGS"), QStringLiteral("1"));
        ASSERT_TRUE(startProgram()) << program().errors().constData();
    }

    ProgramResult xdotool(const QStringList& arguments) {
        return desktop().run(QStringLiteral("xdotool"), arguments);
    }
    void press(const QString& keys) { xdotool({QStringLiteral("key"), keys}); }

    qsizetype openings() { return program().errors().count("first-paint"); }
    qsizetype closings() { return program().errors().count("[MenuPerf] close"); }
    bool menuOpens(const std::function<void()>& action) {
        const qsizetype before = openings();
        action();
        return waitUntil([&] { return openings() == before + 1; });
    }
    bool menuCloses(const std::function<void()>& action) {
        const qsizetype before = closings();
        action();
        return waitUntil([&] { return closings() == before + 1; });
    }

    void copy(const QStringList& texts) {
        for (const QString& text : texts) {
            copyWithXclip(text.toUtf8());
            ASSERT_TRUE(waitUntil([&] { return newestText() == text; }));
        }
    }

    /// A hot key in the status, by its name.
    QJsonObject hotKey(const char* name) {
        for (const auto& state : status()[QStringLiteral("hotKeys")].toArray())
            if (state.toObject()[QStringLiteral("name")] == QLatin1StringView(name))
                return state.toObject();
        return {};
    }
    QString stateOf(const char* name) { return hotKey(name)[QStringLiteral("state")].toString(); }

    /// What another program would paste.
    QByteArray clipboard() {
        return desktop()
            .run(QStringLiteral("xclip"),
                 {QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-o")})
            .output;
    }

    /// Starts a program with a window and waits until that has the focus.
    std::unique_ptr<ChildProgram> startInFront(const QString& name, const QStringList& arguments,
                                               const QString& windowClass) {
        auto child = desktop().start(name, arguments);
        const bool isInFront = waitUntil([&] {
            const QByteArray active = xdotool({QStringLiteral("getactivewindow")}).output.trimmed();
            const ProgramResult windows =
                xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                         QStringLiteral("--class"), QStringLiteral("^%1$").arg(windowClass)});
            const QByteArray focus = xdotool({QStringLiteral("getwindowfocus")}).output.trimmed();
            const QByteArrayList own = windows.output.split('\n');
            return !active.isEmpty() && own.contains(active) && own.contains(focus);
        });
        EXPECT_TRUE(isInFront) << name.toStdString() << child->errors().constData();
        return child;
    }

    /// A terminal that writes what is typed or pasted into a file.
    std::unique_ptr<ChildProgram> startTerminalThatWrites(const QString& file) {
        return startInFront(QStringLiteral("xterm"),
                            {QStringLiteral("-e"), QStringLiteral("sh"), QStringLiteral("-c"),
                             QStringLiteral("cat > '%1'").arg(file)},
                            QStringLiteral("XTerm"));
    }

    QString path(const QString& name) { return desktop().folder() + u'/' + name; }
    static QByteArray content(const QString& file) {
        QFile source(file);
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
    }
    void put(const QString& file, const QByteArray& bytes) {
        QFile target(file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(bytes);
    }

    /// Where the icon is, found as the small picture in the tray that is not the panel's own.
    QStringList embeddedIconPosition() {
        const QByteArray windows =
            xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                     QStringLiteral("--pid"), QString::number(program().pid())})
                .output;
        for (const QByteArray& window : windows.split('\n')) {
            const QByteArray shell =
                xdotool({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"),
                         QString::fromLatin1(window)})
                    .output;
            const auto field = [&](const QByteArray& name) {
                const qsizetype at = shell.indexOf(name + '=');
                return at < 0 ? 0 : shell.mid(at + name.size() + 1).split('\n').first().toInt();
            };
            if (field("WIDTH") > 8 && field("WIDTH") <= 64)
                return {QString::number(field("X") + field("WIDTH") / 2),
                        QString::number(field("Y") + field("HEIGHT") / 2)};
        }
        return {};
    }
    /// The middle of our icon in a picture of the desktop, found by the yellow of its clip, which
    /// no panel has; empty when it is not there.
    QStringList iconIn(const QString& picture) {
        const QByteArray box =
            desktop()
                .run(QStringLiteral("convert"),
                     {picture, QStringLiteral("-fuzz"), QStringLiteral("2%"),
                      QStringLiteral("-fill"), QStringLiteral("black"), QStringLiteral("+opaque"),
                      QStringLiteral("#ffc44d"), QStringLiteral("-format"), QStringLiteral("%@"),
                      QStringLiteral("info:")})
                .output;
        int width = 0;
        int height = 0;
        int x = 0;
        int y = 0;
        const bool isBox =
            std::sscanf(box.constData(), "%dx%d+%d+%d", &width, &height, &x, &y) == 4;
        if (!isBox || width < 3 || width > 16)
            return {};
        return {QString::number(x + width / 2), QString::number(y + height / 2)};
    }
    void clickAt(const QStringList& position) {
        xdotool(QStringList{QStringLiteral("mousemove")} + position +
                QStringList{QStringLiteral("click"), QStringLiteral("1")});
    }
};

} // namespace quorvel
