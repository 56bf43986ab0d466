#include "views/print/ListExport.h"

#include "gui/RowMaking.h"
#include "support/Files.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/print/ListPrint.h"
#include "views/tasklist/TaskListModel.h"

#include <QTemporaryDir>
#include <QTextDocument>

using namespace Qt::StringLiterals;

/// What leaves the program of a list: paper, PDF, Markdown.
class ListExport_test : public QObject {
    Q_OBJECT

    ManualClock m_clock{"2030-05-01 09:00"};
    TaskListModel m_list{m_clock};
    QTemporaryDir m_folder;

private Q_SLOTS:
    void init()
    {
        TaskListRow venue = taskRow(u"1"_s, u"Call *the* venue"_s);
        venue.task.startDate = at("2030-05-01 17:00");
        venue.task.tags = {u"errand"_s};
        TaskListRow map = taskRow(u"2"_s, u"Print the map"_s, 1);
        map.task.status = KWTaskStatusCompleted;
        TaskListRow note = taskRow(u"3"_s, {}, 0, 1);
        note.task.taskKind = KWTaskKindNote;
        TaskListRow dropped = taskRow(u"4"_s, u"Order a tent"_s, 0, 1);
        dropped.task.status = KWTaskStatusAbandoned;
        m_list.setTagLabels({{u"errand"_s, u"Errand"_s}});
        TaskListRow match = taskRow(u"6"_s, u"Home match"_s, 0, 1);
        match.task.kind = KWTaskListItemModel::Kind::CalendarEvent;
        match.task.startDate = at("2030-05-01 18:00");
        match.task.endDate = at("2030-05-01 20:00");
        TaskListRow later = sectionRow(u"Later"_s, 2, 7);
        later.isFolded = true;
        m_list.setRows({sectionRow(u"Today"_s, 0, 3),
                        venue,
                        map,
                        itemRow(u"5"_s, u"Stamp"_s, u"[Letter]"_s),
                        sectionRow(u"No Date"_s, 1, 2),
                        note,
                        dropped,
                        match,
                        later,
                        {TaskListRow::Kind::LoadMore, u"loadMore"_s, 2}});
    }

    void markdownKeepsSectionsSubtasksAndWhatWasTyped()
    {
        const QString file = m_folder.filePath(u"list.MD"_s);
        QVERIFY(ListExport::write(file, u"Trip #1"_s, m_list));
        QCOMPARE(bytesOf(file).toStdString(), "# Trip \\#1\n\n## Today\n\n"
                                              "- [ ] Call \\*the\\* venue · 17:00 \\#Errand\n"
                                              "  - [x] Print the map\n- [ ] Stamp (\\[Letter\\])\n\n"
                                              "## No Date\n\n- No Title\n- [x] ~~Order a tent~~\n"
                                              "- Home match · 18:00 – 20:00\n\n## Later (7)\n\n");
    }

    void paperHasTheSame()
    {
        QCOMPARE(ListPrint::document(u"Trip"_s, m_list)->toPlainText(),
                 u"Trip\nToday\n☐ Call *the* venue  ·  17:00\n☑ Print the map\n☐ Stamp ([Letter])\nNo "
                 u"Date\n– No Title\n"
                 u"☒ Order a tent\n– Home match  ·  18:00 – 20:00\nLater (7)"_s);
    }

    void aPdfIsWrittenWholeOrNotAtAll()
    {
        const QString file = m_folder.filePath(u"list.pdf"_s);
        QVERIFY(ListExport::write(file, u"Trip"_s, m_list));
        QVERIFY(bytesOf(file).startsWith("%PDF") && bytesOf(file).trimmed().endsWith("%%EOF"));
        const Result<void> refused =
            ListExport::write(m_folder.filePath(u"missing/list.pdf"_s), u"Trip"_s, m_list);
        QVERIFY(!refused && refused.error().sentence.contains(u"missing/list.pdf"));
    }
};

ORVANE_TEST(ListExport_test)
#include "ListExport_test.moc"
