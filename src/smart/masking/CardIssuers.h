#pragma once

#include <QtGlobal>

namespace quorvel {

/// First six digits from and to, how many digits such numbers may have (bit n: n digits).
struct Issuer {
    int from;
    int to;
    quint32 lengths;
};

constexpr quint32 lengthBits(int from, int to) {
    return (quint32(1) << (to + 1)) - (quint32(1) << from);
}

inline constexpr quint32 sixteen = lengthBits(16, 16);
inline constexpr quint32 sixteenUp = lengthBits(16, 19);

inline constexpr Issuer issuers[] = {
    {220000, 220499, sixteenUp},
    {222100, 272099, sixteen},
    {300000, 305999, lengthBits(14, 14)},
    {309500, 309599, lengthBits(14, 14)},
    {340000, 349999, lengthBits(15, 15)},
    {352800, 358999, sixteenUp},
    {360000, 369999, lengthBits(14, 14)},
    {370000, 379999, lengthBits(15, 15)},
    {380000, 399999, lengthBits(14, 14)},
    {400000, 499999, lengthBits(13, 13) | sixteen | lengthBits(19, 19)},
    {501800, 501999, lengthBits(13, 19)},
    {502000, 502099, lengthBits(13, 19)},
    {503800, 503899, lengthBits(13, 19)},
    {506000, 506299, sixteenUp},
    {506700, 506799, sixteen},
    {508000, 509999, sixteen},
    {510000, 559999, sixteen},
    {561200, 561299, lengthBits(13, 19)},
    {589300, 589399, lengthBits(13, 19)},
    {601100, 601199, sixteenUp},
    {606282, 608500, sixteen},
    {620000, 629999, sixteenUp},
    {630400, 630499, lengthBits(13, 19)},
    {636200, 636399, sixteen},
    {637000, 639999, sixteen},
    {644000, 659999, sixteenUp},
    {675900, 675999, lengthBits(13, 19)},
    {676100, 676399, lengthBits(13, 19)},
    {676770, 676774, lengthBits(13, 19)},
    {810000, 829999, sixteen},
    {860000, 860099, sixteen},
    {979200, 979299, sixteen},
    {986000, 986099, sixteen},
};

} // namespace quorvel
