#pragma once

#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "corvexkit/time/CXTimeZone.h"
#include "model/records/KWConstants.h"

#include <QWidget>

#include <functional>

class QComboBox;
class QDateEdit;
class QFormLayout;
class QLineEdit;
class QSpinBox;

/// How something repeats: a usual rule or one of one's own, when it ends, and what it is counted from.
class RepeatRows : public QWidget {
    Q_OBJECT

public:
    /// Makes a rule of what is typed, or says why it is none.
    using ReadRule = std::function<Result<QString>(const QString &typed)>;
    RepeatRows(ReadRule readRule, QWidget *parent = nullptr);

    /// `day`: of the first occurrence.
    void setRepeat(const QString &rule, CXRecurrenceFrom from, Day day);
    /// The names of the usual rules follow the day.
    void setDay(Day day);
    /// A rule of one's own in words; empty for the usual ones, whose choice says it.
    QString words(const CXTimeZone &zone) const;
    /// Why what is typed is no rule; empty when it is one.
    const QString &problem() const { return m_problem; }

Q_SIGNALS:
    /// Also when there is another problem(); the rule is empty then.
    void repeatChanged(const QString &rule, CXRecurrenceFrom from);

private:
    void nameUsualRules(Day day);
    void showRule(const QString &rule);
    void showEnd();
    void showRows();
    void choose(int index);
    void readTyped();
    void readEnd();
    void announce();

    ReadRule m_readRule;
    QComboBox *m_usual;
    QLineEdit *m_own;
    QComboBox *m_from;
    QComboBox *m_end;
    QSpinBox *m_count;
    QDateEdit *m_until;
    QWidget *m_more; // the rows that a rule has
    std::optional<CXRecurrenceRule> m_rule;
    QString m_problem;
    Day m_day{};
};
