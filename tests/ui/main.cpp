#include "ui/Application.h"
#include "ui/UiDesktop.h"

#include <gtest/gtest.h>

namespace quorvel {

namespace {

std::unique_ptr<PrivateDesktop> desktop;

void moveTo(const PrivateDesktop& place) {
    qputenv("DISPLAY", place.display().toLatin1());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("HOME", place.home().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", place.configHome().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", place.runtimeFolder().toLocal8Bit());
}

} // namespace

PrivateDesktop& uiDesktop() {
    return *desktop;
}

void xdotool(const QStringList& arguments) {
    const ProgramResult result = desktop->run(QStringLiteral("xdotool"), arguments);
    EXPECT_EQ(result.exitCode, 0) << result.errors.constData();
}

void pressKeys(const char* keys) {
    xdotool({QStringLiteral("key"), QString::fromLatin1(keys)});
}

} // namespace quorvel

int main(int argc, char** argv) {
    using namespace quorvel;
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    desktop = std::make_unique<PrivateDesktop>();
    moveTo(*desktop);
    int result = 0;
    {
        Application application(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
        result = RUN_ALL_TESTS();
    }
    desktop.reset();
    return result;
}
