#include "capture/KWNewTaskPriorityReferee.h"

#include "model/events/NotificationNames.h"
#include "support/TestMain.h"

class KWNewTaskPriorityReferee_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void decidesByPrecedenceButForNotes()
    {
        KWNotificationCenter center;
        KWTaskPriority current = KWTaskPriorityLow;
        KWNewTaskPriorityReferee referee{center, [&current] { return current; }};
        const auto decided = [&referee] { return referee.priority(NewTaskPlace::TaskList); };
        QCOMPARE(decided(), KWTaskPriorityLow);
        current = KWTaskPriorityMedium;
        QCOMPARE(decided(), KWTaskPriorityLow);
        center.post(KWTaskDefaultConfigurationChangedNotification);
        QCOMPARE(decided(), KWTaskPriorityMedium);

        referee.setPreset(KWTaskPriorityHigh);
        QCOMPARE(decided(), KWTaskPriorityHigh);
        referee.setNlp(KWTaskPriorityNone);
        QCOMPARE(decided(), KWTaskPriorityNone);
        referee.setManual(KWTaskPriorityMedium);
        QCOMPARE(decided(), KWTaskPriorityMedium);
        referee.setManual(std::nullopt);
        QCOMPARE(decided(), KWTaskPriorityNone);

        referee.setManual(KWTaskPriorityHigh);
        QCOMPARE(referee.priority(NewTaskPlace::NotesList), KWTaskPriorityNone);
        QCOMPARE(referee.priority(NewTaskPlace::NotesFilter), KWTaskPriorityNone);
    }
};

ORVANE_TEST(KWNewTaskPriorityReferee_test)
#include "KWNewTaskPriorityReferee_test.moc"
