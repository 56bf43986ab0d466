#include "integration/bridge/BridgePorts.h"
#include "integration/bridge/JsApiSummary.h"
#include "integration/bridge/JsApiTickets.h"
#include "integration/bridge/JsApiUniversal.h"

#include "support/TestMain.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

struct RecordingPasteboard final : PasteboardPort {
    void setPlainText(const QString &text) override { plain.append(text); }
    void setHtml(const QString &text) override { html.append(text); }
    QStringList plain, html;
};

struct RecordingExporter final : SummaryExporterPort {
    void exportPdf() override { done.append(u"pdf"_s); }
    QString exportPNG() override
    {
        done.append(u"png"_s);
        return u"Summary.png"_s;
    }
    QString exportMail(const QString &title, const QString &summary) override
    {
        done.append(title + u'|' + summary);
        return u"sent"_s;
    }
    QStringList done;
};

} // namespace

/// What pages call, without a page.
class JsApi_test : public QObject {
    Q_OBJECT

    RecordingPasteboard m_pasteboard;
    RecordingExporter m_exporter;
    std::unique_ptr<JsApiSummary> m_api;

private Q_SLOTS:
    void init()
    {
        m_pasteboard = {};
        m_exporter = {};
        m_api = std::make_unique<JsApiSummary>(m_pasteboard, m_exporter);
    }

    void showsToastsAndTellsTheDevice()
    {
        QStringList toasts;
        JsApiUniversal api{[&toasts](const QString &text) { toasts.append(text); }};
        QCOMPARE(api.toast(u"Done"_s), QString{});
        QCOMPARE(toasts, QStringList{u"Done"_s});
        const QJsonObject device = QJsonDocument::fromJson(api.getDeviceInfo({}).toUtf8()).object();
        QCOMPARE(device[u"version"_s].toString(), QCoreApplication::applicationVersion());
        QVERIFY(!device[u"system"_s].toString().isEmpty());
        QVERIFY2(!device.contains(u"host"_s) && device.size() == 6, "nothing more leaves the machine");
    }

    void copiesTextsAsTheyStand()
    {
        const QString markdown = u"# **Week**\n- [x] `a`"_s;
        QCOMPARE(m_api->copyMarkdown(markdown), QString{});
        QCOMPARE(m_api->copyPlainText(markdown), QString{});
        QCOMPARE(m_pasteboard.plain, (QStringList{markdown, markdown}));
        QCOMPARE(m_api->copyRichText(u"<b>x</b>"_s), QString{});
        QCOMPARE(m_pasteboard.html, QStringList{u"<b>x</b>"_s});
    }

    void insertsOnlyWhereThereIsAText()
    {
        QCOMPARE(m_api->insertSummary(u"text"_s), QString{});
        QStringList inserted;
        m_api->insertSummaryHandler = [&inserted](const QString &text) { inserted.append(text); };
        QCOMPARE(m_api->insertSummary(u"text"_s), QString{});
        QCOMPARE(inserted, QStringList{u"text"_s});
    }

    void exports()
    {
        QCOMPARE(m_api->exportPdf(u"unused"_s), QString{});
        QCOMPARE(m_api->exportPNG({}), u"Summary.png"_s);
        QCOMPARE(m_exporter.done, (QStringList{u"pdf"_s, u"png"_s}));
    }

    void mailsJsonObjects_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("mailed"); // empty for no mail
        QTest::addRow("whole") << u"{\"title\": \"Week\", \"summary\": \"- a\"}"_s << u"Week|- a"_s;
        QTest::addRow("no title") << u"{\"summary\": \"- a\"}"_s << u"|- a"_s;
        QTest::addRow("other types") << u"{\"title\": 7, \"summary\": []}"_s << u"|"_s;
        QTest::addRow("an array") << u"[\"Week\"]"_s << QString{};
        QTest::addRow("no JSON") << u"Week"_s << QString{};
        QTest::addRow("nothing") << QString{} << QString{};
        QTest::addRow("cut short") << u"{\"title\": \"We"_s << QString{};
        QTest::addRow("deep") << QString(100'000, u'[') << QString{};
    }
    void mailsJsonObjects()
    {
        QFETCH(const QString, message);
        QFETCH(const QString, mailed);
        QCOMPARE(m_api->exportMail(message), mailed.isEmpty() ? QString{} : u"sent"_s);
        QCOMPARE(m_exporter.done, mailed.isEmpty() ? QStringList{} : QStringList{mailed});
    }

    void readsTheLogOncePerPage()
    {
        int reads = 0;
        JsApiTickets api{[&reads] { return reads++ == 0 ? QString{} : u"again"_s; }};
        for (int i = 0; i < 3; ++i)
            QCOMPARE(api.uploadLog({}), QString{});
        QCOMPARE(reads, 1);
    }
};

ORVANE_TEST(JsApi_test)
#include "JsApi_test.moc"
