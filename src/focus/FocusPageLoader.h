#pragma once

#include "focus/FocusPageContent.h"

#include <QObject>

#include <memory>

class OrvaneKit;

/// Reads the page of focus in the background, and again whenever something on it may have changed; the latest
/// request wins. Main thread.
class FocusPageLoader : public QObject {
    Q_OBJECT

public:
    /// The kit outlives it.
    explicit FocusPageLoader(OrvaneKit &kit);
    ~FocusPageLoader() override;

    void load(const FocusPageRequest &request = {});
    /// The same page with as many records again as come at once.
    void loadMoreRecords();
    void showPeriod(const FocusPeriod &period);
    const FocusPageRequest &request() const;
    /// Reads nothing until the next load().
    void stop();

Q_SIGNALS:
    /// Not when it is as it was.
    void loaded(const FocusPageContent &content);
    void failed(const QString &sentence);

private:
    struct State;
    std::unique_ptr<State> m_state;
};
