#include "views/addfield/TokenCompletion.h"

#include "gui/AddFieldFixture.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/addfield/KWCandidateViewController.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/MainWindow.h"

#include <QListView>

using namespace Qt::StringLiterals;

/// Tokens completed in the add field of the window, with real keys.
class TokenCompletion_test : public QObject {
    Q_OBJECT

    std::unique_ptr<AddFieldFixture> m_client;

    KWNewTaskTextField &field() { return m_client->field(); }
    KWCandidateViewController *candidates() { return field().findChild<KWCandidateViewController *>(); }
    QString offered()
    {
        if (!candidates() || !candidates()->isVisible()) return u"-"_s;
        QStringList titles;
        for (const KWCandidateModel &each : candidates()->dataSource())
            titles.append(titles.size() == candidates()->selectedIndex() ? u'[' + each.title + u']'
                                                                         : each.title);
        return titles.join(u", "_s);
    }
    void pressKeys(const QString &keys)
    {
        for (const QString &each : keys.split(u' ')) {
            const QKeyCombination key = QKeySequence{each}[0];
            m_client->press(key.key(), key.keyboardModifiers());
        }
    }

private Q_SLOTS:
    void init() { m_client = std::make_unique<AddFieldFixture>(); }
    void cleanup() { m_client.reset(); }

    void completes_data() { addCaseRows("gui/completions.txt", 4); }
    void completes()
    {
        QFETCH(QStringList, cells);
        for (const QString &each :
             {u"x ~Groceries #errand"_s, u"x ~Garden #garden-work"_s, u"x ~Home Office"_s})
            m_client->add(each);
        const qsizetype before = m_client->savedTitles().size();
        m_client->type(cells[0]);
        QCOMPARE(offered(), cells[1]);
        QVERIFY(field().hasFocus());
        pressKeys(cells[2]);
        QCOMPARE(offered(), u"-"_s);
        const bool isAdded = cells[3] == u"added";
        QCOMPARE(field().text(), isAdded ? QString{} : cells[3].sliced(1).chopped(1));
        QCOMPARE(m_client->savedTitles().size(), before + (isAdded ? 1 : 0));
    }

    void followsTheCaretAndTheFocus()
    {
        m_client->type(u"Buy !h"_s);
        QCOMPARE(offered(), u"[High]"_s);
        m_client->press(Qt::Key_Home);
        QCOMPARE(offered(), u"-"_s);
        m_client->press(Qt::Key_End);
        m_client->type(u"i"_s);
        QCOMPARE(offered(), u"[High]"_s);
        m_client->press(Qt::Key_Tab);
        QCOMPARE(offered(), u"-"_s);
        field().setFocus();
        m_client->press(Qt::Key_End);
        m_client->press(Qt::Key_Backspace);
        QCOMPARE(offered(), u"[High]"_s);
        // What was refused stays away until another token is typed.
        m_client->press(Qt::Key_Escape);
        QVERIFY(field().hasFocus());
        m_client->type(u"i"_s);
        QCOMPARE(offered(), u"-"_s);
        m_client->type(u" !"_s);
        QCOMPARE(offered(), u"[High], Medium, Low, None"_s);
        // Fewer rows need less room; a window that moves leaves them behind.
        const int height = candidates()->height();
        m_client->type(u"l"_s);
        QCOMPARE(offered(), u"[Low]"_s);
        QVERIFY(candidates()->height() < height / 2);
        m_client->window()->move(m_client->window()->pos() + QPoint{20, 20});
        QTRY_COMPARE(offered(), u"-"_s);
    }

    void aClickTakesTheRowAndUndoTakesItBack()
    {
        m_client->type(u"Buy !"_s);
        auto *rows = candidates()->findChild<QListView *>();
        QTest::mouseClick(rows->viewport(), Qt::LeftButton, {},
                          rows->visualRect(rows->model()->index(2, 0)).center());
        QCOMPARE(field().text(), u"Buy !Low "_s);
        QVERIFY(field().hasFocus());
        QCOMPARE(field().pieces().size(), 1);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field().text(), u"Buy !"_s);
    }

    void whatWasTakenBackIsNotOffered()
    {
        m_client->type(u"Buy !high"_s);
        m_client->press(Qt::Key_Escape);
        m_client->press(Qt::Key_Backspace);
        QCOMPARE(field().text(), u"Buy !high"_s);
        QCOMPARE(field().pieces().size(), 0);
        m_client->type(u" !"_s);
        QCOMPARE(offered(), u"[Medium], Low, None"_s);
    }
};

ORVANE_TEST(TokenCompletion_test)
#include "TokenCompletion_test.moc"
