#include "views/controls/Stepper.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/IconButton.h"
#include "views/theme/Metrics.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int numberWidth = 56;

} // namespace

Stepper::Stepper(const char *name, const QString &what, int least, int most, QWidget *parent)
    : QWidget(parent), m_number(new QSpinBox)
{
    const QString named = QString::fromLatin1(name);
    m_number->setObjectName(named);
    m_number->setAccessibleName(what);
    m_number->setRange(least, most);
    m_number->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_number->setAlignment(Qt::AlignCenter);
    m_number->setFixedWidth(Metrics::scaled(numberWidth));
    auto *less = new IconButton{Icon::Minus, KWLocalizedString("Fewer")};
    less->setObjectName(named + u"Less"_s);
    auto *more = new IconButton{Icon::Add, KWLocalizedString("More")};
    more->setObjectName(named + u"More"_s);
    auto *row = new QHBoxLayout{this};
    row->setContentsMargins({});
    row->setSpacing(Metrics::grid);
    row->addWidget(less);
    row->addWidget(m_number);
    row->addWidget(more);
    for (IconButton *each : {less, more})
        each->setAutoRepeat(true);
    connect(less, &QAbstractButton::clicked, m_number, &QSpinBox::stepDown);
    connect(more, &QAbstractButton::clicked, m_number, &QSpinBox::stepUp);
    connect(m_number, &QSpinBox::valueChanged, this, &Stepper::valueChanged);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusProxy(m_number);
}

int Stepper::value() const { return m_number->value(); }

void Stepper::setValue(int value)
{
    const QSignalBlocker quiet{m_number};
    m_number->setValue(value);
}
