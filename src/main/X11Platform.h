#pragma once

#include "app/Adapters.h"
#include "foundation/BackgroundQueue.h"
#include "foundation/Clock.h"
#include "foundation/MainQueue.h"
#include "foundation/StringTable.h"
#include "platform/TextServices.h"
#include "platform/desktop/DesktopTerminal.h"

#include <QObject>

#include <memory>

namespace quorvel {

/// Every adapter for a session on X11. Needs the application object.
class X11Platform final : public QObject {
    Q_OBJECT

public:
    X11Platform(const Clock& clock, MainQueue& mainQueue, BackgroundQueue& background,
                const StringTable& strings, const TextServices& textServices,
                const DesktopTerminal::Setup& terminal);
    ~X11Platform() override;

    Adapters adapters();

    /// Work that the first use would wait for otherwise; called when the program is up.
    void warmUp();

signals:
    void displayLost();

private:
    struct Parts;
    const TextServices& m_textServices;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quorvel
