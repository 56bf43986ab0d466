#pragma once

#include <QHash>
#include <QObject>
#include <QVariantAnimation>

#include <optional>

/// Checkboxes on their way from one state to the other, for 150 ms each.
class CheckAnimations : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    enum class Direction { Checking, Unchecking };

    void start(const QString &sid, Direction direction);
    /// How far that checkbox is filled, from 0 to 1; nothing when it is not moving.
    std::optional<double> progress(const QString &sid) const;
    bool isRunning() const { return !m_running.isEmpty(); }

Q_SIGNALS:
    void moved(const QString &sid);
    /// The last one has come to rest.
    void finished();

private:
    QHash<QString, QVariantAnimation *> m_running;
};
