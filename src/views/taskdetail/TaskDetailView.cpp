#include "views/taskdetail/TaskDetailView.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/controls/ScrollColumn.h"
#include "views/controls/TabOrder.h"
#include "views/controls/TextButton.h"
#include "views/markdown/MarkdownEdit.h"
#include "views/taskdetail/AttachmentList.h"
#include "views/taskdetail/DetailFooter.h"
#include "views/taskdetail/DetailHeader.h"
#include "views/taskdetail/SubtaskList.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QStyle>
#include <QUrl>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QStringList filesIn(const QMimeData &data)
{
    QStringList files;
    for (const QUrl &each : data.urls())
        if (each.isLocalFile()) files.append(each.toLocalFile());
    return files;
}

} // namespace

TaskDetailView::TaskDetailView(CXClock &clock, QWidget *parent)
    : QWidget(parent)
    , m_page(new QWidget{this})
    , m_header(new DetailHeader{clock})
    , m_parent(new TextButton{{}})
    , m_title(new CommittingTextEdit{clock, CommittingTextEdit::Lines::One})
    , m_content(new MarkdownEdit{clock})
    , m_checklist(new ChecklistView{clock})
    , m_subtasks(new SubtaskList)
    , m_attachments(new AttachmentList)
    , m_footer(new DetailFooter)
{
    setObjectName(u"taskDetail"_s);
    setAccessibleName(KWLocalizedString("Task"));
    setAcceptDrops(true);
    m_parent->setObjectName(u"openParent"_s);
    m_parent->setToolTip(KWLocalizedString("Open the task that this one belongs to"));
    m_title->setObjectName(u"taskTitle"_s);
    m_title->setAccessibleName(KWLocalizedString("Title"));
    m_content->setObjectName(u"taskContent"_s);
    m_content->setAccessibleName(KWLocalizedString("Description"));
    m_content->setPlaceholderText(KWLocalizedString("Add a description"));

    auto *page = new QVBoxLayout{m_page};
    page->setContentsMargins({});
    page->setSpacing(0);
    page->addWidget(m_header);
    page->addWidget(makeScrolledPart(), 1);
    page->addWidget(m_footer);
    auto *layout = new QVBoxLayout{this};
    layout->setContentsMargins({});
    layout->addWidget(m_page);

    connectParts();
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &TaskDetailView::dress);
    dress();
    setFocusProxy(m_title);
    m_page->hide();
}

TaskDetailView::~TaskDetailView() { commitEdits(); }

QWidget *TaskDetailView::makeScrolledPart()
{
    auto *parts = new QWidget;
    auto *texts = new QVBoxLayout;
    texts->setContentsMargins(Metrics::sideMargin, Metrics::gap + 2, Metrics::sideMargin, Metrics::gap);
    texts->setSpacing(Metrics::grid * 2);
    texts->addWidget(m_parent);
    texts->addWidget(m_title);
    texts->addWidget(m_content);
    auto *column = new QVBoxLayout{parts};
    column->setContentsMargins(0, 0, 0, Metrics::gap);
    column->setSpacing(0);
    column->addLayout(texts);
    column->addWidget(m_checklist);
    column->addWidget(m_subtasks);
    column->addWidget(m_attachments);
    column->addStretch(1);

    return new ScrollColumn{parts};
}

void TaskDetailView::connectParts()
{
    connect(m_parent, &QAbstractButton::clicked, this, &TaskDetailView::parentOpened);
    connect(m_title, &CommittingTextEdit::committed, this, &TaskDetailView::titleEdited);
    connect(m_content, &CommittingTextEdit::committed, this, &TaskDetailView::contentEdited);
    connect(m_content, &MarkdownEdit::linkOpened, this, &TaskDetailView::linkOpened);
    connect(m_title, &CommittingTextEdit::entered, m_content, [this] { m_content->setFocus(); });
    connect(m_title, &CommittingTextEdit::leftDownwards, m_content, [this] { m_content->setFocus(); });
    connect(m_content, &CommittingTextEdit::leftUpwards, m_title, [this] { m_title->setFocus(); });
    connect(m_checklist, &ChecklistView::itemToggled, this, &TaskDetailView::itemToggled);
    connect(m_checklist, &ChecklistView::itemTitleEdited, this, &TaskDetailView::itemTitleEdited);
    connect(m_checklist, &ChecklistView::itemAdded, this, &TaskDetailView::itemAdded);
    connect(m_checklist, &ChecklistView::itemRemoved, this, &TaskDetailView::itemRemoved);
}

void TaskDetailView::dress()
{
    const Theme &theme = Theme::current();
    m_title->setFont(Fonts::font(Fonts::Role::DetailTitle));
    m_content->setFont(Fonts::font(Fonts::Role::Body));
    m_title->setTextColor(m_isClosed ? theme.doneText : theme.text);
    m_content->setTextColor(theme.secondaryText);
    m_title->setStruckOut(m_isClosed);
    m_header->dress();
    m_content->dress();
    m_checklist->dress();
    m_subtasks->dress();
    m_attachments->dress();
    m_footer->dress();
}

void TaskDetailView::setTask(const std::optional<TaskDetailData> &shown)
{
    if (!shown) {
        keepUnsaved();
        m_sid.clear();
        m_title->startWith({});
        m_content->startWith({});
        m_checklist->startWith({});
        m_subtasks->clearField();
        m_page->hide();
        return;
    }
    if (shown->task.sid == m_sid)
        follow(*shown);
    else
        startWith(*shown);
    showParts(*shown);
    m_page->show();
}

