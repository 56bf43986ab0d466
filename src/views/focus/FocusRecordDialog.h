#pragma once

#include "focus/FocusRecordEditor.h"
#include "focus/FocusTargetChoices.h"

#include <QDialog>

#include <optional>

class FocusPresenter;
class FocusTargetButton;
class QLabel;
class SegmentedControl;
class TextButton;
class TimeField;

/// The window in which a record of focus is added or changed: what it was spent on, the day, from when to
/// when. An end before the start is of the next day. What is wrong is said, and what was typed stays.
class FocusRecordDialog : public QDialog {
    Q_OBJECT

public:
    struct Record {
        FocusTargetChoice target{};
        bool hasSeveralTargets = false; ///< each keeps its part as long as no other one is chosen
        KWFocusType type = KWFocusTypePomo;
        LocalTime start{};
        LocalTime end{};
    };
    enum class Purpose { Add, Change };
    /// The presenter outlives it.
    FocusRecordDialog(Purpose purpose, const Record &record, FocusPresenter &presenter, QWidget *parent);

    /// As it stands there; only after saveRequested().
    LocalTime start() const;
    LocalTime end() const;
    KWFocusType type() const;
    /// None while it was not touched.
    std::optional<FocusTarget> chosenTarget() const { return m_chosen; }
    FocusTarget shownTarget() const { return m_chosen.value_or(m_record.target.target); }
    void showProblem(const QString &sentence);

Q_SIGNALS:
    /// The times can be read. Accept it when it is saved.
    void saveRequested();

private:
    QLayout *makeForm(Purpose purpose);
    QLayout *makeFooter();
    void pickTarget();
    void pickDay();
    void showDay();
    void save();

    FocusPresenter &m_presenter;
    Record m_record;
    Day m_day;
    std::optional<FocusTarget> m_chosen;
    FocusTargetButton *m_target;
    SegmentedControl *m_type;
    TextButton *m_dayButton;
    TimeField *m_start;
    TimeField *m_end;
    QLabel *m_problem;
};
