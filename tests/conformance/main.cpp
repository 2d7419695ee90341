#include "conformance/TestDesktop.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

namespace quorvel {

namespace {

std::unique_ptr<PrivateDesktop> desktop;

void moveTo(const PrivateDesktop& place) {
    qputenv("DISPLAY", place.display().toLatin1());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("HOME", place.home().toLocal8Bit());
    qputenv("XDG_DATA_HOME", place.dataHome().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", place.configHome().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", place.runtimeFolder().toLocal8Bit());
}

} // namespace

PrivateDesktop& testDesktop() {
    return *desktop;
}

} // namespace quorvel

int main(int argc, char** argv) {
    using namespace quorvel;
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    // On a display of one's own choice the tests can be watched, or pointed at another server.
    PrivateDesktop::Options options;
    options.display = qEnvironmentVariable("QUORVEL_TEST_DISPLAY");
    desktop = std::make_unique<PrivateDesktop>(options);
    moveTo(*desktop);
    int result = 0;
    {
        const QGuiApplication application(argc, argv);
        result = RUN_ALL_TESTS();
    }
    desktop.reset();
    return result;
}
