#include "views/quickadd/QuickAddController.h"

#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "model/settings/KWLocalizedString.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/addfield/TaskPlace.h"
#include "views/quickadd/QuickAddWindow.h"

#include <utility>

// The window of one user with what fills it.
struct QuickAddController::Content {
    explicit Content(AddFieldController::Rooms rooms)
        : kit(rooms.kit)
        , user(kit.account().currentUserID())
        , earlier(kit.defaults().value(Settings::quickAddDrafts, user))
        , addField(window.field(), rooms)
    {
        QObject::connect(&window, &QuickAddWindow::left, &window, [this] { keepDrafts(); });
        QObject::connect(&addField, &AddFieldController::recognized, &window, [this] { explain(); });
        QObject::connect(&addField, &AddFieldController::failed, &window, &QuickAddWindow::showProblem);
        QObject::connect(
            &addField, &AddFieldController::addedSeveral, &window,
            [this](const QStringList &taskIDs) { window.setSummary(tasksAddedText(taskIDs.size())); });
        QObject::connect(&addField, &AddFieldController::added, &window,
                         [this](const QString &taskID) { goOn(taskID); });
    }
    ~Content() { keepDrafts(); }

    void show(const QString &title)
    {
        KWNewTaskTextField &field = window.field();
        const QString text = field.text();
        if (!title.isEmpty() && title != text) {
            if (!text.isEmpty()) earlier.append(text);
            field.setPresetContent(title);
        } else if (text.isEmpty() && !earlier.isEmpty()) {
            field.setText(earlier.takeLast());
        }
        addField.refresh();
        window.popUp();
    }

    void explain() { window.setSummary(placeOf(addField.draft(), kit)); }

    void goOn(const QString &taskID)
    {
        if (!window.isHeldOpen()) {
            window.close();
            return;
        }
        if (const KWTask *task = kit.context().find<KWTask>(taskID))
            window.setSummary(KWLocalizedString("Added: %1").arg(placeOf(task->model(), kit)));
    }

    void keepDrafts()
    {
        QStringList drafts = earlier;
        if (const QString text = window.field().text(); !text.isEmpty()) drafts.append(text);
        if (drafts != kit.defaults().value(Settings::quickAddDrafts, user))
            kit.defaults().set(Settings::quickAddDrafts, drafts, user);
    }

    OrvaneKit &kit;
    const QString user;
    QStringList earlier; // what was typed before what stands in the field now
    QuickAddWindow window;
    AddFieldController addField;
};

QuickAddController::QuickAddController(AddFieldController::Rooms rooms)
    : m_rooms(rooms)
    , m_signIn(rooms.kit.center().addObserver(KWUserDidSignInNotification,
                                              [this](const KWNotification &) { showWaiting(); }))
    , m_signOut(rooms.kit.center().addObserver(KWUserDidSignOutNotification,
                                               [this](const KWNotification &) { m_content.reset(); }))
{
}

QuickAddController::~QuickAddController() = default;

QuickAddWindow *QuickAddController::window() const { return m_content ? &m_content->window : nullptr; }

void QuickAddController::show(const QString &title, const QString &activationToken)
{
    if (!m_rooms.kit.account().isSignedIn()) {
        if (!title.isEmpty()) m_waiting.append(title);
        return;
    }
    if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    if (!m_content) m_content = std::make_unique<Content>(m_rooms);
    m_content->show(title);
}

// From the event loop: the main window, which signing in opens, is not to come over it.
void QuickAddController::showWaiting()
{
    for (const QString &title : std::exchange(m_waiting, {}))
        QMetaObject::invokeMethod(
            this, [this, title] { show(title, {}); }, Qt::QueuedConnection);
}
