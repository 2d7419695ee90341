#include "foundation/DataFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

enum class There { nothing, folder, link, plainFile };

class DataFolderTest : public ::testing::Test {
protected:
    QString path(const char* name) const { return data.filePath(QString::fromUtf8(name)); }

    static void put(const QString& path, const QByteArray& content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
        file.write(content);
    }

    void make(const char* name, There kind) const {
        if (kind == There::plainFile)
            return put(path(name), name);
        if (kind == There::nothing)
            return;
        const QString folder = kind == There::link ? path("target") : path(name);
        ASSERT_TRUE(QDir().mkpath(folder + QStringLiteral("/below")));
        put(folder + QStringLiteral("/below/library"), name);
        if (kind == There::link) {
            ASSERT_TRUE(QFile::link(folder, path(name)));
        }
    }

    QByteArray library(const char* name) const {
        QFile file(path(name) + QStringLiteral("/below/library"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir data;
};

} // namespace

TEST_F(DataFolderTest, TheFormerFolderBecomesTheCurrentOneOrGoes) {
    struct Case {
        There former;
        There current;
        const char* library; ///< What the current folder holds afterwards.
    };
    const Case cases[] = {
        {There::nothing, There::nothing, ""},      {There::nothing, There::folder, "current"},
        {There::folder, There::nothing, "former"}, {There::folder, There::folder, "current"},
        {There::link, There::nothing, "former"},   {There::link, There::folder, "current"},
        {There::plainFile, There::nothing, ""},
    };
    for (const Case& c : cases) {
        for (const QString& left :
             QDir(data.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot)) {
            QFile::remove(data.filePath(left));
            QDir(data.filePath(left)).removeRecursively();
        }
        make("former", c.former);
        make("current", c.current);
        for (int start = 0; start < 2; ++start)
            prepareDataFolder(path("current"), path("former"));
        EXPECT_TRUE(QFileInfo(path("current")).isDir()) << int(c.former) << int(c.current);
        EXPECT_EQ(library("current"), QByteArray(c.library)) << int(c.former) << int(c.current);
        EXPECT_FALSE(QFileInfo(path("former")).isDir()) << int(c.former) << int(c.current);
        if (c.former == There::link) {
            EXPECT_EQ(library("target"), "former") << int(c.current);
        }
    }
}

TEST_F(DataFolderTest, FoldersAreForTheUserAlone) {
    make("former", There::folder);
    constexpr auto others = QFile::ReadGroup | QFile::ReadOther | QFile::ExeOther;
    for (const QString& current : {path("a/b/current"), path("moved")}) {
        prepareDataFolder(current, current == path("moved") ? path("former") : QString());
        EXPECT_TRUE(QFileInfo(current).isDir());
        EXPECT_EQ(QFile::permissions(current) & others, QFile::Permissions());
    }
}

TEST_F(DataFolderTest, AFormerFolderThatCannotBeMovedStays) {
    make("former", There::folder);
    make("current", There::plainFile);
    for (int start = 0; start < 2; ++start)
        prepareDataFolder(path("current"), path("former"));
    EXPECT_EQ(library("former"), "former");
}

} // namespace quorvel
