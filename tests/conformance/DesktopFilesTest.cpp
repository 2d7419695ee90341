#include "platform/desktop/DesktopFiles.h"
#include "support/ManualTime.h"
#include "support/QtPrinting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

QByteArray entry(const QByteArray& name, const QByteArray& more = {}) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\n" + more;
}

class DesktopFilesTest : public ::testing::Test {
protected:
    void write(const QString& path, const QByteArray& text) {
        const QString whole = folder.filePath(path);
        QDir().mkpath(QFileInfo(whole).path());
        QFile file(whole);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
    QString idOf(const QString& instance, const QString& name) {
        const auto found = files.find(instance, name);
        return found ? found->id : QString();
    }

    QTemporaryDir folder;
    quorvel::testing::ManualClock clock;
    quorvel::testing::ManualDisk background;
    DesktopFiles files{
        {{folder.filePath(QStringLiteral("home")), folder.filePath(QStringLiteral("system"))}, {}},
        clock,
        background};
};

TEST_F(DesktopFilesTest, windowClassesFindTheirProgramInOrder) {
    write(QStringLiteral("system/other.desktop"), entry("Other", "StartupWMClass=Boxes\n"));
    write(QStringLiteral("system/boxes.desktop"), entry("Boxes"));
    write(QStringLiteral("system/org.example.Editor.desktop"), entry("Editor"));
    write(QStringLiteral("system/browser.desktop"),
          entry("Browser", "Exec=/opt/web/surfer --new %u\nStartupWMClass=Surfer\n"));
    write(QStringLiteral("system/browser-mail.desktop"),
          entry("Mail in the browser", "Exec=surfer --app\nStartupWMClass=crx_mail\n"));
    write(QStringLiteral("system/debian-term.desktop"), entry("Term", "Exec=env A=1 B=2 term\n"));
    write(QStringLiteral("system/quoted.desktop"), entry("Quoted", "Exec=\"/o p/my prog\" %f\n"));
    write(QStringLiteral("system/a-helper.desktop"), entry("Help", "Exec=tool\nNoDisplay=true\n"));
    write(QStringLiteral("system/z-tool.desktop"), entry("Tool", "Exec=tool\n"));
    write(QStringLiteral("system/kde4/sub.desktop"), entry("Sub"));
    write(QStringLiteral("system/vim.desktop"), entry("Vim", "Exec=viewer\nTerminal=true\n"));
    write(QStringLiteral("system/sandboxed.desktop"), entry("Boxed", "Exec=flatpak run x\n"));
    write(QStringLiteral("system/link.desktop"), "[Desktop Entry]\nType=Link\nName=Link\n");
    struct Case {
        const char* instance;
        const char* name;
        const char* id;
    };
    for (const auto& [instance, name, id] : {
             Case{"x", "Boxes", "other"},
             Case{"boxes", "X", "other"},
             Case{"x", "OTHER", "other"},
             Case{"editor", "Editor", "org.example.Editor"},
             Case{"surfer", "Surfer", "browser"},
             Case{"crx_mail", "Surfer", "browser-mail"},
             Case{"surfer (/home/me/profile)", "surfer", "browser"},
             Case{"term", "Term", "debian-term"},
             Case{"my prog", "", "quoted"},
             Case{"tool", "Tool", "z-tool"},
             Case{"kde4-sub", "", "kde4-sub"},
             Case{"viewer", "Viewer", ""},
             Case{"flatpak", "Flatpak", ""},
             Case{"link", "Link", ""},
             Case{"", "", ""},
         })
        EXPECT_EQ(idOf(QString::fromLatin1(instance), QString::fromLatin1(name)),
                  QString::fromLatin1(id))
            << instance << " " << name;
}

TEST_F(DesktopFilesTest, theUsersOwnFilesWinAndMayHideOthers) {
    write(QStringLiteral("system/one.desktop"), entry("One"));
    write(QStringLiteral("home/one.desktop"), entry("My one"));
    write(QStringLiteral("system/two.desktop"), entry("Two"));
    write(QStringLiteral("home/two.desktop"), "[Desktop Entry]\nHidden=true\n");
    EXPECT_EQ(files.find(QStringLiteral("one"), {})->name, QStringLiteral("My one"));
    EXPECT_EQ(idOf(QStringLiteral("two"), {}), QString());
}

TEST_F(DesktopFilesTest, newProgramsAreSeenLaterAndReadInTheBackground) {
    EXPECT_EQ(idOf(QStringLiteral("late"), {}), QString());
    background.drain();
    write(QStringLiteral("system/late.desktop"), entry("Late"));
    EXPECT_EQ(idOf(QStringLiteral("late"), {}), QString()) << "not looked at again so soon";
    EXPECT_EQ(background.waiting(), 0U);
    background.hold();
    clock.advance(6s);
    EXPECT_EQ(idOf(QStringLiteral("late"), {}), QString());
    EXPECT_EQ(background.waiting(), 1U);
    background.drain();
    EXPECT_EQ(idOf(QStringLiteral("late"), {}), QStringLiteral("late"));
}

TEST_F(DesktopFilesTest, whatIsPreloadedIsNotReadAgain) {
    write(QStringLiteral("system/early.desktop"), entry("Early"));
    files.preload();
    ASSERT_TRUE(QDir(folder.filePath(QStringLiteral("system"))).removeRecursively());
    background.hold();
    EXPECT_EQ(idOf(QStringLiteral("early"), {}), QStringLiteral("early"));
}

TEST(DesktopEntryTest, namesAreInTheBestOfTheUsersLanguages) {
    const QByteArray text =
        entry("Plain", "Name[de]=Deutsch\nName[de_AT]=\xc3\x96sterreich\nName[sr@latin]=Srpski\n"
                       "Name[fr]=\n[Desktop Action New]\nName=Action\nName[de]=Aktion\n");
    struct Case {
        const char* locale;
        const char* name;
    };
    for (const auto& [locale, name] : {
             Case{"de_AT.UTF-8@euro", "\xc3\x96sterreich"},
             Case{"de_DE.UTF-8", "Deutsch"},
             Case{"de", "Deutsch"},
             Case{"sr_RS@latin", "Srpski"},
             Case{"sr_RS", "Plain"},
             Case{"fr_FR", "Plain"},
             Case{"C.UTF-8", "Plain"},
             Case{"", "Plain"},
         })
        EXPECT_EQ(parseDesktopEntry(text, localeVariants(QString::fromLatin1(locale)))->name,
                  QString::fromUtf8(name))
            << locale;
}

TEST(DesktopEntryTest, damagedFilesAreNoProgramsAndDoNoHarm) {
    for (const QByteArray& text :
         {QByteArray(), QByteArray("\0\xff\xfe[Desktop Entry", 17), QByteArray("=\n=\n[\n]\n"),
          QByteArray("[Desktop Entry]\nType=Application\n"), QByteArray(100000, '['),
          QByteArray("Type=Application\nName=Outside\n")})
        EXPECT_FALSE(parseDesktopEntry(text, {}).has_value()) << text.left(40).constData();
    const auto odd = parseDesktopEntry(entry("a\\sb\\\\c\\", "Exec=env A=1\nExec\n=x\n"), {});
    ASSERT_TRUE(odd.has_value());
    EXPECT_EQ(odd->name, QStringLiteral("a b\\c\\"));
    EXPECT_EQ(odd->executable, QString());
}

} // namespace

} // namespace quorvel
