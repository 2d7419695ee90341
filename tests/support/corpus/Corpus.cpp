#include "Corpus.h"

#include <QFile>

namespace quorvel::testing {

namespace {

const QString defaultRegion = QStringLiteral("US");

[[noreturn]] void giveUp(const QString& path, int line, const char* what) {
    qFatal("%s:%d: %s", qUtf8Printable(path), line, what);
}

QString unescaped(QStringView written) {
    QString text;
    for (qsizetype i = 0; i < written.size(); ++i) {
        if (written[i] != u'\\' || i + 1 == written.size()) {
            text += written[i];
            continue;
        }
        const QChar next = written[++i];
        text += next == u'n' ? QChar(u'\n') : next == u't' ? QChar(u'\t') : next;
    }
    return text;
}

/// Takes the brackets out of a text; false when they do not pair.
bool takeExtents(LabelledText& labelled) {
    QString plain;
    qsizetype open = -1;
    for (const QChar c : labelled.text) {
        if (c == QChar(0x27E6)) {
            if (open >= 0)
                return false;
            open = plain.size();
        } else if (c == QChar(0x27E7)) {
            if (open < 0)
                return false;
            labelled.extents.append({open, plain.size() - open});
            open = -1;
        } else {
            plain += c;
        }
    }
    labelled.text = plain;
    return open < 0;
}

} // namespace

QList<LabelledText> readCorpus(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        giveUp(path, 0, "cannot be read");
    QList<LabelledText> texts;
    QString region = defaultRegion;
    int number = 0;
    for (const QByteArray& bytes : file.readAll().split('\n')) {
        const QString line = QString::fromUtf8(bytes);
        ++number;
        if (line.startsWith(u"@region "))
            region = line.mid(8).trimmed();
        if (!line.startsWith(u"+ ") && !line.startsWith(u"- ")) {
            if (!line.isEmpty() && !line.startsWith(u'#') && !line.startsWith(u'@'))
                giveUp(path, number, "neither a text nor a comment nor a region");
            continue;
        }
        LabelledText text{number, line.startsWith(u'+'), region, unescaped(line.sliced(2)), {}};
        if (!takeExtents(text) || text.isPositive == text.extents.isEmpty())
            giveUp(path, number, "a positive text needs pairs of brackets, a negative one none");
        texts.append(text);
    }
    return texts;
}

} // namespace quorvel::testing
