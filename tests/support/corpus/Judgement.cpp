#include "Judgement.h"

#include "platform/text/OwnTextServices.h"
#include "smart/SmartDetector.h"
#include "smart/masking/SecretMasker.h"

#include <QHash>

#include <algorithm>
#include <functional>

namespace quorvel::testing {

namespace {

/// What a detector says of a text: whether the kind is there, and where.
struct Answer {
    bool isFound = false;
    QList<Extent> extents;
};

const OwnTextServices& servicesFor(const QString& region) {
    static std::map<QString, std::unique_ptr<OwnTextServices>> services;
    auto& found = services[region];
    if (!found)
        found = std::make_unique<OwnTextServices>(Region::ofCountry(region));
    return *found;
}

Answer dataAnswer(DataKind kind, const LabelledText& labelled) {
    Answer answer;
    for (const DataMatch& match :
         servicesFor(labelled.region).dataDetector().matches(labelled.text))
        if (match.kind == kind)
            answer.extents.append({match.start, match.length});
    answer.isFound = !answer.extents.isEmpty();
    return answer;
}

Answer nameAnswer(const LabelledText& labelled) {
    static const SmartPluginRegistry registry;
    const OwnTextServices& services = servicesFor(labelled.region);
    const SmartDetector detector(registry, services.dataDetector(), services.nameTagger());
    const bool isName = detector.detectAutoTags(labelled.text).contains(ClipboardAutoTag::name);
    return {isName, isName ? QList<Extent>{{0, labelled.text.size()}} : QList<Extent>()};
}

qsizetype overlap(const Extent& a, const Extent& b) {
    return std::max<qsizetype>(0, std::min(a.start + a.length, b.start + b.length) -
                                      std::max(a.start, b.start));
}

/// A secret is masked when no more than its last few characters can be read.
Answer secretAnswer(const LabelledText& labelled) {
    constexpr qsizetype mostReadable = 4;
    Answer answer;
    for (const SecretRange& range : secretsIn(labelled.text))
        answer.extents.append({range.start, range.length});
    const auto isHidden = [&](const Extent& secret) {
        qsizetype hidden = 0;
        for (const Extent& range : answer.extents)
            hidden += overlap(secret, range);
        return hidden > 0 && secret.length - hidden <= mostReadable;
    };
    answer.isFound = labelled.isPositive
                         ? std::all_of(labelled.extents.begin(), labelled.extents.end(), isHidden)
                         : !answer.extents.isEmpty();
    return answer;
}

using Detector = std::function<Answer(const LabelledText&)>;

Detector detectorOf(const QString& kind) {
    static const QHash<QString, DataKind> dataKinds{
        {QStringLiteral("url"), DataKind::url},         {QStringLiteral("email"), DataKind::email},
        {QStringLiteral("phone"), DataKind::phone},     {QStringLiteral("date"), DataKind::date},
        {QStringLiteral("address"), DataKind::address},
    };
    if (kind == QLatin1StringView("name"))
        return nameAnswer;
    if (kind == QLatin1StringView("secret"))
        return secretAnswer;
    const DataKind dataKind = dataKinds.value(kind);
    return [dataKind](const LabelledText& text) { return dataAnswer(dataKind, text); };
}

QString shown(const LabelledText& labelled, const Answer& answer) {
    QStringList parts;
    for (const Extent& extent : answer.extents)
        parts.append(labelled.text.mid(extent.start, extent.length));
    return parts.join(QStringLiteral(" | "));
}

void count(const LabelledText& labelled, const Answer& answer, Report& report) {
    Score& score = report.score;
    int& cell = labelled.isPositive ? (answer.isFound ? score.truePositives : score.falseNegatives)
                                    : (answer.isFound ? score.falsePositives : score.trueNegatives);
    ++cell;
    const auto isExact = [&](const Extent& part) { return answer.extents.contains(part); };
    const auto exact =
        int(std::count_if(labelled.extents.begin(), labelled.extents.end(), isExact));
    score.parts += int(labelled.extents.size());
    score.exactParts += exact;
    if (labelled.isPositive != answer.isFound)
        report.misses.append({labelled, shown(labelled, answer)});
    else if (exact != labelled.extents.size())
        report.inexact.append({labelled, shown(labelled, answer)});
}

double ratio(int part, int rest) {
    return part + rest == 0 ? 1.0 : double(part) / (part + rest);
}

} // namespace

double Score::precision() const {
    return ratio(truePositives, falsePositives);
}

double Score::recall() const {
    return ratio(truePositives, falseNegatives);
}

double Score::exactness() const {
    return ratio(exactParts, parts - exactParts);
}

Report judge(const QString& kind, const QList<LabelledText>& texts) {
    Report report;
    report.kind = kind;
    const Detector detector = detectorOf(kind);
    for (const LabelledText& text : texts)
        count(text, detector(text), report);
    return report;
}

} // namespace quorvel::testing
