#include "views/subscriptions/SubscribeDialog.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int dialogWidth = 460;

QPushButton *makeButton(const QString &text, const QString &objectName)
{
    auto *button = new QPushButton{text};
    button->setObjectName(objectName);
    button->setAccessibleName(text);
    button->setAutoDefault(false);
    return button;
}

QLineEdit *makeField(const QString &text, const QString &objectName)
{
    auto *field = new QLineEdit;
    field->setObjectName(objectName);
    field->setAccessibleName(text);
    field->setPlaceholderText(text);
    return field;
}

} // namespace

SubscribeDialog::SubscribeDialog(QWidget *parent)
    : QDialog(parent)
    , m_address(makeField(tr("Address, such as https://… or webcal://…"), u"calendarAddress"_s))
    , m_name(makeField(tr("Name (the calendar’s own when empty)"), u"calendarName"_s))
    , m_message(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_choose(makeButton(tr("Choose File…"), u"chooseCalendarFile"_s))
    , m_subscribe(makeButton(tr("Subscribe"), u"subscribe"_s))
{
    setObjectName(u"subscribeDialog"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(tr("Subscribe to a Calendar"));
    m_message->setObjectName(u"calendarMessage"_s);
    auto *cancel = makeButton(KWLocalizedString("Cancel"), u"cancelCalendar"_s);
    m_subscribe->setDefault(true);
    connect(m_choose, &QPushButton::clicked, this, &SubscribeDialog::chooseFile);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_subscribe, &QPushButton::clicked, this, &SubscribeDialog::subscribeRequested);
    connect(m_address, &QLineEdit::textEdited, m_message, &QLabel::clear);

    auto *source = new QHBoxLayout;
    source->addWidget(m_address, 1);
    source->addWidget(m_choose);
    auto *footer = new QHBoxLayout;
    footer->addStretch(1);
    footer->addWidget(cancel);
    footer->addWidget(m_subscribe);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::margin);
    column->setSpacing(Metrics::gap);
    column->addLayout(source);
    column->addWidget(m_name);
    column->addWidget(m_message);
    column->addLayout(footer);
    for (QWidget *each : QList<QWidget *>{m_address, m_choose, m_name, cancel, m_subscribe})
        each->setFocusPolicy(Qt::StrongFocus);
    setTabOrder(m_address, m_choose);
    setTabOrder(m_choose, m_name);
    setTabOrder(m_name, cancel);
    setTabOrder(cancel, m_subscribe);
    setMinimumWidth(Metrics::scaled(dialogWidth));
    m_address->setFocus();
}

QString SubscribeDialog::address() const { return m_address->text(); }
QString SubscribeDialog::name() const { return m_name->text(); }

void SubscribeDialog::setIsReading(bool isReading)
{
    m_subscribe->setEnabled(!isReading);
    m_message->setForegroundRole(QPalette::PlaceholderText);
    m_message->setText(isReading ? tr("The calendar is being read…") : QString{});
}

void SubscribeDialog::showProblem(const QString &sentence)
{
    setIsReading(false);
    m_message->setForegroundRole(QPalette::BrightText);
    sayIn(*m_message, sentence);
    m_address->setFocus();
}

void SubscribeDialog::chooseFile()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Choose a Calendar"), {},
                                                      tr("Calendars (*.ics *.ical *.ifb);;All files (*)"));
    if (path.isEmpty()) return;
    m_message->clear();
    m_address->setText(path);
}
