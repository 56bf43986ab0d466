#pragma once

#include "corvexkit/time/Instant.h"

#include <QString>

#include <random>

/// Rules of every kind, valid and with few parts, and starts for them: always the same ones in a row.
class RandomRules {
public:
    enum class Kinds { DaysAndAbove, All };
    explicit RandomRules(Kinds kinds) : m_kinds{kinds} {}

    /// Names its week start; neither COUNT nor UNTIL nor SKIP.
    QString rule();
    LocalTime start();

    /// From `least` to `most`.
    int number(int least, int most) { return std::uniform_int_distribution{least, most}(m_random); }

private:
    bool chance(int percent) { return number(1, 100) <= percent; }
    int signedNumber(int most) { return chance(40) ? -number(1, most) : number(1, most); }
    template <class Next>
    QString list(int longest, Next next);
    QString weekdays(int ordinals);

    Kinds m_kinds;
    std::mt19937 m_random{20300501};
};
