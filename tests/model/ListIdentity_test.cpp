#include "model/records/KWListIdentifier.h"
#include "model/records/KWSmartProject.h"
#include "model/store/FoldedName.h"
#include "support/TestMain.h"

#include <QSet>

using namespace Qt::StringLiterals;

class ListIdentity_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void selectionsReadBackAsTheyWereWritten();
    void noOtherTextIsASelection_data();
    void noOtherTextIsASelection();
    void smartListsStandInTheOrderOfTheSettings();
    void eachSmartListIsItselfAlone();
    void someSmartListsDependOnTheDate();
    void namesCompareAsTheyAreTyped();
};

void ListIdentity_test::selectionsReadBackAsTheyWereWritten()
{
    QSet<QString> texts;
    const QList<KWListIdentifier> all{
        KWListIdentifier::todayProject(),       KWListIdentifier::monthCalendarViewID(),
        KWListIdentifier::project(u"a"_s),      KWListIdentifier::group(u"a"_s),
        KWListIdentifier::tag(u"a"_s),          KWListIdentifier::tag(u"1:日本 :b"_s),
        {u"a"_s, KWListIdentifierType::Filter}, KWListIdentifier::smartProject(u"a"_s)};
    for (const KWListIdentifier &each : all) {
        texts << each.userDefaultEncode();
        QVERIFY(KWListIdentifier::userDefaultDecode(each.userDefaultEncode()) == each);
    }
    QCOMPARE(texts.size(), all.size());
}

void ListIdentity_test::noOtherTextIsASelection_data()
{
    QTest::addColumn<QString>("text");
    for (const char *each :
         {"", ":", "0", "0:", ":a", "x:a", "3:a", "-1:a", "99999999999:a", " 1:a", "+1:a", "01:a"})
        QTest::newRow(each) << QString::fromLatin1(each);
}

void ListIdentity_test::noOtherTextIsASelection()
{
    QFETCH(const QString, text);
    QVERIFY(!KWListIdentifier::userDefaultDecode(text));
}

void ListIdentity_test::smartListsStandInTheOrderOfTheSettings()
{
    QStringList names;
    for (const KWSmartProject *each : KWSmartProject::configurable())
        names << each->displayName();
    QCOMPARE(names, QStringList({u"All"_s, u"Today"_s, u"Tomorrow"_s, u"Next 7 Days"_s, u"Assigned to Me"_s,
                                 u"Completed"_s, u"Abandoned"_s, u"Trash"_s, u"Summary"_s, u"Tags"_s,
                                 u"Filters"_s}));
}

void ListIdentity_test::eachSmartListIsItselfAlone()
{
    using Test = bool (KWSmartProject::*)() const;
    const std::initializer_list<std::pair<const KWSmartProject *, Test>> tests{
        {&KWSmartProject::all(), &KWSmartProject::isAll},
        {&KWSmartProject::today(), &KWSmartProject::isToday},
        {&KWSmartProject::tomorrow(), &KWSmartProject::isTomorrow},
        {&KWSmartProject::next7days(), &KWSmartProject::isNext7Days},
        {&KWSmartProject::assignedToMe(), &KWSmartProject::isAssigneedToMe},
        {&KWSmartProject::completed(), &KWSmartProject::isCompleted},
        {&KWSmartProject::abandoned(), &KWSmartProject::isAbandoned},
        {&KWSmartProject::trash(), &KWSmartProject::isTrash},
        {&KWSmartProject::summary(), &KWSmartProject::isSummary},
        {&KWSmartProject::inbox(), &KWSmartProject::isInbox}};
    QSet<QString> identifiers;
    for (const auto &[project, unused] : tests) {
        for (const auto &[other, isOther] : tests)
            QCOMPARE((project->*isOther)(), project == other);
        identifiers << project->identifier();
        QCOMPARE(KWSmartProject::withIdentifier(project->identifier()), project);
        QVERIFY(KWSmartProject::isSmartProjectID(project->identifier()));
    }
    QCOMPARE(std::size_t(identifiers.size()), tests.size());
    QVERIFY(!KWSmartProject::isSmartProjectID(u"Today"_s));
    QVERIFY(!KWSmartProject::isSmartProjectID({}));
}

void ListIdentity_test::someSmartListsDependOnTheDate()
{
    QStringList sensitive;
    for (const KWSmartProject *each : KWSmartProject::configurable()) {
        if (KWSmartProject::isDateSensetiveSmartProjectID(each->identifier()))
            sensitive << each->displayName();
        QCOMPARE(KWSmartProject::isCompletedSmartProjectID(each->identifier()), each->isCompleted());
    }
    QCOMPARE(sensitive, QStringList({u"Today"_s, u"Tomorrow"_s, u"Next 7 Days"_s}));
}

void ListIdentity_test::namesCompareAsTheyAreTyped()
{
    QCOMPARE(foldedName(u" Client\tLaunch "_s), foldedName(u"clientlaunch"_s));
    QCOMPARE(foldedName(u"ÉCOLE"_s), foldedName(u"école"_s));
    QCOMPARE(foldedName(u"Ｌｉｓｔ　１"_s), foldedName(u"list1"_s)); // full-width forms
    QCOMPARE(foldedName(u"Cafe\u0301"_s), foldedName(u"café"_s));
    QVERIFY(foldedName(u"Cafe"_s) != foldedName(u"Café"_s));
}

ORVANE_TEST(ListIdentity_test)
#include "ListIdentity_test.moc"