bool TaskDetailView::insertIntoContent(const QString &text)
{
    if (m_sid.isEmpty() || m_content->isReadOnly()) return false;
    QTextCursor caret = m_content->textCursor();
    caret.setPosition(caret.selectionEnd()); // nothing that is selected is replaced
    const bool isInLine = !caret.atBlockStart();
    caret.insertText((isInLine ? u"\n"_s : QString{}) + text);
    m_content->setTextCursor(caret);
    m_content->setFocus(Qt::OtherFocusReason);
    commitEdits();
    return true;
}

void TaskDetailView::showParts(const TaskDetailData &shown)
{
    const KWTaskModel &task = shown.task;
    m_header->setTask(shown);
    m_parent->setText(KWLocalizedString("Part of “%1”").arg(shown.parentTitle));
    m_parent->setAccessibleName(m_parent->text());
    m_parent->setVisible(!shown.parentTitle.isEmpty());
    m_title->setReadOnly(!shown.mayChange);
    m_content->setReadOnly(!shown.mayChange);
    m_checklist->setReadOnly(!shown.takesMore());
    m_checklist->setVisible(task.kind != KWTaskKindNote);
    const bool isClosed = task.status != KWTaskStatusOpen;
    m_subtasks->setSubtasks(shown.subtasks);
    m_subtasks->setTakesMore(shown.takesMore() && task.kind != KWTaskKindNote && !isClosed);
    m_attachments->setAttachments(shown.attachments);
    m_footer->setTask(shown);
    if (std::exchange(m_isClosed, isClosed) != isClosed) dress();
    // Rows come and go.
    if (const QWidgetList controls = controlsInOrder(*m_page); controls != m_controls) {
        m_controls = controls;
        setTabOrderOf(controls);
    }
}

void TaskDetailView::startWith(const TaskDetailData &shown)
{
    keepUnsaved();
    m_sid = shown.task.sid;
    m_title->startWith(shown.task.title);
    m_content->startWith(shown.task.description());
    m_checklist->startWith(shown.items);
    m_subtasks->clearField();
    const Unsaved unsaved = m_unsaved.take(m_sid);
    if (unsaved.title) m_title->retype(*unsaved.title);
    if (unsaved.content) m_content->retype(*unsaved.content);
    m_checklist->retype(unsaved.items);
    m_subtasks->retype(unsaved.subtask);
}

void TaskDetailView::keepUnsavedTitle() { m_title->takeBackCommitted(); }

void TaskDetailView::keepUnsavedContent() { m_content->takeBackCommitted(); }

TaskDetailView::Unsaved TaskDetailView::unsavedOfShown() const
{
    Unsaved unsaved{.items = m_checklist->unsavedItems(), .subtask = m_subtasks->typedText()};
    if (m_title->hasUncommittedText() && !m_title->text().trimmed().isEmpty())
        unsaved.title = m_title->text();
    if (m_content->hasUncommittedText()) unsaved.content = m_content->text();
    return unsaved;
}

void TaskDetailView::keepUnsaved()
{
    if (m_sid.isEmpty()) return;
    if (const Unsaved unsaved = unsavedOfShown(); !unsaved.isNothing()) m_unsaved[m_sid] = unsaved;
}

QStringList TaskDetailView::Unsaved::texts() const
{
    QStringList all{title.value_or(QString{}), content.value_or(QString{}), subtask};
    for (const ChecklistView::UnsavedItem &each : items)
        all.append(each.title);
    all.removeAll(QString{});
    return all;
}

QStringList TaskDetailView::unsavedTexts()
{
    QStringList all;
    if (!m_sid.isEmpty()) {
        commitEdits();
        all = unsavedOfShown().texts();
    }
    for (const QString &taskID : m_unsaved.keys()) {
        const Unsaved left = storeUnsaved ? storeUnsaved(taskID, m_unsaved[taskID]) : m_unsaved[taskID];
        all += left.texts();
        if (left.isNothing())
            m_unsaved.remove(taskID);
        else
            m_unsaved[taskID] = left;
    }
    return all;
}

void TaskDetailView::follow(const TaskDetailData &shown)
{
    m_title->setStoredText(shown.task.title);
    m_content->setStoredText(shown.task.description());
    m_checklist->setItems(shown.items);
}

void TaskDetailView::commitEdits()
{
    m_title->commit();
    m_content->commit();
    m_checklist->commit();
    m_subtasks->commit();
}

void TaskDetailView::dragEnterEvent(QDragEnterEvent *event)
{
    if (!m_sid.isEmpty() && !filesIn(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void TaskDetailView::dropEvent(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT filesDropped(filesIn(*event->mimeData()));
}

void TaskDetailView::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    painter.fillRect(rect(), theme.window);
    // Over the list it has an edge of its own; beside it the splitter draws one.
    if (autoFillBackground())
        painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), {0, 0, 1, height()}), theme.popupEdge);
    if (!m_sid.isEmpty()) return;
    painter.setFont(Fonts::font(Fonts::Role::Body));
    painter.setPen(theme.faintText);
    painter.drawText(rect().adjusted(Metrics::margin, height() / 4, -Metrics::margin, 0),
                     Qt::AlignHCenter | Qt::TextWordWrap,
                     KWLocalizedString("Select a task to see all of it"));
}
