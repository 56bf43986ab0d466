#include "views/sidebar/KWProjectListView.h"

#include "model/records/KWSmartProject.h"
#include "support/TestMain.h"
#include "views/tasklist/TaskMimeData.h"

#include <QAbstractItemModelTester>
#include <QDropEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

using Type = KWProjectListNodeType;

KWProjectListNode &add(KWProjectListNode &parent, Type type, const QString &identifier)
{
    return parent.addChild(
        std::make_unique<KWProjectListNode>(type, identifier, u"Title of "_s + identifier));
}

// Inbox and Today; a folder of two lists and a list; no tags; Completed at the bottom.
struct Tree {
    Tree()
    {
        inbox = &add(top, Type::project, u"inbox"_s);
        add(top, Type::smartProject, KWSmartProject::today().identifier());
        add(center, Type::smartProject, KWSmartProject::tag().identifier());
        add(bottom, Type::smartProject, KWSmartProject::completed().identifier());
        fill();
    }

    void fill()
    {
        lists.setChildren({});
        folder = &add(lists, Type::group, u"home"_s);
        add(*folder, Type::project, u"groceries"_s);
        add(*folder, Type::project, u"garden"_s);
        add(lists, Type::project, u"work"_s);
    }

    KWProjectListNode root{Type::none, {}, {}};
    KWProjectListNode &top = add(root, Type::none, {});
    KWProjectListNode &center = add(root, Type::none, {});
    KWProjectListNode &bottom = add(root, Type::none, {});
    KWProjectListNode &lists = add(center, Type::smartProject, KWSmartProject::project().identifier());
    KWProjectListNode *inbox = nullptr;
    KWProjectListNode *folder = nullptr;
};

QStringList titles(const QAbstractItemModel &model, const QModelIndex &parent = {}, int depth = 0)
{
    QStringList found;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        found.append(QString(depth, u'.') + index.data().toString().remove(u"Title of "_s));
        found.append(titles(model, index, depth + 1));
    }
    return found;
}

} // namespace

