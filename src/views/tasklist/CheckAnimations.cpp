#include "views/tasklist/CheckAnimations.h"

namespace {
constexpr int durationInMilliseconds = 150;
}

void CheckAnimations::start(const QString &sid, Direction direction)
{
    delete m_running.take(sid);
    auto *animation = new QVariantAnimation{this};
    m_running.insert(sid, animation);
    animation->setDuration(durationInMilliseconds);
    animation->setEasingCurve(QEasingCurve::OutCubic);
    animation->setStartValue(direction == Direction::Checking ? 0.0 : 1.0);
    animation->setEndValue(direction == Direction::Checking ? 1.0 : 0.0);
    connect(animation, &QVariantAnimation::valueChanged, this, [this, sid] { Q_EMIT moved(sid); });
    connect(animation, &QVariantAnimation::finished, this, [this, sid] {
        m_running.take(sid)->deleteLater();
        Q_EMIT moved(sid);
        if (m_running.isEmpty()) Q_EMIT finished();
    });
    animation->start();
}

std::optional<double> CheckAnimations::progress(const QString &sid) const
{
    const QVariantAnimation *animation = m_running.value(sid);
    return animation ? std::optional{animation->currentValue().toDouble()} : std::nullopt;
}
