#include "views/focus/FocusRecordDialog.h"

#include "model/OrvaneKit.h"
#include "model/records/KWUserSettings.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/ChoicePopup.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/TabOrder.h"
#include "views/controls/TextButton.h"
#include "views/datepicker/DatePicker.h"
#include "views/datepicker/TimeField.h"
#include "views/focus/FocusPresenter.h"
#include "views/focus/FocusTargetButton.h"
#include "views/focus/FocusTargetPopup.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

minutes minutesOf(LocalTime time) { return floor<minutes>(time - floor<days>(time)); }

} // namespace

FocusRecordDialog::FocusRecordDialog(Purpose purpose, const Record &record, FocusPresenter &presenter,
                                     QWidget *parent)
    : QDialog(parent)
    , m_presenter(presenter)
    , m_record(record)
    , m_day(floor<days>(record.start))
    , m_target(new FocusTargetButton{KWLocalizedString("Nothing in particular")})
    , m_type(new SegmentedControl{{KWLocalizedString("Pomo"), KWLocalizedString("Stopwatch")}, this})
    , m_dayButton(new TextButton{{}, TextButton::Opens::Menu})
    , m_start(new TimeField)
    , m_end(new TimeField)
    , m_problem(makeProblemLine("focusRecordProblem"))
{
    setObjectName(u"focusRecordDialog"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(purpose == Purpose::Add ? KWLocalizedString("Add Record")
                                           : KWLocalizedString("Edit Record"));
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::gap);
    column->setSpacing(Metrics::gap);
    column->addLayout(makeForm(purpose));
    column->addWidget(m_problem);
    column->addStretch(1);
    column->addLayout(makeFooter());
    setTabOrderOf(controlsInOrder(*this));
    resize(Metrics::scaled(360), sizeHint().height());
    m_start->setFocus();
}

QLayout *FocusRecordDialog::makeForm(Purpose purpose)
{
    m_target->setObjectName(u"focusRecordTarget"_s);
    m_type->setObjectName(u"focusRecordType"_s);
    m_dayButton->setObjectName(u"focusRecordDay"_s);
    m_target->setTarget(m_record.target);
    m_type->choose(m_record.type == KWFocusTypeStopwatch ? 1 : 0);
    auto *form = new QFormLayout;
    form->setHorizontalSpacing(Metrics::gap);
    form->setVerticalSpacing(Metrics::grid * 2);
    form->addRow(KWLocalizedString("Focused on"), m_target);
    if (m_record.hasSeveralTargets)
        form->addRow({}, makePlainLabel(KWLocalizedString("And more; another choice is for all of it."),
                                        Fonts::Role::Secondary, QPalette::PlaceholderText));
    if (purpose == Purpose::Add) form->addRow(KWLocalizedString("Kind"), m_type);
    m_type->setVisible(purpose == Purpose::Add);
    form->addRow(KWLocalizedString("Day"), m_dayButton);
    for (const auto &[field, name, label, time] :
         {std::tuple{m_start, "focusRecordStart", KWLocalizedString("From"), m_record.start},
          {m_end, "focusRecordEnd", KWLocalizedString("To"), m_record.end}}) {
        field->setObjectName(QLatin1StringView{name});
        field->setAccessibleName(label);
        field->setTime(minutesOf(time));
        form->addRow(label, field);
        connect(field, &QLineEdit::textEdited, m_problem, &QWidget::hide);
    }
    showDay();
    connect(m_target, &QAbstractButton::clicked, this, &FocusRecordDialog::pickTarget);
    connect(m_dayButton, &QAbstractButton::clicked, this, &FocusRecordDialog::pickDay);
    return form;
}

QLayout *FocusRecordDialog::makeFooter()
{
    auto *cancel = new QPushButton{KWLocalizedString("Cancel")};
    cancel->setObjectName(u"cancelFocusRecord"_s);
    auto *saveButton = new QPushButton{KWLocalizedString("Save")};
    saveButton->setObjectName(u"saveFocusRecord"_s);
    saveButton->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addStretch(1);
    for (QPushButton *each : {cancel, saveButton}) {
        each->setAccessibleName(each->text());
        row->addWidget(each);
    }
    connect(cancel, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(saveButton, &QAbstractButton::clicked, this, &FocusRecordDialog::save);
    return row;
}

void FocusRecordDialog::pickTarget()
{
    ChoicePopup &popup = FocusTargetPopup::open(*m_target, shownTarget(), m_presenter.kit());
    connect(&popup, &ChoicePopup::chosen, this, [this](const QString &text) {
        m_chosen = FocusTarget::fromText(text);
        m_target->setTarget(lookOf(*m_chosen, m_presenter.kit().context()));
    });
}

void FocusRecordDialog::pickDay()
{
    OrvaneKit &kit = m_presenter.kit();
    auto *picker = new DatePicker{{.today = kit.context().clock().today(),
                                   .selected = m_day,
                                   .firstWeekday = kit.account().userSettings().firstWeekday,
                                   .offersNone = false},
                                  this};
    connect(picker, &DatePicker::picked, this, [this](std::optional<Day> day) {
        if (!day) return;
        m_day = *day;
        showDay();
    });
    picker->popUp(m_dayButton->mapToGlobal(m_dayButton->rect().bottomLeft()));
}

void FocusRecordDialog::showDay()
{
    const Day today = m_presenter.kit().context().clock().today();
    m_dayButton->setText(DateWording::relativeDay(m_day, today, locale(), DateWording::PastWeekdays::Dated));
    m_dayButton->setAccessibleName(KWLocalizedString("Day: %1").arg(m_dayButton->text()));
    m_dayButton->updateGeometry();
    m_dayButton->update();
}

// A time that is not touched keeps its seconds.
LocalTime FocusRecordDialog::start() const
{
    const minutes typed = m_start->time().value_or(0min);
    const bool isKept = typed == minutesOf(m_record.start);
    return LocalTime{m_day} + (isKept ? m_record.start - floor<days>(m_record.start) : milliseconds{typed});
}

LocalTime FocusRecordDialog::end() const
{
    const minutes typed = m_end->time().value_or(0min);
    const bool isKept = typed == minutesOf(m_record.end);
    const LocalTime end =
        LocalTime{m_day} + (isKept ? m_record.end - floor<days>(m_record.end) : milliseconds{typed});
    // Over midnight, unless that is still to come.
    const bool endsNextDay = end < start() && end + days{1} <= m_presenter.kit().context().clock().localNow();
    return endsNextDay ? end + days{1} : end;
}

KWFocusType FocusRecordDialog::type() const
{
    return m_type->chosen() == 1 ? KWFocusTypeStopwatch : KWFocusTypePomo;
}

void FocusRecordDialog::showProblem(const QString &sentence)
{
    sayIn(*m_problem, sentence);
    resize(width(), std::max(height(), sizeHint().height()));
}

void FocusRecordDialog::save()
{
    for (TimeField *each : {m_start, m_end})
        if (!each->isReadable() || !each->time()) {
            each->setFocus();
            return showProblem(each->text().isEmpty()
                                   ? KWLocalizedString("A record has a time of day at both ends.")
                                   : KWLocalizedString("“%1” is no time of day.").arg(each->text()));
        }
    Q_EMIT saveRequested();
}
