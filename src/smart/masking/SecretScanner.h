#pragma once

#include "smart/masking/Labels.h"
#include "smart/masking/PrivateKeys.h"

namespace quorvel {

/// Goes once over a text, stops at cheap anchors (ends of label words, beginnings of token forms,
/// digits, "://", dashes, long runs) and asks the matchers there.
class SecretScanner {
public:
    explicit SecretScanner(QStringView text)
        : m_text(text)
        , m_armour(text) {}

    /// Where secrets were found; may overlap.
    QList<SecretRange> scan();

private:
    void readWord(qsizetype start, qsizetype end);
    void readMark(qsizetype at);
    void readToken(qsizetype start);
    void readDigits(qsizetype start, qsizetype end);
    void readLabel(qsizetype end);
    void readValue(const Label& label);
    void readPlainLabels(qsizetype start, qsizetype end);
    void readCommand(qsizetype start, qsizetype end);
    void readRun(qsizetype start);
    void readForms(qsizetype start, qsizetype end);
    bool readListOrColumn(const Label& label);
    void readCall(qsizetype start, qsizetype end);
    void hide(SecretRange range);

    QStringView m_text;
    ArmourReader m_armour;
    QList<SecretRange> m_found;

    /// Where to go on; beyond what a matcher has read.
    qsizetype m_next = 0;

    /// The run of data characters around the current place begins here.
    qsizetype m_runStart = 0;
    qsizetype m_runChecked = 0;
    qsizetype m_urlEnd = 0;
    qsizetype m_commandEnd = 0;
    qsizetype m_tableEnd = 0;
    qsizetype m_groupsEnd = 0;
};

} // namespace quorvel
