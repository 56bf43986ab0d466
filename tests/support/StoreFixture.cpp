#include "support/StoreFixture.h"

#include "model/records/KWProject.h"

StoreFixture::StoreFixture(const char *localTime, const char *zone) : clock(localTime, zone)
{
    open();
    if (const Result<void> opened = m_kit->account().openLocalAccount(QLocale::c()); !opened)
        qFatal("No local account: %s", qUtf8Printable(opened.error().sentence));
}

void StoreFixture::open()
{
    OrvaneKit::Opening opening = OrvaneKit::open(DataFolders::locate(m_folder.path()), clock);
    if (!opening.kit) qFatal("The store cannot be opened: %s", qUtf8Printable(opening.sentence));
    m_kit = std::move(opening.kit);
}

void StoreFixture::reopen()
{
    m_kit.reset();
    open();
}

QString StoreFixture::makeList(const QString &name, KWProjectKind kind)
{
    QString id;
    const Result<void> saved =
        KWCoreDataService{m_kit->manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWProject &list = KWProject::createProjectNamed(name, userID(), context);
            list.set(&KWProjectModel::kind, kind);
            id = list.sid();
            return {};
        });
    if (!saved) qFatal("The list cannot be made: %s", qUtf8Printable(saved.error().sentence));
    return id;
}
