#pragma once

#include "platform/TextServices.h"

#include <QString>

#include <functional>
#include <memory>

namespace quorvel {

/// Loads the text services when first asked something: their libraries and word lists cost time
/// and memory that a program without copies need not spend. Where the module is missing nothing is
/// found, and `problem` says why.
class LazyTextServices final : public TextServices {
public:
    /// `folder` holds the module. An empty country means the one of the user's locale.
    explicit LazyTextServices(QString folder, QString country = {});
    ~LazyTextServices() override;

    const DataDetector& dataDetector() const override;
    const PersonNameTagger& nameTagger() const override;

    /// Empty as long as all is well.
    const QString& problem() const { return m_problem; }

private:
    class LazyDetector;
    class LazyTagger;

    const TextServices* loaded() const;

    QString m_folder;
    QString m_country;
    mutable bool m_isTried = false;
    mutable std::unique_ptr<TextServices> m_services;
    mutable QString m_problem;
    std::unique_ptr<LazyDetector> m_detector;
    std::unique_ptr<LazyTagger> m_tagger;
};

} // namespace quorvel
