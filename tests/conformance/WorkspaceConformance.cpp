#include "conformance/TestDesktop.h"
#include "conformance/X11Outside.h"
#include "platform/x11/X11Workspace.h"
#include "support/FakeWorkspace.h"
#include "support/QtPrinting.h"

#include <QAbstractEventDispatcher>
#include <QFile>

#include <gtest/gtest.h>

#include <unistd.h>

namespace quorvel {

namespace {

using namespace std::chrono_literals;

/// A workspace and the user who opens, chooses and closes the windows of other programs.
class WorkspaceOutside {
public:
    virtual ~WorkspaceOutside() = default;

    virtual Workspace& workspace() = 0;

    /// Opens a program's window with two elements and goes to the first one.
    virtual FocusTarget open(const QByteArray& name) = 0;
    virtual quint64 secondElement(const FocusTarget& target) = 0;
    virtual void go(const FocusTarget& target) = 0;
    virtual void close(const FocusTarget& target) = 0;
};

class FakeWorkspaceOutside final : public WorkspaceOutside {
public:
    Workspace& workspace() override { return m_workspace; }
    FocusTarget open(const QByteArray& name) override {
        const FocusTarget target = {::getpid(), ++m_last * 10, m_last * 10 + 1};
        m_names.insert(target.window, QString::fromLatin1(name));
        go(target);
        return target;
    }
    quint64 secondElement(const FocusTarget& target) override { return target.window + 2; }
    void go(const FocusTarget& target) override {
        RunningApplication application;
        application.processIdentifier = target.processIdentifier;
        application.window = target.window;
        application.name = m_names.value(target.window);
        m_workspace.setFrontmost(application, target.element);
    }
    void close(const FocusTarget& target) override {
        m_workspace.end(target.window);
        m_workspace.setFrontmost(std::nullopt);
    }

private:
    FakeWorkspace m_workspace;
    quint64 m_last = 0;
    QHash<quint64, QString> m_names;
};

/// A workspace on this or another display, with no desktop file but those of a test.
class X11WorkspaceOutside final : public WorkspaceOutside {
public:
    explicit X11WorkspaceOutside(const QString& display = {})
        : m_other(display.toLatin1())
        , m_connection(display.toLatin1()) {}

    Workspace& workspace() override { return m_workspace; }
    X11Outside& other() { return m_other; }
    QString folder() const { return m_folder.path(); }

    FocusTarget open(const QByteArray& name) override {
        const xcb_window_t window = m_other.open(name);
        const xcb_window_t first = m_other.addElement(window);
        m_second.insert(window, m_other.addElement(window));
        const FocusTarget target = {::getpid(), window, first};
        go(target);
        return target;
    }
    quint64 secondElement(const FocusTarget& target) override {
        return m_second.value(target.window);
    }
    void go(const FocusTarget& target) override { m_other.focus(xcb_window_t(target.element)); }
    void close(const FocusTarget& target) override { m_other.close(xcb_window_t(target.window)); }

private:
    QTemporaryDir m_folder;
    X11Outside m_other;
    X11Connection m_connection;
    SystemClock m_clock;
    ThreadBackgroundQueue m_background;
    DesktopFiles m_desktopFiles{{{m_folder.path()}, {}}, m_clock, m_background};
    X11Workspace m_workspace{m_connection, m_desktopFiles};
    QHash<quint64, quint64> m_second;
};

struct Adapter {
    const char* name;
    std::unique_ptr<WorkspaceOutside> (*make)();
};

std::ostream& operator<<(std::ostream& stream, const Adapter& adapter) {
    return stream << adapter.name;
}

const PrivateDesktop& bareDesktop() {
    static PrivateDesktop::Options options{.windowManager = false};
    static const PrivateDesktop desktop(options);
    return desktop;
}

class WorkspaceConformance : public testing::TestWithParam<Adapter> {
protected:
    WorkspaceConformance() {
        QObject::connect(&workspace, &Workspace::focusChanged, &workspace, [this] { ++changes; });
    }
    FocusTarget front() const {
        const auto application = workspace.frontmostApplication();
        if (!application)
            return {};
        return {application->processIdentifier, application->window, workspace.focusedElement()};
    }
    bool comesToFront(const FocusTarget& target) {
        return waitUntil([&] { return front() == target; });
    }
    bool isAnnouncedAfter(int count) {
        return waitUntil([&] { return changes > count; });
    }

