#include "model/store/KWAttachmentService.h"

#include "model/records/KWAttachment.h"
#include "model/store/KWTaskEditor.h"
#include "support/Answers.h"
#include "support/Files.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Qt::StringLiterals;

/// Files attached to tasks, with real files.
class KWAttachmentService_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::optional<KWAttachmentService> m_attachments;
    QTemporaryDir m_folder;
    QString m_taskID;

    QString file(const QString &name) { return m_folder.filePath(name); }
    QList<KWAttachmentModel> attached()
    {
        return KWTaskEditor{m_store->kit().manager()}.read(m_taskID)->attachments;
    }
    QStringList copies()
    {
        return QDir{m_store->kit().folders().data + u"/attachments"_s}.entryList(QDir::Dirs |
                                                                                 QDir::NoDotAndDotDot);
    }
    Result<UndoToken> attach(const QStringList &files)
    {
        std::optional<Result<UndoToken>> answer;
        m_attachments->attach(m_taskID, files, [&answer](const Result<UndoToken> &done) { answer = done; });
        if (!QTest::qWaitFor([&answer] { return answer.has_value(); })) qFatal("nothing was answered");
        return *answer;
    }
    bool takeBack(const Result<UndoToken> &done) { return bool(done->undo(m_store->kit().manager())); }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_attachments.emplace(m_store->kit().manager(), m_store->kit().folders().data);
        m_taskID = aTask("Cake").savedIn(*m_store);
        write(file(u"plan ü.txt"_s), "Flour");
    }
    void cleanup() { m_attachments.reset(); }

    void keepsACopyOfWhatIsAttached()
    {
        QVERIFY(attach({file(u"plan ü.txt"_s)}));
        write(file(u"plan ü.txt"_s), "Eggs");
        const KWAttachmentModel one = attached().first();
        QCOMPARE(one.fileName, u"plan ü.txt"_s);
        QCOMPARE(one.mimeType, u"text/plain"_s);
        QCOMPARE(one.size, 5);
        QCOMPARE(bytesOf(*m_attachments->fileOf(one.sid)), QByteArray{"Flour"});
        QVERIFY(m_attachments->saveAs(one.sid, file(u"saved"_s)));
        QCOMPARE(bytesOf(file(u"saved"_s)), QByteArray{"Flour"});
        QVERIFY(!m_attachments->saveAs(one.sid, file(u"no/such/folder"_s)));

        const auto removed = m_attachments->remove(one.sid);
        QVERIFY(attached().isEmpty() && isRefused(m_attachments->fileOf(one.sid)));
        QVERIFY(isRefused(m_attachments->remove(one.sid)));
        QVERIFY(takeBack(removed));
        QCOMPARE(bytesOf(*m_attachments->fileOf(one.sid)), QByteArray{"Flour"});
        QVERIFY(QFile::remove(*m_attachments->fileOf(one.sid)));
        QVERIFY(isRefused(m_attachments->fileOf(one.sid), u"plan ü.txt"));
    }

    void attachesAllOrNothing()
    {
        QFile huge{file(u"huge"_s)};
        QVERIFY(huge.open(QFile::WriteOnly) && huge.resize(KWAttachmentService::maximumSize + 1));
        for (const QString &bad : {file(u"gone"_s), m_folder.path(), huge.fileName(), u"/dev/zero"_s})
            QVERIFY(isRefused(attach({file(u"plan ü.txt"_s), bad}), QFileInfo{bad}.fileName()));
        m_taskID = aTask("Tea").with(&KWTaskModel::isTrashed, true).savedIn(*m_store);
        QVERIFY(isRefused(attach({file(u"plan ü.txt"_s)})));
        QVERIFY(attached().isEmpty() && copies().isEmpty());
    }

    void opensNothingOutsideItsFolder()
    {
        QVERIFY(attach({file(u"plan ü.txt"_s)}));
        setSaved<KWAttachment>(*m_store, attached().first().sid, &KWAttachmentModel::path,
                               u"attachments/../store.sqlite"_s);
        QVERIFY(isRefused(m_attachments->fileOf(attached().first().sid)));
    }

    void removesCopiesThatNothingUsesForAWeek()
    {
        QVERIFY(attach({file(u"plan ü.txt"_s)}));
        const auto second = attach({file(u"plan ü.txt"_s)});
        QVERIFY(m_attachments->remove(attached().first().sid));
        const auto remains = [this](int count) {
            m_attachments->removeUnused();
            return m_store->kit().manager().threadPool().waitForDone() && copies().size() == count;
        };
        m_store->clock.advance(std::chrono::days{6});
        QVERIFY(remains(2));
        m_store->clock.advance(std::chrono::days{2});
        QVERIFY(remains(1));
        QVERIFY(takeBack(second) && remains(0));
    }
};

ORVANE_TEST(KWAttachmentService_test)
#include "KWAttachmentService_test.moc"
