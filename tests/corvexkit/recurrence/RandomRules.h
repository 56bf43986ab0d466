#pragma once

#include "corvexkit/time/Instant.h"

#include <QString>

#include <random>

/// Valid rules and starts for them: of one seed always the same ones in a row.
class RandomRules {
public:
    enum class Kinds { DaysAndAbove, All };
    explicit RandomRules(Kinds kinds, unsigned seed = 20300501) : m_kinds{kinds}, m_random{seed} {}

    /// Of every kind, with few parts. Names its week start; neither COUNT nor UNTIL nor SKIP.
    QString rule();
    /// As calendars hold them, in about their proportions.
    QString usualRule();
    /// COUNT, UNTIL or nothing, to be put behind a rule.
    QString end(LocalTime start);
    LocalTime start();

    /// From `least` to `most`.
    int number(int least, int most) { return std::uniform_int_distribution{least, most}(m_random); }

    bool chance(int percent) { return number(1, 100) <= percent; }

private:
    int signedNumber(int most) { return chance(40) ? -number(1, most) : number(1, most); }
    template <class Next>
    QString list(int longest, Next next);
    QString weekdays(int ordinals);

    Kinds m_kinds;
    std::mt19937 m_random;
};
