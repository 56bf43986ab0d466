#include "model/records/KWListIdentifier.h"
#include "model/records/KWSmartProject.h"
#include "model/store/FoldedName.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class ListIdentity_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void selectionsReadBackAsTheyWereWritten()
    {
        for (const KWListIdentifier &each :
             {KWListIdentifier::todayProject(), KWListIdentifier::monthCalendarViewID(),
              KWListIdentifier::project(u"a"_s), KWListIdentifier::group(u"a"_s),
              KWListIdentifier::tag(u"1:日本 :b"_s), KWListIdentifier{u"a"_s, KWListIdentifierType::Filter}})
            QVERIFY(KWListIdentifier::userDefaultDecode(each.userDefaultEncode()) == each);
    }

    void noOtherTextIsASelection()
    {
        for (const char *each :
             {"", ":", "0", "0:", ":a", "x:a", "3:a", "-1:a", "99999999999:a", " 1:a", "+1:a", "01:a"})
            QVERIFY2(!KWListIdentifier::userDefaultDecode(QString::fromLatin1(each)), each);
    }

    void smartListsStandInTheOrderOfTheSettings()
    {
        QString names;
        for (const KWSmartProject *each : KWSmartProject::configurable()) {
            const QString identifier = each->identifier();
            QCOMPARE(KWSmartProject::withIdentifier(identifier), each);
            names += each->displayName() +
                     (KWSmartProject::isDateSensetiveSmartProjectID(identifier) ? u" (dated), "_s : u", "_s);
        }
        QCOMPARE(names, u"All, Today (dated), Tomorrow (dated), Next 7 Days (dated), Assigned to Me, "
                        "Completed, Abandoned, Trash, Summary, Tags, Filters, "_s);
        QVERIFY(!KWSmartProject::isSmartProjectID(u"Today"_s));
    }

    void namesCompareAsTheyAreTyped()
    {
        QCOMPARE(foldedName(u" Client\tLaunch "_s), foldedName(u"clientlaunch"_s));
        QCOMPARE(foldedName(u"ÉCOLE"_s), foldedName(u"école"_s));
        QCOMPARE(foldedName(u"Ｌｉｓｔ　１"_s), foldedName(u"list1"_s)); // full-width forms
        QCOMPARE(foldedName(u"Cafe\u0301"_s), foldedName(u"café"_s));
        QVERIFY(foldedName(u"Cafe"_s) != foldedName(u"Café"_s));
    }
};

ORVANE_TEST(ListIdentity_test)
#include "ListIdentity_test.moc"
