#include "Detect.h"

#include "Commands.h"
#include "platform/textmodule/LazyTextServices.h"
#include "smart/SmartDetector.h"
#include "smart/masking/SecretMasker.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace quorvel::ctl {

namespace {

QString kindName(DataKind kind) {
    switch (kind) {
    case DataKind::url:
        return QStringLiteral("url");
    case DataKind::email:
        return QStringLiteral("email");
    case DataKind::phone:
        return QStringLiteral("phone");
    case DataKind::date:
        return QStringLiteral("date");
    case DataKind::address:
        return QStringLiteral("address");
    }
    Q_UNREACHABLE();
}

QJsonArray described(const QList<DataMatch>& matches) {
    QJsonArray array;
    for (const DataMatch& match : matches)
        array.append(QJsonObject{{QStringLiteral("kind"), kindName(match.kind)},
                                 {QStringLiteral("start"), match.start},
                                 {QStringLiteral("length"), match.length},
                                 {QStringLiteral("value"), match.value}});
    return array;
}

/// Everything about texts, for as many lines as there are.
class Answerer {
public:
    explicit Answerer(const QString& country)
        : m_services(QCoreApplication::applicationDirPath(), country)
        , m_detector(m_registry, m_services.dataDetector(), m_services.nameTagger()) {}

    QJsonObject answer(const QString& text) const {
        QElapsedTimer timer;
        timer.start();
        const auto tags = m_detector.detectAutoTags(text);
        const double micros = double(timer.nsecsElapsed()) / 1000.0;
        QJsonArray names;
        for (const ClipboardAutoTag tag : tags)
            names.append(rawName(tag));
        const QString masked = maskedSecrets(text);
        return {{QStringLiteral("tags"), names},
                {QStringLiteral("matches"), described(m_services.dataDetector().matches(text))},
                {QStringLiteral("masked"), masked == text ? QJsonValue() : QJsonValue(masked)},
                {QStringLiteral("micros"), micros}};
    }

    const QString& problem() const { return m_services.problem(); }

private:
    LazyTextServices m_services;
    SmartPluginRegistry m_registry;
    SmartDetector m_detector;
};

/// The string that a line holds; on a mistake absent, and `problem` says what is wrong.
std::optional<QString> textOfLine(const QByteArray& line, QString& problem) {
    // A string alone is no document to the parser, so it is put into an array.
    QJsonParseError error;
    const QJsonArray array = QJsonDocument::fromJson('[' + line + ']', &error).array();
    if (error.error != QJsonParseError::NoError)
        problem = error.errorString();
    else if (array.size() != 1 || !array.first().isString())
        problem = QStringLiteral("not a JSON string");
    else
        return array.first().toString();
    return std::nullopt;
}

QJsonObject answerToLine(const Answerer& answerer, const QByteArray& line) {
    QString problem;
    const auto text = textOfLine(line, problem);
    return text ? answerer.answer(*text) : QJsonObject{{QStringLiteral("error"), problem}};
}

bool isCountry(const QString& code) {
    return code.size() == 2 &&
           std::all_of(code.begin(), code.end(), [](QChar c) { return c.isUpper(); });
}

} // namespace

int detect(const QStringList& arguments) {
    const bool hasRegion = arguments.size() == 2 && arguments.first() == u"--region";
    if (!arguments.isEmpty() && (!hasRegion || !isCountry(arguments.last())))
        return complain(QStringLiteral("detect takes no more than --region and a country's two "
                                       "capital letters"),
                        wrongUsage);
    QFile input;
    QFile output;
    if (!input.open(stdin, QIODevice::ReadOnly) || !output.open(stdout, QIODevice::WriteOnly))
        return complain(QStringLiteral("standard input cannot be read"), failed);
    const Answerer answerer(hasRegion ? arguments.last() : QString());
    for (QByteArray line = input.readLine(); !line.isEmpty(); line = input.readLine()) {
        const auto answer = answerToLine(answerer, line.trimmed());
        output.write(QJsonDocument(answer).toJson(QJsonDocument::Compact) + '\n');
        output.flush();
    }
    return answerer.problem().isEmpty() ? ok : complain(answerer.problem(), failed);
}

} // namespace quorvel::ctl