class KWProjectListView_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_tree = std::make_unique<Tree>();
        m_view = std::make_unique<KWProjectListView>();
        m_view->resize(248, 600);
        m_view->setRoot(&m_tree->root);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        // As the presenter does.
        connect(m_view.get(), &KWProjectListView::expansionChanged, this,
                [](KWProjectListNode *node, bool isExpanded) { node->setIsExpanded(isExpanded); });
    }
    void cleanup()
    {
        m_view.reset();
        m_tree.reset();
    }

    void showsTheThreePartsAsOneTree()
    {
        QCOMPARE(titles(model()),
                 (QStringList{u"inbox"_s, u"smart.today"_s, u"smart.project"_s, u".home"_s, u"..groceries"_s,
                              u"..garden"_s, u".work"_s, QString{}, u"smart.completed"_s}));
        const QAbstractItemModelTester tester{&model(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest};
        m_view->setRoot(nullptr);
        QCOMPARE(model().rowCount(), 0);
    }

    void selectsPassesOverHeadersAndFolds()
    {
        QVERIFY(m_view->selectNode(Type::smartProject, u"smart.today"_s));
        QTest::keyClick(m_view.get(), Qt::Key_Down); // the header takes the keyboard, not the selection
        QCOMPARE(m_view->selectedNode()->entityID(), u"smart.today"_s);
        QTest::keyClick(m_view.get(), Qt::Key_Down);
        QCOMPARE(m_view->selectedNode(), m_tree->folder);
        QTest::keyClick(m_view.get(), Qt::Key_Left);
        QVERIFY(!m_tree->folder->isExpanded());
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QVERIFY(m_tree->folder->isExpanded());

        const QModelIndex header = model().find(Type::smartProject, u"smart.project"_s);
        QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
                          m_view->visualRect(header).center() - QPoint{60, 0});
        QVERIFY(!m_tree->lists.isExpanded());
        QCOMPARE(m_view->selectedNode(), m_tree->folder);
    }

    void aNewTreeKeepsSelectionAndFolding()
    {
        m_view->selectNode(Type::project, u"garden"_s);
        QSignalSpy selected{m_view.get(), &KWProjectListView::nodeSelected};
        m_tree->fill();
        m_tree->folder->setIsExpanded(true);
        m_view->setRoot(&m_tree->root);
        QCOMPARE(m_view->selectedNode()->entityID(), u"garden"_s);
        QCOMPARE(selected.count(), 0);

        m_tree->fill();
        m_tree->folder->setIsExpanded(false);
        m_view->setRoot(&m_tree->root);
        m_view->selectNode(Type::project, u"garden"_s); // as whoever rebuilt the tree may ask
        QVERIFY(!m_view->isExpanded(index(u"home"_s, Type::group)));
        QCOMPARE(m_view->selectedNode()->entityID(), u"garden"_s);

        m_tree->lists.setChildren({});
        m_view->setRoot(&m_tree->root);
        QVERIFY(!m_view->selectedNode());
        QVERIFY(!m_view->selectNode(Type::project, u"garden"_s));
    }

    void rowsAreMovedAndNotRebuilt()
    {
        const QAbstractItemModelTester tester{&model(),
                                              QAbstractItemModelTester::FailureReportingMode::QtTest};
        const QPersistentModelIndex work = index(u"work"_s);
        const QPersistentModelIndex garden = index(u"garden"_s);
        const QPersistentModelIndex groceries = index(u"groceries"_s);
        QSignalSpy resets{&model(), &QAbstractItemModel::modelReset};
        m_tree->lists.setChildren({}); // work into a folder that is new, garden out of one that goes
        add(add(m_tree->lists, Type::group, u"office"_s), Type::project, u"work"_s);
        add(m_tree->lists, Type::project, u"garden"_s);
        m_view->setRoot(&m_tree->root);
        QCOMPARE(titles(model()).mid(2, 4),
                 (QStringList{u"smart.project"_s, u".office"_s, u"..work"_s, u".garden"_s}));
        QCOMPARE(work.parent().data().toString(), u"Title of office"_s);
        QCOMPARE(model().nodeAt(work)->entityID(), u"work"_s);
        QVERIFY(garden.isValid() && !groceries.isValid());
        QCOMPARE(model().nodeAt(garden)->entityID(), u"garden"_s);

        m_tree->fill(); // and back
        m_view->setRoot(&m_tree->root);
        QCOMPARE(garden.parent().data().toString(), u"Title of home"_s);
        QCOMPARE(work.row(), 1);
        QCOMPARE(resets.count(), 0);
    }

    void followsTheNodesAndMayGoBeforeThem()
    {
        m_tree->folder->setIsExpanded(false);
        QTRY_VERIFY(!m_view->isExpanded(index(u"home"_s, Type::group)));
        m_tree->inbox->setIsSelected(true);
        QCOMPARE(m_view->selectedNode(), m_tree->inbox);
        m_view.reset();
        m_tree->folder->setIsExpanded(true);
        QVERIFY(m_tree->folder->isExpanded());
    }

    void whatADragFoldsIsUnfoldedAfterIt()
    {
        QMimeData tasks;
        tasks.setData(TaskMimeData::type, "milk");
        const QPoint place = m_view->visualRect(index(u"work"_s)).center();
        QDragEnterEvent enter{place, Qt::MoveAction, &tasks, Qt::LeftButton, {}};
        QDragLeaveEvent leave;
        QDropEvent drop{QPointF{place}, Qt::MoveAction, &tasks, Qt::LeftButton, {}};
        const auto folder = [this] { return index(u"home"_s, Type::group); };
        m_view->expand(folder());
        for (QEvent *end : {static_cast<QEvent *>(&leave), static_cast<QEvent *>(&drop)}) {
            QCoreApplication::sendEvent(m_view->viewport(), &enter);
            m_view->collapse(folder()); // as waiting over it may do
            m_tree->fill();             // and meanwhile the tree is another one
            m_tree->folder->setIsExpanded(false);
            m_view->setRoot(&m_tree->root);
            QVERIFY(!m_view->isExpanded(folder()));
            QCoreApplication::sendEvent(m_view->viewport(), end);
            QVERIFY(m_view->isExpanded(folder()) && m_tree->folder->isExpanded());
        }
        m_view->collapse(folder()); // by hand it stays folded
        QCoreApplication::sendEvent(m_view->viewport(), &leave);
        QVERIFY(!m_view->isExpanded(folder()));
    }

    void beginsAtItsTopWhereTheSelectedRowFits()
    {
        for (int i = 0; i < 40; ++i)
            add(m_tree->lists, Type::project, u"list %1"_s.arg(i));
        KWProjectListView view;
        view.resize(100, 30); // as before the window lays it out
        view.setRoot(&m_tree->root);
        view.selectNode(Type::project, u"work"_s);
        view.resize(248, 600);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QVERIFY(view.verticalScrollBar()->maximum() > 0);
        QCOMPARE(view.verticalScrollBar()->value(), 0);
        view.setRoot(nullptr);
    }

    void bottomRowsStandAtTheBottom()
    {
        const QModelIndex completed = model().find(Type::smartProject, u"smart.completed"_s);
        QTRY_COMPARE(m_view->visualRect(completed).bottom() + 1, m_view->viewport()->height());
        m_view->resize(248, 200); // less than the rows need: then it follows the others
        QTRY_VERIFY(m_view->verticalScrollBar()->maximum() > 0);
    }

private:
    ProjectListTreeModel &model() { return m_view->treeModel(); }
    QModelIndex index(const QString &identifier, Type type = Type::project)
    {
        return model().find(type, identifier);
    }

    std::unique_ptr<Tree> m_tree;
    std::unique_ptr<KWProjectListView> m_view;
};

ORVANE_TEST(KWProjectListView_test)
#include "KWProjectListView_test.moc"