    std::unique_ptr<WorkspaceOutside> outside = GetParam().make();
    Workspace& workspace = outside->workspace();
    int changes = 0;
};

TEST_P(WorkspaceConformance, theWindowThatTheUserGoesToIsInFront) {
    ASSERT_TRUE(workspace.announcesChanges());
    const FocusTarget first = outside->open("First");
    const FocusTarget second = outside->open("Second");
    for (const FocusTarget& target : {first, second, first}) {
        const int before = changes;
        outside->go(target);
        EXPECT_TRUE(comesToFront(target));
        const auto application = workspace.frontmostApplication();
        EXPECT_EQ(application->name, QString::fromLatin1(target == first ? "First" : "Second"));
        EXPECT_EQ(application->bundleIdentifier, std::nullopt);
        EXPECT_EQ(application->kind, ApplicationKind::ordinary);
        EXPECT_TRUE(target == second || before == changes || isAnnouncedAfter(before));
    }
}

TEST_P(WorkspaceConformance, everyMoveIsAnnounced) {
    FocusTarget one = outside->open("One");
    const FocusTarget two = outside->open("Two");
    ASSERT_TRUE(comesToFront(two));
    QList<FocusTarget> seen;
    QObject::connect(&workspace, &Workspace::focusChanged, &workspace,
                     [&] { seen.append(front()); });
    const FocusTarget inside = {one.processIdentifier, one.window, outside->secondElement(one)};
    for (const FocusTarget& target : {one, inside, one, two, inside}) {
        outside->go(target);
        EXPECT_TRUE(waitUntil([&] { return !seen.isEmpty() && seen.last() == target; }));
    }
}

TEST_P(WorkspaceConformance, activateBringsAWindowBackWithTheFocusInItsElement) {
    const FocusTarget target = outside->open("Target");
    const FocusTarget other = outside->open("Other");
    const FocusTarget neighbour = {target.processIdentifier, target.window,
                                   outside->secondElement(target)};
    for (const FocusTarget& from : {other, neighbour, target}) {
        outside->go(from);
        ASSERT_TRUE(comesToFront(from));
        workspace.activate(target);
        EXPECT_TRUE(comesToFront(target));
    }
}

TEST_P(WorkspaceConformance, aClosedWindowIsNotRunningAndCannotBeActivated) {
    const FocusTarget stays = outside->open("Stays");
    const FocusTarget closed = outside->open("Closed");
    EXPECT_TRUE(workspace.isRunning(closed));
    const int before = changes;
    outside->close(closed);
    EXPECT_FALSE(workspace.isRunning(closed));
    EXPECT_TRUE(workspace.isRunning(stays));
    EXPECT_TRUE(isAnnouncedAfter(before));
    workspace.activate(closed);
    outside->go(stays);
    EXPECT_TRUE(comesToFront(stays));
}

INSTANTIATE_TEST_SUITE_P(
    Adapters, WorkspaceConformance,
    testing::Values(Adapter{"fake",
                            []() -> std::unique_ptr<WorkspaceOutside> {
                                return std::make_unique<FakeWorkspaceOutside>();
                            }},
                    Adapter{"x11",
                            []() -> std::unique_ptr<WorkspaceOutside> {
                                return std::make_unique<X11WorkspaceOutside>();
                            }},
                    Adapter{"x11WithoutWindowManager",
                            []() -> std::unique_ptr<WorkspaceOutside> {
                                return std::make_unique<X11WorkspaceOutside>(
                                    bareDesktop().display());
                            }}),
    [](const auto& adapter) { return std::string(adapter.param.name); });

class X11WorkspaceTest : public testing::Test {
protected:
    bool isInFront(quint64 window) {
        return waitUntil([&] {
            const auto application = workspace.frontmostApplication();
            return application && application->window == window;
        });
    }

