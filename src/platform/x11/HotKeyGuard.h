#pragma once

#include <QtGlobal>

#include <optional>

#include <xcb/xcb.h>

namespace quorvel {

/// Keeps our own hot keys out of the way of the keys that we post ourselves. Each call returns
/// when the server has carried it out.
class HotKeyGuard {
public:
    virtual ~HotKeyGuard() = default;

    /// The key of a pressed hot key that was not released so far: until it is, every key of the
    /// keyboard comes to us instead of the program in front.
    virtual std::optional<xcb_keycode_t> heldKey() const = 0;

    /// Lets this combination (a key with the server's modifier bits) pass.
    virtual void standAside(xcb_keycode_t key, quint16 modifiers) = 0;

    /// To be called when the server has processed the posted keys, their release and that of the
    /// held key included.
    virtual void standBack() = 0;
};

} // namespace quorvel
