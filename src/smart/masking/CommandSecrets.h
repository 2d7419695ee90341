#pragma once

#include "smart/masking/SecretMasker.h"

namespace quorvel {

struct CommandReading {
    QList<SecretRange> hidden;
    qsizetype end = 0;
};

/// Whether a word is a program that takes passwords in options of its own.
bool isSecretCommand(QStringView word);

/// The passwords among the arguments of the program named there.
CommandReading commandSecretsAt(QStringView text, qsizetype start, qsizetype wordEnd);

} // namespace quorvel
