#include "gui/AddFieldFixture.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/records/KWTeamworker.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/addfield/KWCandidateViewController.h"
#include "views/addfield/KWNewTaskTextField.h"

using namespace Qt::StringLiterals;

/// What an add field offers in a shared list, beside other lists whose names resemble each other.
class Offers_test : public QObject {
    Q_OBJECT

    std::unique_ptr<AddFieldFixture> m_client;

    KWNewTaskTextField &field() { return m_client->field(); }
    QString offered()
    {
        const auto *rows = field().findChild<KWCandidateViewController *>();
        if (!rows || !rows->isVisible()) return u"-"_s;
        QStringList titles;
        for (const KWCandidateModel &each : rows->dataSource())
            titles.append(titles.size() == rows->selectedIndex() ? u'[' + each.title + u']' : each.title);
        return titles.join(u", "_s);
    }
    QString marks() { return joined(field().pieces(), &RecognizedPiece::text); }
    void clickMark()
    {
        const QPoint centre = field().globalBoundsOf(field().pieces().constLast()).center();
        QTest::mouseClick(field().viewport(), Qt::LeftButton, {}, field().viewport()->mapFromGlobal(centre));
    }
    KWProject &makeList(const QString &name)
    {
        OrvaneKit &kit = m_client->kit();
        return KWProject::createProjectNamed(name, kit.account().currentUserID(), kit.context());
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<AddFieldFixture>();
        ObjectContext &context = m_client->kit().context();
        KWProject &shared = makeList(u"Homework"_s);
        shared.set(&KWProjectModel::isShared, true);
        for (const QString &each : {u"Garden shed"_s, u"garden"_s, u"Work"_s})
            makeList(each);
        KWTeamworkerModel member;
        member.projectID = shared.sid();
        member.userServerID = 7;
        member.name = u"North Star"_s;
        context.insert<KWTeamworker>(std::move(member));
        QVERIFY(context.save());
        m_client->openList(u"Homework"_s);
        m_client->press(Qt::Key_N, Qt::ControlModifier);
    }
    void cleanup() { m_client.reset(); }

    void offers_data() { addCaseRows("gui/offers.txt", 2); }
    void offers()
    {
        QFETCH(QStringList, cells);
        field().insertPlainText(cells[0]); // no key has full-width signs
        QCOMPARE(offered(), cells[1]);
    }

    void aMemberIsCompletedTakenBackAndBroughtBack()
    {
        m_client->type(u"Ask @nor"_s);
        m_client->press(Qt::Key_Return);
        QCOMPARE(field().text(), u"Ask @North Star "_s);
        QCOMPARE(field().accessibleDescription(), u"Homework"_s);
        clickMark();
        QCOMPARE(marks(), QString{});
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(marks(), u"@North Star"_s);
        QCOMPARE(offered(), u"-"_s); // though the click has put the caret into it
        m_client->press(Qt::Key_Return);
        const auto tasks = m_client->kit().context().models<KWTask>({});
        QCOMPARE(joined(tasks, &KWTaskModel::title), u"Ask"_s);
        QCOMPARE(tasks.first().assignee, 7);

        m_client->type(u"Ask @North Star"_s);
        m_client->press(Qt::Key_Backspace);
        m_client->type(u" @"_s);
        QCOMPARE(offered(), u"-"_s);
    }

    void aListThatWasTakenBackIsNotOffered()
    {
        m_client->type(u"Dig ~garden"_s);
        m_client->press(Qt::Key_Escape);
        field().setFocus();
        clickMark();
        QCOMPARE(marks(), QString{});
        m_client->type(u"  ~gar"_s);
        QCOMPARE(offered(), u"[Garden shed]"_s);
    }
};

ORVANE_TEST(Offers_test)
#include "Offers_test.moc"
