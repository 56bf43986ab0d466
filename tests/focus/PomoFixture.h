#pragma once

#include "corvexkit/stopwatch/Stopwatch.h"
#include "focus/FocusAssociation.h"
#include "focus/FocusRecordQueue.h"
#include "focus/KWFocusRunningManager.h"
#include "focus/KWPomoRunningManager.h"
#include "model/records/KWPomoSettingsModel.h"
#include "support/MemoryStopwatchStore.h"
#include "support/StoreFixture.h"

/// An account on Wednesday, 2030-05-01 at nine with the tasks "A" and "B" and the habit "H", the engines of
/// focus, and records of what they show and ask.
struct PomoFixture {
    PomoFixture();

    struct Messages : FocusMessagePort {
        void show(const FocusMessage &message) override { shown = message; }
        void remove() override { shown.reset(); }
        std::optional<FocusMessage> shown;
    };
    struct Popover : FocusPopoverPort {
        void showPomoPage() override { page = QStringLiteral("pomo"); }
        void showStopwatchPage() override { page = QStringLiteral("stopwatch"); }
        bool isOpenWithPomoPage() const override { return isShown && page == QLatin1StringView{"pomo"}; }
        bool isOpen() const override { return isShown; }
        void dismiss() override { isShown = false; }
        void showStarted() override { ++startsTold; }
        QString page;
        bool isShown = false;
        int startsTold = 0;
    };
    struct Questions : FocusQuestionPort {
        void ask(const FocusQuestion &question, std::function<void(int)> answered) override
        {
            asked = question;
            answer = std::move(answered);
        }
        void askInWindow(const FocusQuestion &question, std::function<void(int)> answered) override
        {
            askedInWindow = question;
            answerInWindow = std::move(answered);
        }
        void takeBackFromWindow() override { askedInWindow.reset(); }
        std::optional<FocusQuestion> asked;
        std::optional<FocusQuestion> askedInWindow;
        std::function<void(int)> answer;
        std::function<void(int)> answerInWindow;
    };

    /// Does what words say, one after the other: "start", "start-A", "start-length-90", "oc_start", "pause",
    /// "resume", "command" (that of the menu), "stop", "abandon", "relax", "stopwatch", "stopwatch-B",
    /// "target-H", "target-none", "press-POMO_RELAX", "yes" and "no" (to the question), "belongs",
    /// "not-belongs", "disable", "enable", "sign-out", "sign-in", "25m", "31s", "sleep-10m", "clock-3h",
    /// "clock--3h", "delete-A", "restore-A" and settings such as "auto-pomo", "auto-break", "cycle-3",
    /// "interval-2", "pomo-10", "short-2", "long-20".
    void does(const QString &words);
    /// "foucsing 1499": the state and what is left.
    QString state() const;
    /// Each record, the oldest first: "09:00-09:25 A=25:00", pauses as " pause=5:00".
    QString records();
    /// What a task or habit was credited: "1 25:00" (Pomos and time), "-" for nothing.
    QString creditOf(const QString &name);
    QString idOf(const QString &name) const;

    StoreFixture store{"2030-05-01 09:00", "Europe/Berlin"};
    Messages messages;
    Popover popover;
    Questions questions;
    MemoryStopwatchStore stopwatchStore;
    Corvex::Focus::Stopwatch stopwatch{store.clock, stopwatchStore};
    FocusAssociation association{store.kit().center()};
    FocusJournal journal{store.kit().defaults()};
    FocusRecordQueue recordQueue{store.kit(), journal};
    KWPomoRunningManager pomo;
    KWFocusRunningManager coordinator;

private:
    void step(const QString &word);
    FocusTarget targetOf(const QString &name) const;
    void set(int KWPomoSettingsModel::*member, int value);
    void set(bool KWPomoSettingsModel::*member, bool value);
    void save(const KWPomoSettingsModel &settings);

    QHash<QString, FocusTarget> m_targets;
};
