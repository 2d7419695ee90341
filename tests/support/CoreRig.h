#pragma once

#include "FakePasteboard.h"
#include "FakeTextServices.h"
#include "FakeWorkspace.h"
#include "ManualTime.h"
#include "QtPrinting.h"

#include "clipboard/ClipboardHistory.h"
#include "clipboard/PasteboardWatcher.h"

#include <QTemporaryDir>

namespace quorvel::testing {

/// The parts that most core tests need, on time and disk driven by hand.
struct CoreRig {
    QTemporaryDir folder;
    ManualClock clock;
    ManualMainQueue mainQueue{clock};
    ManualDisk disk;
    PreferenceStore store{folder.filePath(QStringLiteral("preferences.json")), clock, disk};
    Preferences preferences{store};
    FakePasteboard pasteboard;
    FakeWorkspace workspace;
    ClipboardHistory history{preferences, clock};
    FakeTextServices textServices;
    SmartPluginRegistry smartPluginRegistry;
    SmartDetector detector{smartPluginRegistry, textServices.dataDetector(),
                           textServices.nameTagger()};
    PasteboardWatcher watcher{pasteboard, workspace, detector, history, clock, mainQueue};

    void insert(const QString& text) { history.insert({.text = text}); }

    QStringList texts() const {
        QStringList list;
        for (const RecentClipboardEntry& entry : history.recentClipboard())
            list.append(entry.text);
        return list;
    }

    QUuid idOf(const QString& text) const {
        for (const RecentClipboardEntry& entry : history.recentClipboard())
            if (entry.text == text)
                return entry.id;
        return {};
    }

    const RecentClipboardEntry& first() const { return history.recentClipboard().first(); }
};

} // namespace quorvel::testing
