#pragma once

#include "platform/Terminal.h"

#include <QProcessEnvironment>

namespace quorvel {

/// The user's terminal program with our own `quorvel-terminal` inside. The command goes from us to
/// it in a private file that it deletes; no argument of any program holds a part of it.
class DesktopTerminal final : public Terminal {
public:
    struct Setup {
        QString helper;        ///< Path of `quorvel-terminal`.
        QString folder;        ///< For the private files; made when it is missing.
        QString firstLineNote; ///< What the helper says when only the first line could be typed.
        QProcessEnvironment environment; ///< Of the session, for what is started.
    };

    explicit DesktopTerminal(Setup setup);

    TerminalResult run(const QString& command) override;
    TerminalResult type(const QString& command) override;

private:
    TerminalResult start(const char* task, const QString& command) const;
    QString writtenFile(const char* task, const QString& command) const;
    void removeLeftFiles() const;

    const Setup m_setup;
};

} // namespace quorvel
