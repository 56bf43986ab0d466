#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"

/// Reads the text of one recurrence rule; see CXRecurrenceRule::parse(). Used once.
class RuleParser {
public:
    explicit RuleParser(QStringView text) : m_text{text} {}

    Result<CXRecurrenceRule> parse();

private:
    enum class Part : std::uint8_t;

    bool readPart(QStringView part);
    bool readValue(Part part, QStringView value);
    bool readFrequency(QStringView value);
    bool readUntil(QStringView value);
    bool readWeekStart(QStringView value);
    bool readScale(QStringView value);
    bool readSkip(QStringView value);
    bool readTimesInWeekly(QStringView value);
    bool readWeekdays(QStringView value);
    bool readWeekday(QStringView item);
    template <class Target>
    bool readCardinal(Part part, QStringView value, Target &target);
    template <class Set>
    bool readNumbers(Part part, QStringView value, Set &numbers);

    bool checkWhole();
    bool refuse(Part part, bool isWrong, const char16_t *reason);

    bool has(Part part) const { return m_places[std::size_t(part)] != 0; }
    bool fail(QStringView where, const QString &reason) { return failAt(placeOf(where), reason); }
    bool failAt(qsizetype place, const QString &reason);
    qsizetype placeOf(QStringView where) const { return where.data() - m_text.data() + 1; }

    QStringView m_text;
    CXRecurrenceRule m_rule;
    std::array<qsizetype, 17> m_places{}; // of the parts read so far, from 1
    std::optional<Error> m_error;
};
