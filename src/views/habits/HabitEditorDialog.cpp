#include "views/habits/HabitEditorDialog.h"

#include "habits/HabitEditor.h"
#include "habits/HabitWording.h"
#include "model/records/DayStamp.h"
#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/TabOrder.h"
#include "views/controls/TextButton.h"
#include "views/datepicker/DatePicker.h"
#include "views/habits/HabitFrequencyPage.h"
#include "views/habits/HabitLookPicker.h"
#include "views/habits/HabitReminderField.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize habitEditorSize{520, 640};
constexpr int amountWidth = 84;

QLineEdit *makeField(const char *name, const QString &what, const QString &text)
{
    auto *field = new QLineEdit{text};
    field->setObjectName(QLatin1StringView{name});
    field->setAccessibleName(what);
    return field;
}

QLabel *makeCaption(const char *text)
{
    return makePlainLabel(KWLocalizedString(text), Fonts::Role::BodyStrong);
}

} // namespace

HabitEditorDialog::HabitEditorDialog(const KWHabitModel &habit, const Surroundings &surroundings,
                                     QWidget *parent)
    : QDialog(parent)
    , m_habit(habit)
    , m_today(surroundings.today)
    , m_firstWeekday(int(surroundings.firstWeekday.c_encoding()) + 1)
    , m_name(makeField("habitEditorName", KWLocalizedString("Name"), habit.name))
    , m_nameProblem(makeProblemLine("habitNameWrong"))
    , m_look(new HabitLookPicker{habit.iconRes, habit.color})
    , m_kind(new SegmentedControl{{KWLocalizedString("Yes or No"), KWLocalizedString("Amount")}})
    , m_goalPart(new QWidget)
    , m_goal(makeField("habitGoal", KWLocalizedString("Goal"), HabitWording::amount(habit.goal, locale())))
    , m_unit(makeField("habitUnit", KWLocalizedString("Unit, such as cups"), habit.unit))
    , m_step(makeField("habitStep", KWLocalizedString("Step"), HabitWording::amount(habit.step, locale())))
    , m_goalProblem(makeProblemLine("habitGoalWrong"))
    , m_frequency(new HabitFrequencyPage{habit.repeatRule, surroundings.firstWeekday})
    , m_section(new QComboBox)
    , m_newSection(makeField("habitNewSection", KWLocalizedString("Name of the section"), {}))
    , m_sectionProblem(makeProblemLine("habitSectionWrong"))
    , m_reminders(new HabitReminderField{habit.reminders})
    , m_reminderProblem(makeProblemLine("habitReminderWrong"))
    , m_startButton(new TextButton{{}, TextButton::Opens::Menu})
    , m_problem(makeProblemLine("habitEditorProblem"))
{
    setObjectName(u"habitEditor"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(habit.sid.isEmpty() ? KWLocalizedString("New Habit") : KWLocalizedString("Edit Habit"));
    m_name->setPlaceholderText(KWLocalizedString("Name"));
    m_unit->setPlaceholderText(KWLocalizedString("cups"));
    m_newSection->setPlaceholderText(m_newSection->accessibleName());
    auto *area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QWidget *form = makeForm(surroundings);
    area->setWidget(form);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(0, 0, 0, Metrics::gap);
    column->setSpacing(Metrics::gap);
    column->addWidget(area, 1);
    column->addLayout(makeFooter());
    setTabOrderOf(controlsInOrder(*form) + controlsInOrder(*this));
    const QSize wanted{Metrics::scaled(habitEditorSize.width()), Metrics::scaled(habitEditorSize.height())};
    resize(wanted.boundedTo(screen()->availableSize()));
    showKind();
    showStart();
    m_name->setFocus();
}

QWidget *HabitEditorDialog::makeForm(const Surroundings &surroundings)
{
    m_kind->setObjectName(u"habitKind"_s);
    m_kind->choose(m_habit.isRealType ? 1 : 0);
    m_startButton->setObjectName(u"habitStart"_s);
    connect(m_kind, &SegmentedControl::picked, this, &HabitEditorDialog::showKind);
    connect(m_startButton, &QAbstractButton::clicked, this, &HabitEditorDialog::pickStart);
    for (const auto &[field, problem] : {std::pair{m_name, m_nameProblem},
                                         {m_goal, m_goalProblem},
                                         {m_step, m_goalProblem},
                                         {m_newSection, m_sectionProblem}})
        connect(field, &QLineEdit::textEdited, problem, &QWidget::hide);
    connect(m_reminders, &HabitReminderField::typed, m_reminderProblem, &QWidget::hide);
    connect(m_reminders, &HabitReminderField::refused, this, &HabitEditorDialog::refuseReminder);

    auto *form = new QWidget;
    auto *column = new QVBoxLayout{form};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::gap);
    column->setSpacing(Metrics::grid * 2);
    const auto section = [column](const char *caption) {
        column->addSpacing(Metrics::grid * 2);
        column->addWidget(makeCaption(caption));
    };
    column->addWidget(m_name);
    column->addWidget(m_nameProblem);
    column->addWidget(m_look);
    section("Goal");
    column->addWidget(m_kind, 0, Qt::AlignLeft);
    m_goalPart->setLayout(makeGoalRow());
    column->addWidget(m_goalPart);
    column->addWidget(m_goalProblem);
    section("Frequency");
    column->addWidget(m_frequency);
    section("Section");
    column->addWidget(makeSectionPart(surroundings));
    section("Reminders");
    column->addWidget(m_reminders);
    column->addWidget(m_reminderProblem);
    section("Start");
    column->addWidget(m_startButton, 0, Qt::AlignLeft);
    column->addStretch(1);
    return form;
}

