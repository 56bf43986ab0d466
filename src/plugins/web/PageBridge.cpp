#include "plugins/web/PageBridge.h"

namespace {

bool takesOneText(const QMetaMethod &method)
{
    return method.parameterCount() == 1 && method.parameterType(0) == QMetaType::QString;
}

bool isOfPage(const QMetaMethod &method)
{
    return method.methodType() == QMetaMethod::Slot && method.access() == QMetaMethod::Public &&
           method.returnType() == QMetaType::QString && takesOneText(method);
}

} // namespace

PageBridge::PageBridge(const QList<QObject *> &handlers, QObject *parent) : QObject(parent)
{
    const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("relay(QString)"));
    for (QObject *handler : handlers) {
        const QMetaObject *type = handler->metaObject();
        for (int i = QObject::staticMetaObject.methodCount(); i < type->methodCount(); ++i) {
            const QMetaMethod method = type->method(i);
            if (isOfPage(method)) m_methods.insert(QString::fromLatin1(method.name()), {handler, method});
            if (method.methodType() == QMetaMethod::Signal && takesOneText(method))
                connect(handler, method, this, slot);
        }
    }
}

QString PageBridge::call(const QString &method, const QString &text)
{
    const auto found = m_methods.constFind(method);
    if (found == m_methods.cend()) return {};
    QString answer;
    found->method.invoke(found->handler, Qt::DirectConnection, Q_RETURN_ARG(QString, answer),
                         Q_ARG(QString, text));
    return answer;
}

void PageBridge::relay(const QString &text)
{
    const QMetaMethod signal = sender()->metaObject()->method(senderSignalIndex());
    Q_EMIT arrived(QString::fromLatin1(signal.name()), text);
}
