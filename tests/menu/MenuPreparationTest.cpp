#include "MenuRig.h"

#include <gtest/gtest.h>

namespace quorvel::testing {

TEST(MenuPreparation, LooksAtSnippetsBeforeTheMenuHasTo) {
    MenuRig rig;
    MenuPreparation preparation(rig.content, rig.folderSnippets, rig.history, rig.snippets,
                                rig.mainQueue);
    const QUuid id = rig.addSnippet(QStringLiteral("a"), QStringLiteral("text of a"));
    rig.addSnippet(QStringLiteral("b"), QStringLiteral("text of b"));
    const auto detectionsAfter = [&](const auto& act) {
        const int before = rig.textServices.detections;
        act();
        return rig.textServices.detections - before;
    };
    const auto wait = [&] { rig.mainQueue.advance(MenuPreparation::delay); };
    const auto build = [&] { statusMenu(rig.content, {}); };
    EXPECT_EQ(detectionsAfter(wait), 2);
    EXPECT_EQ(detectionsAfter(build), 0);
    rig.snippets.editSnippet(id, {.title = QStringLiteral("a"), .text = QStringLiteral("other")});
    EXPECT_EQ(detectionsAfter(wait), 1);
    EXPECT_EQ(detectionsAfter(build), 0);
    rig.addSnippet(QStringLiteral("c"), QStringLiteral("text of c"));
    EXPECT_EQ(detectionsAfter(build), 1) << "a menu that opens at once is complete as well";
}

} // namespace quorvel::testing