QLayout *HabitEditorDialog::makeGoalRow()
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins({});
    row->setSpacing(Metrics::grid * 2);
    for (QLineEdit *each : {m_goal, m_step})
        each->setFixedWidth(Metrics::scaled(amountWidth));
    QLabel *daily = makePlainLabel(KWLocalizedString("a day, in steps of"), Fonts::Role::Body);
    daily->setWordWrap(false);
    row->addWidget(m_goal);
    row->addWidget(m_unit, 1);
    row->addWidget(daily);
    row->addWidget(m_step);
    return row;
}

QWidget *HabitEditorDialog::makeSectionPart(const Surroundings &surroundings)
{
    m_section->setObjectName(u"habitSection"_s);
    m_section->setAccessibleName(KWLocalizedString("Section"));
    for (const HabitSection &each : surroundings.sections)
        m_section->addItem(each.name, each.sectionID);
    m_section->addItem(KWLocalizedString("New Section…"));
    const int current = m_section->findData(m_habit.sectionID);
    m_section->setCurrentIndex(current >= 0 ? current : m_section->findData(K_HABIT_SECTION_ID_OTHERS));
    auto *part = new QWidget;
    auto *column = new QVBoxLayout{part};
    column->setContentsMargins({});
    column->setSpacing(Metrics::grid);
    column->addWidget(m_section, 0, Qt::AlignLeft);
    column->addWidget(m_newSection);
    column->addWidget(m_sectionProblem);
    m_newSection->hide();
    connect(m_section, &QComboBox::currentIndexChanged, this, [this](int index) {
        const bool isNew = index == m_section->count() - 1;
        m_newSection->setVisible(isNew);
        m_sectionProblem->hide();
    });
    connect(m_section, &QComboBox::activated, this, [this](int index) {
        if (index == m_section->count() - 1) m_newSection->setFocus(Qt::OtherFocusReason);
    });
    return part;
}

QLayout *HabitEditorDialog::makeFooter()
{
    const auto makeButton = [](const char *name, const QString &text) {
        auto *button = new QPushButton{text};
        button->setObjectName(QLatin1StringView{name});
        button->setAccessibleName(text);
        button->setAutoDefault(true);
        return button;
    };
    QPushButton *cancel = makeButton("cancelHabit", KWLocalizedString("Cancel"));
    QPushButton *save = makeButton("saveHabit", KWLocalizedString("Save"));
    save->setDefault(true);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(save, &QPushButton::clicked, this, &HabitEditorDialog::save);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(Metrics::margin, 0, Metrics::margin, 0);
    row->addWidget(m_problem, 1);
    row->addStretch(1);
    row->addWidget(cancel);
    row->addWidget(save);
    return row;
}

void HabitEditorDialog::showKind()
{
    m_goalPart->setVisible(m_kind->chosen() == 1);
    m_goalProblem->hide();
}

