#include "platform/TerminationSignals.h"

#include "support/TestMain.h"

#include <csignal>

class TerminationSignals_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void asksToQuitFromTheEventLoop()
    {
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            int asked = 0;
            const TerminationSignals signals{[&asked] { ++asked; }};
            std::raise(signal);
            QCOMPARE(asked, 0);
            QTRY_COMPARE(asked, 1);
            std::raise(signal);
            QTRY_COMPARE(asked, 2);
        }
    }
};

ORVANE_TEST(TerminationSignals_test)
#include "TerminationSignals_test.moc"
