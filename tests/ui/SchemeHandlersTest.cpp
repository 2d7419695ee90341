#include "ui/SchemeHandlers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvel {

TEST(SchemeHandlers, AreFoundWhereTheDesktopNotesThem) {
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("XDG_DATA_DIRS");
    qputenv("XDG_DATA_DIRS", folder.path().toLocal8Bit());
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("applications")));
    const struct {
        const char* file;
        const char* text;
        bool isFound;
    } cases[]{
        {"mimeapps.list", "", false},
        {"mimeapps.list", "[Default Applications]\nx-scheme-handler/tel=phone.desktop\n", true},
        {"mimeinfo.cache", "[MIME Cache]\r\nx-scheme-handler/tel=phone.desktop;\r\n", true},
        {"mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/tel=\n", false},
        {"mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/telnet=t.desktop\n", false},
        {"mimeapps.list", "[Removed Associations]\nx-scheme-handler/tel=phone.desktop\n", false},
        {"mimeapps.list", "x-scheme-handler/tel=phone.desktop\n", false},
    };
    for (const auto& [name, text, isFound] : cases) {
        QFile file(folder.filePath(QStringLiteral("applications/") + QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) >= 0 && file.flush());
        EXPECT_EQ(hasSchemeHandler(QStringLiteral("tel")), isFound) << text;
        file.remove();
    }
    qputenv("XDG_DATA_DIRS", before);
}

} // namespace quorvel