void HabitEditorDialog::showStart()
{
    const Day stored = DayStamp::toDay(m_habit.startStamp).value_or(m_today);
    const QString day = DateWording::weekdayAndDay(m_start.value_or(stored), m_today, locale());
    m_startButton->setText(day);
    m_startButton->setAccessibleName(KWLocalizedString("Start: %1").arg(day));
    m_startButton->updateGeometry();
}

void HabitEditorDialog::pickStart()
{
    const Day stored = DayStamp::toDay(m_habit.startStamp).value_or(m_today);
    auto *picker = new DatePicker{{.today = m_today,
                                   .selected = m_start.value_or(stored),
                                   .firstWeekday = m_firstWeekday,
                                   .offersNone = false},
                                  this};
    picker->setAttribute(Qt::WA_DeleteOnClose);
    connect(picker, &DatePicker::picked, this, [this](std::optional<Day> day) {
        m_start = day;
        showStart();
    });
    picker->popUp(m_startButton->mapToGlobal(QPoint{0, m_startButton->height()}));
}

QString HabitEditorDialog::newSection() const
{
    const bool isNew = m_section->currentIndex() == m_section->count() - 1;
    return isNew ? onOneLine(m_newSection->text()) : QString{};
}

void HabitEditorDialog::applyTo(KWHabitModel &habit) const
{
    habit.name = onOneLine(m_name->text());
    habit.iconRes = m_look->iconRes();
    habit.color = m_look->color();
    habit.isRealType = m_kind->chosen() == 1;
    if (habit.isRealType) {
        habit.goal = HabitWording::toAmount(m_goal->text(), locale()).valueOr(habit.goal);
        habit.step = HabitWording::toAmount(m_step->text(), locale()).valueOr(habit.step);
        habit.unit = onOneLine(m_unit->text());
    } else if (m_habit.isRealType || habit.goal <= 0 || habit.step <= 0) {
        habit.goal = habit.step = 1; // not seen here, and from elsewhere it may be anything
    }
    habit.repeatRule = m_frequency->repeatRule();
    habit.reminders = m_reminders->reminders();
    if (m_start) habit.startStamp = DayStamp::fromDay(*m_start);
    const QString section = m_section->currentData().toString();
    if (!section.isEmpty()) habit.sectionID = section;
}

void HabitEditorDialog::complain(QLabel &problem, QWidget &field, const QString &sentence)
{
    sayIn(problem, sentence);
    field.setFocus(Qt::OtherFocusReason);
    if (auto *line = qobject_cast<QLineEdit *>(&field)) line->selectAll();
}

bool HabitEditorDialog::check()
{
    if (onOneLine(m_name->text()).isEmpty()) {
        complain(*m_nameProblem, *m_name, KWLocalizedString("A habit needs a name."));
        return false;
    }
    if (m_kind->chosen() == 1)
        for (QLineEdit *each : {m_goal, m_step}) {
            const Result<double> amount = HabitWording::toAmount(each->text(), locale());
            KWHabitModel habit;
            habit.name = u"-"_s;
            (each == m_goal ? habit.goal : habit.step) = amount.valueOr(1);
            const Result<void> sound = amount ? HabitEditor::checked(habit) : Result<void>{amount.error()};
            if (sound) continue;
            complain(*m_goalProblem, *each, sound.error().sentence);
            return false;
        }
    if (m_section->currentIndex() == m_section->count() - 1 && newSection().isEmpty()) {
        complain(*m_sectionProblem, *m_newSection, KWLocalizedString("A section needs a name."));
        return false;
    }
    if (!m_reminders->isReadable()) {
        refuseReminder();
        return false;
    }
    return true;
}

void HabitEditorDialog::refuseReminder()
{
    sayIn(*m_reminderProblem, KWLocalizedString("This is no time of day. Write it as 8:30."));
    m_reminders->focusField();
}

void HabitEditorDialog::save()
{
    for (QLabel *each : {m_nameProblem, m_goalProblem, m_sectionProblem, m_reminderProblem, m_problem})
        each->hide();
    if (check()) Q_EMIT saveRequested();
}

void HabitEditorDialog::showProblem(const QString &sentence) { sayIn(*m_problem, sentence); }

void HabitEditorDialog::showSectionProblem(const QString &sentence)
{
    complain(*m_sectionProblem, *m_newSection, sentence);
}
