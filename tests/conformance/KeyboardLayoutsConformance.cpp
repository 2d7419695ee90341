#include "conformance/RealLayouts.h"
#include "conformance/TestDesktop.h"
#include "platform/x11/X11KeyboardLayouts.h"
#include "support/QtPrinting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quorvel {

namespace {

/// Layouts and the user who configures them.
class LayoutsOutside {
public:
    virtual ~LayoutsOutside() = default;

    virtual KeyboardLayouts& layouts() = 0;
    virtual void configure(const QString& layouts, const QString& variants) = 0;
};

class FakeLayoutsOutside final : public LayoutsOutside {
public:
    KeyboardLayouts& layouts() override { return m_layouts; }
    void configure(const QString& layouts, const QString& variants) override {
        m_layouts.configure(realLayouts(layoutIDs(layouts, variants).join(u',')));
    }

private:
    FakeKeyboardLayouts m_layouts;
};

class X11LayoutsOutside final : public LayoutsOutside {
public:
    ~X11LayoutsOutside() override { configure(QStringLiteral("us"), {}); }

    KeyboardLayouts& layouts() override { return m_layouts; }
    void configure(const QString& layouts, const QString& variants) override {
        const auto result =
            testDesktop().run(QStringLiteral("setxkbmap"),
                              {QStringLiteral("-layout"), layouts, QStringLiteral("-variant"),
                               variants.isEmpty() ? QStringLiteral(",") : variants});
        EXPECT_EQ(result.exitCode, 0) << result.errors.constData();
    }

private:
    X11Connection m_connection;
    X11KeyboardLayouts m_layouts{m_connection};
};

struct Adapter {
    const char* name;
    std::unique_ptr<LayoutsOutside> (*make)();
};

std::ostream& operator<<(std::ostream& stream, const Adapter& adapter) {
    return stream << adapter.name;
}

class KeyboardLayoutsConformance : public testing::TestWithParam<Adapter> {
protected:
    QStringList ids() {
        QStringList list;
        for (const KeyboardLayoutMap& map : layouts.maps())
            list.append(map.id);
        return list;
    }
    bool reach(const QStringList& expected) {
        return waitUntil([&] { return ids() == expected; });
    }

    std::unique_ptr<LayoutsOutside> outside = GetParam().make();
    KeyboardLayouts& layouts = outside->layouts();
};

TEST_P(KeyboardLayoutsConformance, AllConfiguredLayoutsHaveMaps) {
    outside->configure(QStringLiteral("us,ru,us,gr"), QStringLiteral(",,dvorak,"));
    ASSERT_TRUE(reach({QStringLiteral("us"), QStringLiteral("ru"), QStringLiteral("us(dvorak)"),
                       QStringLiteral("gr")}));
    // As made from the keyboard data alone: the server adds and loses nothing.
    const auto expected = realLayouts(ids().join(u','));
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const KeyboardLayoutMap& map = layouts.maps().at(i);
        EXPECT_EQ(map.name, expected.at(i).name);
        EXPECT_EQ(map.charToStroke, expected.at(i).charToStroke) << map.id.toStdString();
        EXPECT_EQ(map.strokeToMark, expected.at(i).strokeToMark) << map.id.toStdString();
    }
}

TEST_P(KeyboardLayoutsConformance, TheActiveLayoutFollowsTheUser) {
    outside->configure(QStringLiteral("us,il"), {});
    ASSERT_TRUE(reach({QStringLiteral("us"), QStringLiteral("il")}));
    for (const QString& id : {QStringLiteral("il"), QStringLiteral("us")}) {
        layouts.activate(id);
        EXPECT_TRUE(waitUntil([&] { return layouts.activeID() == id; })) << id.toStdString();
    }
    layouts.activate(QStringLiteral("de"));
    EXPECT_EQ(layouts.activeID(), QStringLiteral("us"));
}

TEST_P(KeyboardLayoutsConformance, AChangeIsAnnouncedOnceItIsAskedFor) {
    int changes = 0;
    QObject::connect(&layouts, &KeyboardLayouts::configurationChanged, &layouts,
                     [&] { ++changes; });
    outside->configure(QStringLiteral("us,ua"), {});
    ASSERT_TRUE(reach({QStringLiteral("us"), QStringLiteral("ua")}));
    const int before = changes;
    outside->configure(QStringLiteral("de,us"), {});
    EXPECT_TRUE(waitUntil([&] { return changes > before; }));
    EXPECT_TRUE(reach({QStringLiteral("de"), QStringLiteral("us")}));
}

INSTANTIATE_TEST_SUITE_P(Adapters, KeyboardLayoutsConformance,
                         testing::Values(Adapter{"fake",
                                                 []() -> std::unique_ptr<LayoutsOutside> {
                                                     return std::make_unique<FakeLayoutsOutside>();
                                                 }},
                                         Adapter{"x11",
                                                 []() -> std::unique_ptr<LayoutsOutside> {
                                                     return std::make_unique<X11LayoutsOutside>();
                                                 }}),
                         [](const auto& adapter) { return std::string(adapter.param.name); });

/// Which key gives a character, and what a key gives, in layouts of the system.
TEST(XkbLayoutMaps, KeysAreThoseThatPeopleUse) {
    constexpr quint16 comma = 59;
    constexpr quint16 lessThan = 94;
    constexpr quint16 nine = 18;
    constexpr quint16 semicolon = 47;
    const struct {
        QString layout;
        QString character;
        KeyboardLayoutStroke stroke;
    } cases[]{
        {u"us"_qs, u"<"_qs, {comma, shiftKeyState}}, {u"de"_qs, u"<"_qs, {lessThan, 0}},
        {u"us"_qs, u"("_qs, {nine, shiftKeyState}},  {u"us"_qs, u"9"_qs, {nine, 0}},
        {u"gr"_qs, u"\u0301"_qs, {semicolon, 0}},    {u"gr"_qs, u"\u00B4"_qs, {semicolon, 0}},
        {u"de"_qs, u"ö"_qs, {semicolon, 0}},
    };
    for (const auto& [layout, character, stroke] : cases)
        EXPECT_EQ(realLayouts(layout).first().charToStroke.value(character), stroke)
            << layout.toStdString() << " " << character.toStdString();
    EXPECT_EQ(layoutIDs(u"us, us,ru", u",dvorak"),
              (QStringList{u"us"_qs, u"us(dvorak)"_qs, u"ru"_qs}));
}

} // namespace

} // namespace quorvel
