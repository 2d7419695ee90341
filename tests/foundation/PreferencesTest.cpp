#include "ManualTime.h"

#include "app/preferences/Preferences.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvel {

class PreferencesTest : public ::testing::Test {
protected:
    QString path() const { return folder.filePath(QStringLiteral("preferences.json")); }

    void writeFile(const QByteArray& bytes) {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QJsonObject stored() {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).object();
    }

    QTemporaryDir folder;
    testing::ManualClock clock;
    testing::ManualDisk disk;
    PreferenceStore store{path(), clock, disk};
    Preferences preferences{store};
};

TEST_F(PreferencesTest, NumbersAreClampedAndZeroMeansTheDefault) {
    struct Case {
        QJsonValue stored;
        int limit;
        int storage;
    };
    const Case cases[] = {
        {QJsonValue::Undefined, 5, 20},
        {0, 5, 20},
        {-3, 1, 4},
        {80, 50, 200},
        {200, 50, 200},
        {QStringLiteral("7"), 5, 20},
        {1e300, 50, 200},
        {-1e300, 1, 4},
        {7.9, 7, 28},
    };
    for (const Case& c : cases) {
        writeFile(QJsonDocument(QJsonObject{{QStringLiteral("clipboardHistoryLimit"), c.stored}})
                      .toJson());
        PreferenceStore fresh(path(), clock, disk);
        fresh.load();
        const Preferences read(fresh);
        EXPECT_EQ(read.number(keys::clipboardHistoryLimit), c.limit);
        EXPECT_EQ(read.historyStorageCount(), c.storage);
    }
    preferences.set(keys::menuSearchResultLimit, 25);
    EXPECT_EQ(stored().value(QStringLiteral("menuSearchResultLimit")).toInt(), 20);
}

TEST_F(PreferencesTest, AFreshUserGetsTheDefaults) {
    EXPECT_TRUE(preferences.isOn(keys::customMenuEnabled));
    EXPECT_TRUE(preferences.isOn(keys::sensitiveDataMaskingEnabled));
    EXPECT_FALSE(preferences.isOn(keys::smartSortingEnabled));
    for (const keys::Switch& kind : keys::smartFolderSwitches)
        EXPECT_TRUE(preferences.isOn(kind)) << kind.name;
    EXPECT_EQ(preferences.number(keys::smartFolderMostUsedThreshold), 3);
    EXPECT_EQ(preferences.number(keys::reviewPromptNextUsageThreshold), 1000);
    EXPECT_EQ(preferences.text(keys::translationTargetLanguageCode), QStringLiteral("en"));
    const SnippetShortcut open = preferences.hotKey(keys::openMenuHotKey);
    EXPECT_EQ(open, (SnippetShortcut{QStringLiteral("v"), 0x120000}));
}

TEST_F(PreferencesTest, StoredShortcuts) {
    struct Case {
        SnippetShortcut stored;
        SnippetShortcut read;
    };
    const Case cases[] = {
        {{QStringLiteral("K"), 0x80000}, {QStringLiteral("k"), 0x80000}},
        {{QStringLiteral("kk"), 0x80000}, {QStringLiteral("v"), 0x80000}},
        {{{}, 0x80000}, {QStringLiteral("v"), 0x80000}},
        {{QStringLiteral("k"), 0xFFFFFFFF}, {QStringLiteral("k"), 0x1E0000}},
    };
    for (const Case& c : cases) {
        preferences.set(keys::openMenuHotKey, c.stored);
        EXPECT_EQ(preferences.hotKey(keys::openMenuHotKey), c.read) << qPrintable(c.stored.key);
    }
}

TEST_F(PreferencesTest, BaseUrlsFallBackToOlderPlacesAndTheEnvironment) {
    const keys::BaseUrls key{"list", "former", "QUORVEL_TEST_BASE"};
    const auto read = [&] { return preferences.baseUrls(key).join(u' '); };
    const auto put = [this](const char* name, const QJsonValue& value) {
        preferences.set(keys::Record{name}, value);
    };
    EXPECT_EQ(read(), QString());
    qputenv("QUORVEL_TEST_BASE", "https://env.example");
    EXPECT_EQ(read(), QStringLiteral("https://env.example"));
    put("former", QStringLiteral("https://former.example"));
    EXPECT_EQ(read(), QStringLiteral("https://former.example"));
    put("list", QStringLiteral("no list at all"));
    EXPECT_EQ(read(), QStringLiteral("https://former.example"));
    put("list", QStringLiteral("https://alone.example"));
    EXPECT_EQ(read(), QStringLiteral("https://alone.example"));
    put("list", QJsonArray{QStringLiteral("https://by.hand"), 7});
    EXPECT_EQ(read(), QStringLiteral("https://by.hand"));
    preferences.setBaseUrls(key, {QStringLiteral("https://a.example"), QStringLiteral("b")});
    EXPECT_EQ(read(), QStringLiteral("https://a.example b"));
    preferences.setBaseUrls(key, {});
    EXPECT_EQ(read(), QString()) << "an empty list is a list";
    qunsetenv("QUORVEL_TEST_BASE");
}

TEST_F(PreferencesTest, ADamagedFileIsSetAsideAndNeverOverwritten) {
    const QByteArray damaged[] = {"", "{\"a\": ", "[1, 2]", "\xff\xfe\x00\x01"};
    for (const QByteArray& bytes : damaged) {
        writeFile(bytes);
        PreferenceStore fresh(path(), clock, disk);
        fresh.load();
        EXPECT_FALSE(QFile::exists(path()));
        QFile aside(fresh.setAsideFile());
        ASSERT_TRUE(aside.open(QIODevice::ReadOnly));
        EXPECT_EQ(aside.readAll(), bytes);
        Preferences(fresh).set(keys::hintsEnabled, false);
        EXPECT_EQ(stored().value(QStringLiteral("hintsEnabled")), QJsonValue(false));
        EXPECT_TRUE(QFile::exists(fresh.setAsideFile()));
    }
}

TEST_F(PreferencesTest, KeepsWhatItDoesNotKnow) {
    writeFile(R"({"future": {"x": [1]}})");
    store.load();
    preferences.set(keys::hintsEnabled, false);
    EXPECT_TRUE(stored().contains(QStringLiteral("future")));
}

TEST_F(PreferencesTest, AnUnwritablePlaceIsReportedAndValuesStayInMemory) {
    PreferenceStore nowhere(QStringLiteral("/dev/null/folder/preferences.json"), clock, disk);
    nowhere.load();
    Preferences(nowhere).set(keys::hintsEnabled, false);
    EXPECT_FALSE(nowhere.writeProblem().isEmpty());
    EXPECT_FALSE(Preferences(nowhere).isOn(keys::hintsEnabled));
}

} // namespace quorvel
