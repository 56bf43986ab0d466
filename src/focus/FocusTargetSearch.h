#pragma once

#include "focus/FocusTargetChoices.h"

#include <QObject>

#include <memory>
#include <optional>

class OrvaneKit;

/// Looks in the background for what one could focus on, while a person types; the latest text wins. Main
/// thread.
class FocusTargetSearch : public QObject {
    Q_OBJECT

public:
    /// The kit outlives it.
    explicit FocusTargetSearch(OrvaneKit &kit, QObject *parent = nullptr);

    /// See focusTargetChoices().
    void find(const QString &typed);

Q_SIGNALS:
    /// For the text of the last find(). None when the store cannot be read, and the log says why.
    void found(const QString &typed, const QList<FocusTargetChoice> &choices);

private:
    void read(const QString &typed);

    OrvaneKit &m_kit;
    std::shared_ptr<int> m_reading; // under way
    std::optional<QString> m_next;
};
