#include "views/preferences/PreferencesPage.h"

#include "views/controls/PlainLabel.h"
#include "views/controls/Switch.h"
#include "views/theme/Metrics.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

PreferencesPage::PreferencesPage(const char *name, QString title, Preferences &preferences)
    : m_title(std::move(title)), m_preferences(preferences), m_column(new QVBoxLayout{this})
{
    setObjectName(QLatin1StringView{name});
    setAccessibleName(m_title);
    m_column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::margin);
    m_column->setSpacing(Metrics::gap);
    m_column->addWidget(makePlainLabel(m_title, Fonts::Role::PageTitle));
    m_column->addSpacing(Metrics::grid);
}

void PreferencesPage::addRow(const char *name, const QString &label, QWidget &control, const QString &hint)
{
    control.setObjectName(QLatin1StringView{name});
    control.setAccessibleName(label);
    control.setAccessibleDescription(hint);
    QLabel *words = makePlainLabel(label, Fonts::Role::Body);
    words->setBuddy(&control);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(words);
    if (!hint.isEmpty())
        texts->addWidget(makePlainLabel(hint, Fonts::Role::Secondary, QPalette::PlaceholderText));
    auto *row = new QHBoxLayout;
    row->setSpacing(Metrics::margin);
    row->addLayout(texts, 1);
    row->addWidget(&control, 0, Qt::AlignVCenter);
    m_column->addLayout(row);
}

void PreferencesPage::addWide(QWidget &widget) { m_column->addWidget(&widget); }

void PreferencesPage::addHeading(const QString &text)
{
    m_column->addSpacing(Metrics::grid);
    m_column->addWidget(makePlainLabel(text, Fonts::Role::BodyStrong));
}

void PreferencesPage::endRows() { m_column->addStretch(1); }

void PreferencesPage::addSwitch(const char *name, const QString &label, std::function<bool()> stored,
                                std::function<Result<void>(bool)> apply, const QString &hint)
{
    auto *control = new Switch;
    const auto showStored = [control, stored] { control->setChecked(stored()); };
    showStored();
    connect(control, &QAbstractButton::clicked, this,
            [this, apply, showStored](bool isOn) { report(apply(isOn), showStored); });
    addRow(name, label, *control, hint);
}

void PreferencesPage::report(const Result<void> &result, const std::function<void()> &showStored)
{
    if (result) {
        Q_EMIT saved();
        return;
    }
    showStored();
    Q_EMIT failed(result.error().sentence);
}
