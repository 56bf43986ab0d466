#include "views/focus/FocusEstimatePopup.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/PillButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/Stepper.h"
#include "views/theme/Metrics.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr int mostEstimate = 1000; // Pomos, and hours
constexpr int mostEstimatedMinutes = 59;

} // namespace

FocusEstimatePopup::FocusEstimatePopup(const FocusOfTask &focus, QWidget *parent)
    : PopupFrame(parent)
    , m_pomos(new Stepper{"estimatedPomos", KWLocalizedString("Pomos"), 0, mostEstimate})
    , m_hours(new Stepper{"estimatedHours", KWLocalizedString("Hours"), 0, mostEstimate})
    , m_minutes(new Stepper{"estimatedMinutes", KWLocalizedString("Minutes"), 0, mostEstimatedMinutes})
{
    setObjectName(u"focusEstimate"_s);
    setAccessibleName(KWLocalizedString("Estimate"));
    const auto wholeHours = duration_cast<hours>(focus.estimated);
    m_pomos->setValue(focus.estimatedPomos);
    m_hours->setValue(int(wholeHours.count()));
    m_minutes->setValue(int(duration_cast<minutes>(focus.estimated - wholeHours).count()));
    auto *grid = new QGridLayout{this};
    grid->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    grid->setHorizontalSpacing(Metrics::gap);
    int row = 0;
    for (const auto &[stepper, name] : {std::pair{m_pomos, KWLocalizedString("Pomos")},
                                        {m_hours, KWLocalizedString("Hours")},
                                        {m_minutes, KWLocalizedString("Minutes")}}) {
        grid->addWidget(makePlainLabel(name, Fonts::Role::Body), row, 0);
        grid->addWidget(stepper, row++, 1);
    }
    auto *save = new PillButton{KWLocalizedString("Save"), PillButton::Look::Filled};
    save->setObjectName(u"saveEstimate"_s);
    grid->addWidget(save, row, 0, 1, 2, Qt::AlignRight);
    connect(save, &QAbstractButton::clicked, this, &FocusEstimatePopup::take);
}

void FocusEstimatePopup::popUp(const QPoint &position)
{
    place(position, sizeHint());
    show();
    m_pomos->setFocus(Qt::PopupFocusReason);
}

void FocusEstimatePopup::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return take();
    PopupFrame::keyPressEvent(event);
}

void FocusEstimatePopup::take()
{
    Q_EMIT estimated(m_pomos->value(), hours{m_hours->value()} + minutes{m_minutes->value()});
    close();
}
