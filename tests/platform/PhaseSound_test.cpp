#include "platform/PhaseSound.h"

#include "support/TestMain.h"

#include <QtEndian>

/// The tones that a Pomo ends with.
class PhaseSound_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void areAWaveFileThatBeginsAndEndsSilent()
    {
        const QByteArray file = phaseTones();
        const auto number = [&file](qsizetype at) {
            return qFromLittleEndian<quint32>(file.constData() + at);
        };
        QVERIFY(file.startsWith("RIFF"));
        QCOMPARE(number(4), quint32(file.size() - 8));
        QCOMPARE(file.mid(36, 4), QByteArray{"data"});
        QCOMPARE(number(40), quint32(file.size() - 44));

        int loudest = 0;
        for (qsizetype at = 44; at + 1 < file.size(); at += 2)
            loudest = std::max(loudest, std::abs(int(qFromLittleEndian<qint16>(file.constData() + at))));
        QVERIFY(loudest > 3000 && loudest < 9000);
        QVERIFY(std::abs(int(qFromLittleEndian<qint16>(file.constData() + 44))) < 50);
        QVERIFY(std::abs(int(qFromLittleEndian<qint16>(file.constData() + file.size() - 2))) < 50);
    }
};

ORVANE_TEST(PhaseSound_test)
#include "PhaseSound_test.moc"