    X11WorkspaceOutside outside;
    Workspace& workspace = outside.workspace();
};

TEST_F(X11WorkspaceTest, aDesktopFileGivesNameAndIdentifier) {
    QFile file(outside.folder() + QStringLiteral("/org.example.Notes.desktop"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nName=Field Notes\nExec=notes %f\n");
    file.close();
    const FocusTarget target = outside.open("Notes");
    ASSERT_TRUE(isInFront(target.window));
    const auto application = workspace.frontmostApplication();
    EXPECT_EQ(application->name, QStringLiteral("Field Notes"));
    EXPECT_EQ(application->bundleIdentifier, QStringLiteral("org.example.Notes"));
}

TEST_F(X11WorkspaceTest, panelsAndDesktopsAreOverlays) {
    for (const char* type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"}) {
        const xcb_window_t window = outside.other().open("Panel", type);
        outside.other().focus(window);
        ASSERT_TRUE(isInFront(window)) << type;
        EXPECT_EQ(workspace.frontmostApplication()->kind, ApplicationKind::overlay);
        outside.other().close(window);
    }
}

TEST_F(X11WorkspaceTest, realProgramsAreKnownByTheirProcess) {
    const auto terminal = testDesktop().start(QStringLiteral("xterm"));
    std::optional<RunningApplication> front;
    ASSERT_TRUE(waitUntil([&] {
        front = workspace.frontmostApplication();
        return front && front->processIdentifier == terminal->pid();
    })) << "told by the server: xterm does not say it";
    EXPECT_EQ(front->name, QStringLiteral("XTerm"));
    const FocusTarget target = {terminal->pid(), front->window, workspace.focusedElement()};
    EXPECT_TRUE(workspace.isRunning(target));
    terminal->kill();
    EXPECT_TRUE(waitUntil([&] { return !workspace.isRunning(target); }));
}

TEST_F(X11WorkspaceTest, windowsThatVanishAtAnyMomentDoNoHarm) {
    const FocusTarget stays = outside.open("Stays");
    for (int i = 0; i < 30; ++i) {
        const FocusTarget target = outside.open("Vanishing");
        // Neither waits for the other here: the answers may come before, between and after.
        xcb_destroy_window(outside.other().connection().xcb(), xcb_window_t(target.window));
        workspace.activate(target);
        outside.other().connection().flush();
        workspace.frontmostApplication();
        workspace.focusedElement();
        EXPECT_TRUE(waitUntil([&] { return !workspace.isRunning(target); }));
    }
    outside.go(stays);
    EXPECT_TRUE(isInFront(stays.window));
}

TEST(X11WorkspaceLoss, aLostDisplayIsQuietAndKnowsNothing) {
    PrivateDesktop::Options options;
    options.windowManager = false;
    auto desktop = std::make_unique<PrivateDesktop>(options);
    X11Connection connection(desktop->display().toLatin1());
    const SystemClock clock;
    ThreadBackgroundQueue background;
    DesktopFiles desktopFiles({}, clock, background);
    X11Workspace workspace(connection, desktopFiles);
    int changes = 0;
    QObject::connect(&workspace, &Workspace::focusChanged, &workspace, [&] { ++changes; });
    ASSERT_TRUE(workspace.announcesChanges());
    desktop.reset();
    EXPECT_TRUE(waitUntil([&] { return !workspace.announcesChanges(); }));
    EXPECT_FALSE(workspace.frontmostApplication().has_value());
    EXPECT_EQ(workspace.focusedElement(), 0U);
    EXPECT_FALSE(workspace.isRunning({::getpid(), 1, 0}));
    workspace.activate({::getpid(), 1, 0});
    // A dead connection that kept waking the loop would do so at every turn.
    int turns = 0;
    while (turns < 1000 &&
           QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents))
        ++turns;
    EXPECT_LT(turns, 1000);
    EXPECT_EQ(changes, 0);
}

} // namespace

} // namespace quorvel
