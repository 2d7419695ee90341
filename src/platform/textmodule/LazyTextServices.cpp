#include "platform/textmodule/LazyTextServices.h"

#include "foundation/Log.h"
#include "platform/textmodule/ModuleEntry.h"

#include <QLibrary>

namespace quorvel {

class LazyTextServices::LazyDetector final : public DataDetector {
public:
    explicit LazyDetector(const LazyTextServices& services)
        : m_services(services) {}

    QList<DataMatch> matches(const QString& text) const override {
        const TextServices* loaded = m_services.loaded();
        return loaded ? loaded->dataDetector().matches(text) : QList<DataMatch>();
    }
    PhoneParts phoneParts(const QString& international) const override {
        const TextServices* loaded = m_services.loaded();
        return loaded ? loaded->dataDetector().phoneParts(international) : PhoneParts();
    }

private:
    const LazyTextServices& m_services;
};

class LazyTextServices::LazyTagger final : public PersonNameTagger {
public:
    explicit LazyTagger(const LazyTextServices& services)
        : m_services(services) {}

    bool hasPersonalName(const QString& text) const override {
        const TextServices* loaded = m_services.loaded();
        return loaded && loaded->nameTagger().hasPersonalName(text);
    }

private:
    const LazyTextServices& m_services;
};

LazyTextServices::LazyTextServices(QString folder, QString country)
    : m_folder(std::move(folder))
    , m_country(std::move(country))
    , m_detector(std::make_unique<LazyDetector>(*this))
    , m_tagger(std::make_unique<LazyTagger>(*this)) {}

LazyTextServices::~LazyTextServices() = default;

const DataDetector& LazyTextServices::dataDetector() const {
    return *m_detector;
}

const PersonNameTagger& LazyTextServices::nameTagger() const {
    return *m_tagger;
}

const TextServices* LazyTextServices::loaded() const {
    if (std::exchange(m_isTried, true))
        return m_services.get();
    QLibrary module(m_folder + u'/' + QLatin1String(textServicesModule));
    const auto make = reinterpret_cast<MakeTextServices>(module.resolve(makeTextServicesName));
    if (make) {
        m_services.reset(make(m_country));
    } else {
        m_problem = module.errorString();
        logLine(QStringLiteral("[Quorvel Detection] no text services: %1").arg(m_problem));
    }
    return m_services.get();
}

} // namespace quorvel
