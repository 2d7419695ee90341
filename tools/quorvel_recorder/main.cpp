#include "app/preferences/AppearanceOptions.h"
#include "foundation/BackgroundQueue.h"
#include "foundation/Clock.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HotKeyCenter.h"
#include "ui/QtAppearance.h"
#include "ui/recorder/HotKeyForm.h"

#include <QApplication>
#include <QBoxLayout>

#include <cstdio>

namespace {

using namespace quorvel;

constexpr const char* usage =
    "Usage: quorvel_recorder PREFERENCES [LANGUAGE]\n"
    "Shows the shortcuts that are stored in a settings file, lets them be changed, and tells "
    "which\n"
    "hot key is pressed. For trying them out; a running quorvel has the keys already.\n";

/// The form, and below it what was pressed last.
void fill(QWidget& window, HotKeyForm* form, GlobalHotKeys& hotKeys) {
    auto* pressed = new QLabel(QStringLiteral("–"));
    QObject::connect(
        &hotKeys, &GlobalHotKeys::pressed, pressed, [pressed](HotKeyId id, Modifiers held) {
            pressed->setText(
                QStringLiteral("id %1, modifiers 0x%2").arg(quint32(id)).arg(held.toInt(), 0, 16));
        });
    auto* rows = new QVBoxLayout(&window);
    rows->addWidget(form, 1);
    rows->addWidget(pressed);
}

int run(const QString& file, const QString& language) {
    const SystemClock clock;
    ThreadBackgroundQueue disk;
    PreferenceStore store(file, clock, disk);
    store.load();
    Preferences preferences(store);
    QtAppearance appearance;
    appearance.apply(themePreset(preferences));
    const StringTable strings = language.isEmpty() ? StringTable::forLocale(QLocale::system())
                                                   : StringTable::forLanguage(language);
    const Icons icons;
    const X11Connection connection;
    X11HotKeyCenter center(connection.root());
    GlobalHotKeys hotKeys(center, preferences, store);
    for (const ConfigurableHotKey& hotKey : configurableHotKeys)
        hotKeys.setHandling(hotKey.id, GlobalHotKeys::Handling::handled);
    hotKeys.registerAll();
    QWidget window;
    window.setWindowTitle(strings.text(QStringLiteral("hotKey.title")));
    fill(window, new HotKeyForm({strings, icons, center, preferences, store, hotKeys}), hotKeys);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::fputs(usage, stderr);
        return EXIT_FAILURE;
    }
    return run(arguments.at(1), arguments.value(2));
}
