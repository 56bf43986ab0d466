#include "views/filtereditor/ConditionRow.h"

#include "model/records/PriorityNames.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/filtereditor/DateSpanEdit.h"
#include "views/filtereditor/FilterChoices.h"
#include "views/theme/Metrics.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

using Condition = CXSmartFilterCondition;
using Question = Condition::Question;

template <class Asked>
Question empty()
{
    return Asked{};
}
/// What a condition can be about, in the order of the menu.
struct Subject {
    const char *name;
    Question (*make)();
};
constexpr Subject subjects[]{{"List", &empty<Condition::Lists>},
                             {"Folder", &empty<Condition::Folders>},
                             {"Tag", &empty<Condition::Tags>},
                             {"Date", &empty<Condition::Dates>},
                             {"Priority", &empty<Condition::Priorities>},
                             {"Assigned To", &empty<Condition::Assignees>},
                             {"Words", &empty<Condition::Words>},
                             {"Kind", &empty<Condition::Kinds>}};

// Stands for any tag at all.
const QString anyTag = u"*"_s;
constexpr std::pair<bool Condition::Assignees::*, const char *> whoever[]{
    {&Condition::Assignees::me, "Me"},
    {&Condition::Assignees::nobody, "Nobody"},
    {&Condition::Assignees::other, "Somebody Else"}};
constexpr std::pair<CXItemKind, const char *> kindNames[]{
    {CXItemKind::Task, "Task"}, {CXItemKind::Checklist, "Checklist"}, {CXItemKind::Note, "Note"}};

/// What can be chosen for a question, and what is chosen.
struct Offer {
    QString question;
    QList<ChoicesButton::Choice> choices;
    QStringList chosen;
    QString unknown{}; ///< the title of a choice that is gone
};

struct Offering {
    const FilterChoices &choices;

    Offer operator()(const Condition::Lists &lists) const
    {
        return {ConditionRow::tr("Choose lists"), choices.lists, lists.ids,
                ConditionRow::tr("A list that is not open any more")};
    }
    Offer operator()(const Condition::Folders &folders) const
    {
        return {ConditionRow::tr("Choose folders"), choices.folders, folders.ids,
                ConditionRow::tr("A folder that is gone")};
    }
    Offer operator()(const Condition::Tags &tags) const
    {
        const QStringList chosen = tags.names.isEmpty() ? QStringList{anyTag} : tags.names;
        Offer offer{ConditionRow::tr("Choose tags"), {{anyTag, ConditionRow::tr("Any Tag")}}, chosen};
        offer.choices += choices.tags;
        return offer;
    }
    Offer operator()(const Condition::Priorities &priorities) const
    {
        Offer offer{ConditionRow::tr("Choose priorities"), {}, {}};
        for (const KWTaskPriority each : KWTaskPriorities) {
            offer.choices.append({QString::number(each), displayName(each)});
            if (priorities.values.contains(int(each))) offer.chosen.append(QString::number(each));
        }
        return offer;
    }
    Offer operator()(const Condition::Assignees &assignees) const
    {
        Offer offer{ConditionRow::tr("Choose people"), {}, {}, ConditionRow::tr("Somebody who is gone")};
        for (const auto &[member, name] : whoever) {
            offer.choices.append({QLatin1StringView{name}, KWLocalizedString(name)});
            if (assignees.*member) offer.chosen.append(QLatin1StringView{name});
        }
        offer.choices += choices.people;
        for (const std::int64_t each : assignees.ids)
            offer.chosen.append(QString::number(each));
        return offer;
    }
    Offer operator()(const Condition::Kinds &kinds) const
    {
        Offer offer{ConditionRow::tr("Choose kinds"), {}, {}};
        for (const auto &[kind, name] : kindNames) {
            offer.choices.append({QString::number(int(kind)), KWLocalizedString(name)});
            if (kinds.kinds.testFlag(kind)) offer.chosen.append(QString::number(int(kind)));
        }
        return offer;
    }
    Offer operator()(const auto &) const { return {}; }
};

/// The same question about what is chosen.
struct Choosing {
    const QStringList &chosen;

    Question operator()(const Condition::Lists &) const { return Condition::Lists{chosen}; }
    Question operator()(const Condition::Folders &) const { return Condition::Folders{chosen}; }
    Question operator()(const Condition::Tags &) const
    {
        return Condition::Tags{chosen.contains(anyTag) ? QStringList{} : chosen};
    }
    Question operator()(const Condition::Priorities &) const
    {
        Condition::Priorities priorities;
        for (const QString &each : chosen)
            priorities.values.append(each.toInt());
        return priorities;
    }
    Question operator()(const Condition::Assignees &) const
    {
        Condition::Assignees assignees;
        for (const QString &each : chosen) {
            bool isNumber = false;
            const qint64 id = each.toLongLong(&isNumber);
            if (isNumber) assignees.ids.append(id);
            for (const auto &[member, name] : whoever)
                if (each == QLatin1StringView{name}) assignees.*member = true;
        }
        return assignees;
    }
    Question operator()(const Condition::Kinds &) const
    {
        Condition::Kinds kinds;
        for (const QString &each : chosen)
            kinds.kinds |= CXItemKind(each.toInt());
        return kinds;
    }
    Question operator()(const auto &other) const { return other; }
};

} // namespace

