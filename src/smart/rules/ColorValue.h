#pragma once

#include <QString>

#include <optional>

namespace quorvel {

/// A colour as written in style sheets: red, green and blue 0 to 255, alpha 0 to 1.
struct ColorValue {
    int red = 0;
    int green = 0;
    int blue = 0;
    double alpha = 1.0;

    friend bool operator==(const ColorValue&, const ColorValue&) = default;
};

/// The first "#rgb", "#rgba", "#rrggbb" or "#rrggbbaa" in the text, or else the first "rgb(…)" or
/// "rgba(…)". Channels above 255 count as 255.
std::optional<ColorValue> colorValue(QStringView text);

} // namespace quorvel
