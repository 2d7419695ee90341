#pragma once

#include "platform/TextServices.h"
#include "platform/text/TextDataDetector.h"
#include "platform/text/names/NameTagger.h"

namespace quorvel {

/// The services that we bring with us.
class OwnTextServices final : public TextServices {
public:
    explicit OwnTextServices(const Region& region)
        : m_dataDetector(region) {}

    const DataDetector& dataDetector() const override { return m_dataDetector; }
    const PersonNameTagger& nameTagger() const override { return m_nameTagger; }

private:
    TextDataDetector m_dataDetector;
    NameTagger m_nameTagger;
};

} // namespace quorvel
