#pragma once

#include <QObject>

/// What a page of ours may call, by the bare names of the public slots: each takes one text and answers one,
/// which is empty where there is nothing to answer. Whatever cannot be done answers as usual and changes
/// nothing. Its signals, of one text each, become events of the page. Main thread.
class JsApiHandleObject : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
};