ConditionRow::ConditionRow(const CXSmartFilterCondition &condition, const FilterChoices &choices, Day today,
                           QWidget *parent)
    : QWidget(parent)
    , m_choices(choices)
    , m_today(today)
    , m_row(new QHBoxLayout{this})
    , m_isNot(new QComboBox)
    , m_question(condition.question())
{
    m_row->setContentsMargins({});
    if (!std::holds_alternative<Condition::Group>(m_question)) {
        m_subject = new QComboBox;
        m_subject->setObjectName(u"conditionSubject"_s);
        m_subject->setAccessibleName(tr("What the condition is about"));
        for (const Subject &each : subjects) {
            m_subject->addItem(KWLocalizedString(each.name));
            if (each.make().index() == m_question.index()) m_subject->setCurrentIndex(m_subject->count() - 1);
        }
        connect(m_subject, &QComboBox::activated, this, [this](int index) {
            if (subjects[index].make().index() == m_question.index()) return;
            makeValue(subjects[index].make());
            Q_EMIT changed();
        });
        m_subject->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        m_row->addWidget(m_subject, 0, Qt::AlignTop);
    }
    m_isNot->setObjectName(u"conditionIsNot"_s);
    m_isNot->setAccessibleName(tr("Whether it must be so"));
    m_isNot->addItems({tr("is"), tr("is not")});
    m_isNot->setCurrentIndex(condition.isNegated() ? 1 : 0);
    connect(m_isNot, &QComboBox::activated, this, &ConditionRow::changed);
    m_isNot->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_row->addWidget(m_isNot, 0, Qt::AlignTop);
    auto *remove = new IconButton{Icon::Close, tr("Remove this condition")};
    remove->setObjectName(u"removeCondition"_s);
    m_remove = remove;
    connect(remove, &QAbstractButton::clicked, this, &ConditionRow::removalRequested);
    m_row->addWidget(remove, 0, Qt::AlignTop);
    makeValue(m_question);
}

void ConditionRow::makeValue(const Question &question)
{
    m_question = question;
    delete m_value;
    m_chosen = nullptr;
    m_dates = nullptr;
    m_words = nullptr;
    m_value = valueFor(question);
    const bool fillsRow = m_words;
    m_row->insertWidget(m_row->count() - 1, m_value, 1, fillsRow ? Qt::Alignment{} : Qt::AlignLeft);
    m_value->show();
    Q_EMIT controlsChanged();
}

QWidget *ConditionRow::valueFor(const Question &question)
{
    if (std::holds_alternative<Condition::Group>(question))
        return new QLabel{tr("Several conditions, joined elsewhere")};
    if (const auto *dates = std::get_if<Condition::Dates>(&question)) {
        m_dates = new DateSpanEdit{m_today};
        m_dates->setDates(*dates);
        connect(m_dates, &DateSpanEdit::changed, this, &ConditionRow::changed);
        return m_dates;
    }
    if (const auto *words = std::get_if<Condition::Words>(&question)) {
        m_words = new QLineEdit{words->text};
        m_words->setObjectName(u"conditionWords"_s);
        m_words->setAccessibleName(tr("Words in the title or the text"));
        m_words->setPlaceholderText(m_words->accessibleName());
        connect(m_words, &QLineEdit::textChanged, this, &ConditionRow::changed);
        return m_words;
    }
    m_chosen = makeChoices(question);
    return m_chosen;
}

ChoicesButton *ConditionRow::makeChoices(const Question &question)
{
    const Offer offer = std::visit(Offering{m_choices}, question);
    auto *button = new ChoicesButton{offer.question, offer.choices};
    button->setObjectName(u"conditionChoices"_s);
    button->setChosen(offer.chosen, offer.unknown);
    connect(button, &ChoicesButton::changed, this,
            [this, button, wasAny = button->isChosen(anyTag)]() mutable {
                // Any tag and some tags exclude each other: what was chosen last stays.
                QStringList chosen = button->chosen();
                if (chosen.size() > 1 && chosen.contains(anyTag)) {
                    wasAny ? void(chosen.removeOne(anyTag)) : void(chosen = {anyTag});
                    wasAny = chosen.contains(anyTag);
                    button->setChosen(chosen);
                }
                wasAny = button->isChosen(anyTag);
                Q_EMIT changed();
            });
    return button;
}

CXSmartFilterCondition ConditionRow::condition() const
{
    const bool isNegated = m_isNot->currentIndex() == 1;
    if (m_dates) return {m_dates->dates(), isNegated};
    if (m_words) return {Condition::Words{m_words->text().simplified()}, isNegated};
    if (!m_chosen) return {m_question, isNegated};
    const QStringList chosen = m_chosen->chosen();
    return {std::visit(Choosing{chosen}, m_question), isNegated};
}

QString ConditionRow::problem() const
{
    if (m_dates) return m_dates->problem();
    if (m_words && m_words->text().simplified().isEmpty()) return tr("Type the words to look for.");
    if (m_chosen && m_chosen->chosen().isEmpty()) return tr("%1 for the condition.").arg(m_chosen->text());
    return {};
}

QList<QWidget *> ConditionRow::controls() const
{
    QList<QWidget *> controls;
    if (m_subject) controls.append(m_subject);
    controls.append(m_isNot);
    if (m_dates)
        controls += m_dates->controls();
    else if (m_value->focusPolicy() & Qt::TabFocus)
        controls.append(m_value);
    controls.append(m_remove);
    return controls;
}

void ConditionRow::focusOnValue() { m_value->setFocus(Qt::OtherFocusReason); }
