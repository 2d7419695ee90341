#include "conformance/X11PasteboardOutside.h"

#include "support/DisplayProbe.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <stdexcept>

namespace quorvel {

namespace {

const QString utf8String = QStringLiteral("UTF8_STRING");

SelectionAnswer::Kind kindOf(const QByteArray& word) {
    if (word == "received")
        return SelectionAnswer::Kind::received;
    return word == "refused" ? SelectionAnswer::Kind::refused : SelectionAnswer::Kind::timedOut;
}

/// One answer from the front of the reader's output.
SelectionAnswer takeAnswer(QByteArray& output) {
    const qsizetype end = output.indexOf('\n');
    const QByteArrayList words = output.left(end).split(' ');
    output.remove(0, end + 1);
    SelectionAnswer answer;
    answer.kind = kindOf(words.value(1));
    if (answer.kind != SelectionAnswer::Kind::received)
        return answer;
    const qsizetype size = words.value(4).toLongLong();
    answer.type = words.value(2);
    answer.inPieces = words.value(5) == "INCR";
    answer.bytes = output.left(size);
    output.remove(0, size + 1);
    return answer;
}

} // namespace

X11PasteboardOutside::X11PasteboardOutside(TransferLimits limits) {
    testDesktop().endBackgroundPrograms();
    if (!waitUntil([] { return testDesktop().probe().owner("CLIPBOARD") == 0; }))
        throw std::runtime_error("somebody keeps the clipboard");
    m_pasteboard = std::make_unique<X11Pasteboard>(nullptr, limits);
    if (!m_pasteboard->isConnected())
        throw std::runtime_error("the pasteboard has not reached the display");
}

X11PasteboardOutside::~X11PasteboardOutside() = default;

QString X11PasteboardOutside::fileWith(const QByteArray& bytes) {
    const QString path =
        QDir(testDesktop().folder()).filePath(QStringLiteral("content-%1").arg(++m_files));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write a content file");
    return path;
}

ChildProgram& X11PasteboardOutside::startOwner(const QStringList& arguments) {
    m_owners.push_back(testDesktop().start(QStringLiteral(QUORVEL_RAW_OWNER), arguments));
    ChildProgram& started = *m_owners.back();
    waitUntil([&] { return started.hasPrinted("ready") || !started.isRunning(); });
    if (!started.hasPrinted("ready"))
        throw std::runtime_error("no selection owner: " + started.errors().toStdString());
    return started;
}

void X11PasteboardOutside::copy(const ClipboardSnapshotItem& item) {
    QStringList arguments;
    for (const PasteboardRepresentation& representation : item.payloadByType)
        arguments.append(representation.type + QStringLiteral("=@") +
                         fileWith(representation.data));
    startOwner(arguments);
}

void X11PasteboardOutside::copySlowly(const QString& text) {
    startOwner({QStringLiteral("--delay"), QStringLiteral("200"), QStringLiteral("--text"), text});
}

void X11PasteboardOutside::clear() {
    if (m_owners.empty() || !owner().isRunning())
        startOwner({QStringLiteral("--text"), QStringLiteral("about to be cleared")});
    owner().signal(SIGUSR1);
    waitUntil([this] { return owner().hasPrinted("cleared"); });
}

void X11PasteboardOutside::copySecret(const QByteArray& text) {
    startOwner({QStringLiteral("--secret"), utf8String + QStringLiteral("=@") + fileWith(text)});
}

void X11PasteboardOutside::copyAndHang() {
    startOwner({QStringLiteral("--silent"), QStringLiteral("--text"), QStringLiteral("never")});
}

QList<SelectionAnswer> X11PasteboardOutside::request(const QStringList& targets,
                                                     const QStringList& options) {
    const ProgramResult read =
        testDesktop().run(QStringLiteral(QUORVEL_RAW_READER), options + targets);
    QByteArray output = read.output;
    QList<SelectionAnswer> answers;
    for (qsizetype i = 0; i < targets.size(); ++i)
        answers.append(takeAnswer(output));
    return answers;
}

std::optional<QByteArray> X11PasteboardOutside::paste(const QString& type) {
    const SelectionAnswer answer = request({type}).first();
    if (answer.kind != SelectionAnswer::Kind::received)
        return std::nullopt;
    return answer.bytes;
}

quint32 X11PasteboardOutside::serverTime() {
    return testDesktop()
        .run(QStringLiteral(QUORVEL_RAW_READER), {QStringLiteral("--print-time")})
        .output.trimmed()
        .toUInt();
}

} // namespace quorvel
