#include "Judgement.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

namespace {

using namespace quorvel::testing;

void printMisses(const char* heading, const QList<Miss>& misses) {
    for (const Miss& miss : misses)
        std::printf("  %s line %d: %s\n      answer: %s\n", heading, miss.text.line,
                    qUtf8Printable(QString(miss.text.text).replace(u'\n', QStringLiteral("\\n"))),
                    qUtf8Printable(QString(miss.answer).replace(u'\n', QStringLiteral("\\n"))));
}

void print(const Report& report, bool isVerbose) {
    const Score& s = report.score;
    std::printf("%-8s %4d + %4d -   precision %.4f   recall %.4f   exact parts %.4f\n",
                qUtf8Printable(report.kind), s.truePositives + s.falseNegatives,
                s.trueNegatives + s.falsePositives, s.precision(), s.recall(), s.exactness());
    if (!isVerbose)
        return;
    printMisses("WRONG", report.misses);
    printMisses("inexact", report.inexact);
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    QStringList paths = QCoreApplication::arguments().mid(1);
    const bool isVerbose = paths.removeAll(QStringLiteral("--misses")) > 0;
    if (paths.isEmpty()) {
        std::fputs("Usage: quorvel_corpus_report [--misses] tests/corpus/KIND.txt...\n"
                   "Prints how right the detection of each kind is on its labelled texts.\n",
                   stderr);
        return 2;
    }
    for (const QString& path : paths)
        print(judge(QFileInfo(path).completeBaseName(), readCorpus(path)), isVerbose);
    return 0;
}
