#pragma once

#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <vector>

/// What a posted notification says.
struct KWNotification {
    QString name;
    QVariant object;
    QVariantMap userInfo;
};

/// Announces events by name to whoever observes them. Main thread only; posting is synchronous, in the
/// order in which the observers came.
class KWNotificationCenter {
public:
    using Handler = std::function<void(const KWNotification &)>;

    KWNotificationCenter();
    KWNotificationCenter(const KWNotificationCenter &) = delete;
    KWNotificationCenter &operator=(const KWNotificationCenter &) = delete;
    ~KWNotificationCenter();

    /// Observes until dropped, also when dropped while a notification is being posted.
    class Observation {
    public:
        Observation() = default;

    private:
        friend class KWNotificationCenter;
        std::shared_ptr<const void> m_observer;
    };

    [[nodiscard]] Observation addObserver(const QString &name, Handler handler);
    /// Observes every notification.
    [[nodiscard]] Observation addObserver(Handler handler);

    void post(const QString &name, const QVariant &object = {}, const QVariantMap &userInfo = {});

private:
    struct Observer;
    Observation add(std::shared_ptr<Observer> observer);

    std::vector<std::weak_ptr<Observer>> m_observers;
};
