#include "CoreRig.h"

#include "paste/CopyTools.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace quorvel::testing {

TEST(CopyTools, RewriteTheTextAndKeepItAsTheNewestClip) {
    const struct {
        void (CopyTools::*tool)();
        const char* text;
        const char* rewritten;
    } cases[]{
        {&CopyTools::copyClipboardAsPlainText, " Äb\n", " Äb\n"},
        {&CopyTools::copyClipboardTrimAndCollapse, "  a\n\n  b\tc  ", "a b c"},
        {&CopyTools::copyClipboardTrimAndCollapse, "\u00a0a\u2003\u2028b", "a b"},
        {&CopyTools::copyClipboardUppercase, "äbc ß ﬁ", "ÄBC SS FI"},
        {&CopyTools::copyClipboardLowercase, "ÄBC ΑΣ", "äbc ας"},
        {&CopyTools::copyClipboardTitleCase, "hello WORLD\nagain", "Hello World\nAgain"},
        {&CopyTools::copyClipboardTitleCase, "don't o'neill-smith 3rd", "Don't O'neill-Smith 3rd"},
        {&CopyTools::copyClipboardTitleCase, "élan ДОБРЫЙ день", "Élan Добрый День"},
        {&CopyTools::copyClipboardTitleCase, "e\u0301tude 👍🏽 x", "E\u0301tude 👍🏽 X"},
    };
    for (const auto& [tool, text, rewritten] : cases) {
        CoreRig rig;
        rig.watcher.start();
        rig.pasteboard.copyFromOutside(
            {{{{pasteboardTypeString, text}, {QStringLiteral("text/html"), "<b>rich</b>"}}}});
        rig.mainQueue.settle();
        QSignalSpy captured(&rig.history, &ClipboardHistory::entryCaptured);
        CopyTools tools(rig.pasteboard, rig.watcher);
        (tools.*tool)();
        rig.mainQueue.settle();
        EXPECT_EQ(captured.size(), 1) << "captured at once and not again";
        EXPECT_EQ(rig.first().text, QString::fromUtf8(rewritten));
        ASSERT_EQ(rig.pasteboard.items().size(), 1);
        EXPECT_EQ(rig.pasteboard.items().first(), textItem(QString::fromUtf8(rewritten)));
    }
}

TEST(CopyTools, WithoutTextNothingHappens) {
    CoreRig rig;
    rig.pasteboard.copyFromOutside({{{{pasteboardTypePng, "\x89PNG\r\n\x1a\n"}}}});
    CopyTools(rig.pasteboard, rig.watcher).copyClipboardUppercase();
    EXPECT_EQ(rig.pasteboard.writeCount(), 0);
}

} // namespace quorvel::testing
