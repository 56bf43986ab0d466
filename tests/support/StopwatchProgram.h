#pragma once

#include "corvexkit/stopwatch/Stopwatch.h"
#include "focus/FocusRecordQueue.h"
#include "focus/KWStopwatchConfirmManager.h"
#include "focus/StopwatchFile.h"
#include "focus/StopwatchTerminator.h"
#include "support/StoreFixture.h"

/// Notes what it is told to show.
class NotedConfirmWindow final : public StopwatchConfirmPort {
public:
    std::optional<StopwatchConfirmation> shown;
    int showCount = 0;

    void show(const StopwatchConfirmation &confirmation) override
    {
        shown = confirmation;
        ++showCount;
    }
    void close() override { shown.reset(); }
};

/// The stopwatch as one run of the program has it, on the folder of a store.
struct StopwatchProgram {
    explicit StopwatchProgram(StoreFixture &store) : StopwatchProgram{store, window} {}
    StopwatchProgram(StoreFixture &store, StopwatchConfirmPort &shownIn)
        : journal{store.kit().defaults()}
        , records{store.kit(), journal}
        , file{store.kit().folders().stopwatch()}
        , stopwatch{store.clock, file}
        , confirmation{store.kit().center(), shownIn, Corvex::Focus::Stopwatch::automaticStopLength()}
        , terminator{store.kit(), store.clock, stopwatch, confirmation, records}
    {
        records.onFailure = [this](const QString &sentence) { failures << sentence; };
        stopwatch.restore();
        records.storeWaiting();
        terminator.applicationDidFinishLaunching();
        store.clock.advance(std::chrono::milliseconds{0});
    }

    NotedConfirmWindow window;
    QStringList failures;
    FocusJournal journal;
    FocusRecordQueue records;
    StopwatchFile file;
    Corvex::Focus::Stopwatch stopwatch;
    KWStopwatchConfirmManager confirmation;
    StopwatchTerminator terminator;
};
