#pragma once

#include <QString>

#include <functional>

namespace quorvel {

/// One named step of the start or of the end.
struct LaunchStep {
    QString name;
    std::function<void()> run;
};

} // namespace quorvel
