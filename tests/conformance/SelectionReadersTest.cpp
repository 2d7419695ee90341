#include "platform/x11/SelectionReaders.h"

#include "conformance/TestDesktop.h"
#include "platform/x11/UserInput.h"
#include "platform/x11/XcbReply.h"
#include "support/WaitUntil.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

constexpr quint32 program = 0x200000;
constexpr xcb_atom_t types = 10;
constexpr xcb_atom_t text = 11;
constexpr xcb_atom_t markup = 12;

/// Offers are named by the time at which they were made; the clock is moved by hand.
class SelectionReadersTest : public testing::Test {
protected:
    void expect(xcb_timestamp_t offer) {
        readers.expect(program, offer, [this, offer] { fetched.push_back(offer); });
    }
    void advance(std::chrono::milliseconds duration) {
        now += duration;
        readers.endDue();
    }
    /// The offer that an answer comes from; 0 for what everybody gets.
    xcb_timestamp_t ask(xcb_atom_t target, xcb_timestamp_t time = XCB_CURRENT_TIME) {
        const SelectionReaders::Question question{target, target != types, time};
        const auto offer = readers.offeredTo(program, question);
        if (offer)
            readers.answered(program, *offer, question);
        return offer.value_or(0);
    }

    SelectionReaders::Clock::time_point now{};
    SelectionReaders::Clock::time_point lastInput{};
    SelectionReaders readers{{[this] { return now; }, [this] { return now - lastInput; }}};
    std::vector<xcb_timestamp_t> fetched;
};

TEST_F(SelectionReadersTest, severalPastesOfAProgramThatHungAreServedInTheirOrder) {
    struct Step {
        xcb_atom_t target;
        xcb_timestamp_t offer;
    };
    const std::vector<std::vector<Step>> ways{
        {{text, 100}, {text, 200}},
        {{types, 100}, {text, 100}, {types, 200}, {text, 200}},
        {{types, 100}, {types, 100}, {markup, 100}, {text, 100}, {types, 200}, {markup, 200}},
    };
    for (const std::vector<Step>& steps : ways) {
        SCOPED_TRACE(&steps - ways.data());
        fetched.clear();
        expect(100);
        advance(1500ms);
        expect(200);
        for (const Step& step : steps)
            EXPECT_EQ(ask(step.target), step.offer);
        advance(300ms);
        EXPECT_EQ(fetched, (std::vector<xcb_timestamp_t>{100, 200}));
        EXPECT_EQ(ask(text), 0U) << "it has all";
        readers.endAll();
    }
}

TEST_F(SelectionReadersTest, aQuestionWithATimeBelongsToTheLastPasteByThen) {
    expect(100);
    expect(200);
    EXPECT_EQ(ask(text, 250), 200U);
    EXPECT_EQ(ask(text, 150), 100U);
    EXPECT_EQ(ask(text, 50), 0U);
}

TEST_F(SelectionReadersTest, whoHangsIsWaitedForWhileTheUserTouchesNothing) {
    const struct {
        const char* what;
        std::chrono::milliseconds untilQuestion;
        std::chrono::milliseconds untilInput;
        xcb_timestamp_t time;
        xcb_timestamp_t offer;
    } cases[]{
        {"at once", 10ms, 0ms, XCB_CURRENT_TIME, 100},
        {"after a while", 4s, 0ms, XCB_CURRENT_TIME, 100},
        {"after clicks into the hung window", 4s, 2s, XCB_CURRENT_TIME, 100},
        {"after a paste of the user's own", 4s, 3900ms, XCB_CURRENT_TIME, 0},
        {"after a paste of the user's own, by its time", 4s, 0ms, 4000, 0},
        {"after more than a minute", 64s, 0ms, XCB_CURRENT_TIME, 0},
    };
    for (const auto& testCase : cases) {
        SCOPED_TRACE(testCase.what);
        lastInput = now + testCase.untilInput;
        expect(100);
        EXPECT_TRUE(readers.isAnyoneExpected());
        advance(testCase.untilQuestion);
        EXPECT_EQ(readers.isAnyoneExpected(), testCase.untilQuestion < 3s);
        EXPECT_EQ(ask(text, testCase.time), testCase.offer);
        EXPECT_EQ(ask(markup, testCase.time), testCase.offer);
        readers.endAll();
    }
}

TEST(UserInput, isAsLongAgoAsTheDisplaySays) {
    const XcbConnection connection(xcb_connect(nullptr, nullptr));
    ASSERT_TRUE(waitUntil([&] { return timeSinceUserInput(connection.get()) > 50ms; }));
    const auto before = timeSinceUserInput(connection.get());
    testDesktop().run(QStringLiteral("xdotool"),
                      {QStringLiteral("key"), QStringLiteral("Shift_L")});
    EXPECT_TRUE(waitUntil([&] { return timeSinceUserInput(connection.get()) < before; }));
}

} // namespace

} // namespace quorvel
