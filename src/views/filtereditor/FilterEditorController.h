#pragma once

#include "model/events/KWEventBus.h"
#include "model/records/KWListIdentifier.h"
#include "model/store/KWFilterService.h"

#include <QObject>
#include <QPointer>

class FilterEditor;
class OrvaneKit;

/// Opens the filter editor over a window, and keeps what is made in it. Main thread.
class FilterEditorController : public QObject {
    Q_OBJECT

public:
    /// Both outlive it.
    FilterEditorController(OrvaneKit &kit, QWidget &window);

    /// An empty id makes a new filter. One window at a time: it comes to the front when it is open.
    void edit(const QString &filterID);

Q_SIGNALS:
    /// A new filter, to be shown.
    void made(const KWListIdentifier &filter);
    void failed(const QString &sentence);

private:
    KWFilterService service() const;
    void save(const QString &filterID);

    OrvaneKit &m_kit;
    QWidget &m_window;
    QPointer<FilterEditor> m_editor;
    KWEventBus::Registration m_registration;
};
