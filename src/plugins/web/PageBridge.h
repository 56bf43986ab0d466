#pragma once

#include <QHash>
#include <QMetaMethod>
#include <QObject>

/// The one object that a page sees on the channel: passes its calls on to the handlers, by the bare names of
/// their methods, and their signals to the page. A name that no handler has answers nothing.
class PageBridge : public QObject {
    Q_OBJECT

public:
    explicit PageBridge(const QList<QObject *> &handlers, QObject *parent = nullptr);

    QStringList methodNames() const { return m_methods.keys(); }
    /// The page has said so.
    bool isPageReady() const { return m_isPageReady; }

public Q_SLOTS: // named by the script of the channel
    QString call(const QString &method, const QString &text);
    void tellReady() { m_isPageReady = true; }

Q_SIGNALS:
    void arrived(const QString &event, const QString &text);

private Q_SLOTS:
    void relay(const QString &text);

private:
    struct Method {
        QObject *handler;
        QMetaMethod method;
    };
    QHash<QString, Method> m_methods;
    bool m_isPageReady = false;
};
