#pragma once

#include "model/settings/KWPomoSettingsManager.h"
#include "views/preferences/PreferencesPage.h"

class Stepper;

/// Pomos, breaks, what begins by itself, and the goals of a day.
class FocusPage : public PreferencesPage {
    Q_OBJECT

public:
    FocusPage(Preferences &preferences, const KWPomoSettingsManager &settings);

private:
    using Model = KWPomoSettingsModel;

    Stepper &addNumber(const char *name, const QString &label, int Model::*field, int least, int most,
                       const QString &hint = {});
    void addSwitch(const char *name, const QString &label, bool Model::*field, const QString &hint = {});
    void addFocusGoal();
    Result<void> change(const std::function<void(Model &)> &edit);
    void showWhatDepends();

    KWPomoSettingsManager m_settings;
    Stepper *m_cycle = nullptr;
};
