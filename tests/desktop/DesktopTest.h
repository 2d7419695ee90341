#pragma once

#include "support/PrivateDesktop.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <iostream>

namespace quorvel {

/// A test of the real program on a desktop of its own. A failure leaves a picture of the desktop
/// and what the program said.
class DesktopTest : public testing::Test {
protected:
    void TearDown() override {
        if (HasFailure() && m_desktop)
            keepEvidence();
        m_program.reset();
        m_desktop.reset();
    }

    PrivateDesktop& desktop() { return *m_desktop; }
    ChildProgram& program() { return *m_program; }

    void startDesktop(TrayHost tray, bool sessionBus = false) {
        PrivateDesktop::Options options;
        options.tray = tray;
        options.sessionBus = sessionBus;
        m_desktop = std::make_unique<PrivateDesktop>(options);
    }

    /// Starts the program and waits until it can be talked to.
    [[nodiscard]] bool startProgram(const QStringList& arguments = {}) {
        m_program = m_desktop->start(QStringLiteral(QUORVEL_PROGRAM), arguments);
        return waitUntil([&] {
                   return !m_program->isRunning() ||
                          control({QStringLiteral("status")}).exitCode == 0;
               }) &&
               m_program->isRunning();
    }

    ProgramResult control(const QStringList& arguments, const QByteArray& input = {}) {
        return m_desktop->run(QStringLiteral(QUORVEL_CONTROL_PROGRAM), arguments, input);
    }

    /// The clips as the program lists them, newest first; empty when it does not answer.
    QJsonArray clips() {
        const ProgramResult list = control({QStringLiteral("list"), QStringLiteral("--json")});
        return QJsonDocument::fromJson(list.output).array();
    }

    QString newestText() { return clips().at(0).toObject()[QStringLiteral("text")].toString(); }

    QJsonObject status() {
        const ProgramResult answer = control({QStringLiteral("status"), QStringLiteral("--json")});
        return QJsonDocument::fromJson(answer.output).object();
    }

    /// Copies as a user's program does: it stays behind and owns the clipboard.
    void copyWithXclip(const QByteArray& text) {
        const ProgramResult copied =
            m_desktop->run(QStringLiteral("xclip"),
                           {QStringLiteral("-selection"), QStringLiteral("clipboard")}, text);
        ASSERT_EQ(copied.exitCode, 0) << copied.errors.constData();
    }

private:
    void keepEvidence() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        const QDir folder(QStringLiteral(QUORVEL_FAILURES_FOLDER));
        folder.mkpath(QStringLiteral("."));
        QString name =
            QStringLiteral("%1.%2.png")
                .arg(QString::fromUtf8(test->test_suite_name()), QString::fromUtf8(test->name()));
        const QString picture = folder.filePath(name.replace(u'/', u'-'));
        if (m_desktop->screenshot(picture))
            std::cerr << "picture of the desktop: " << picture.toStdString() << '\n';
        if (m_program)
            std::cerr << "the program said: " << m_program->errors().toStdString() << '\n';
    }

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<ChildProgram> m_program;
};

} // namespace quorvel
