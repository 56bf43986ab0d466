#include "client/WebPages.h"
#include "gui/ClientFixture.h"
#include "integration/bridge/BridgePorts.h"
#include "integration/bridge/JsApiSummary.h"
#include "integration/bridge/JsApiTickets.h"
#include "integration/bridge/JsApiUniversal.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/web/Pasteboard.h"
#include "views/web/WebPane.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMimeData>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int longest = 60'000; // ms, for an engine that starts on a busy machine

/// Hears what the page of the test found.
class ReportApi : public JsApiHandleObject {
    Q_OBJECT

public:
    QJsonObject found;

public Q_SLOTS:
    QString report(const QString &text)
    {
        found = QJsonDocument::fromJson(text.toUtf8()).object();
        return {};
    }
};

struct RecordingExporter final : SummaryExporterPort {
    void exportPdf() override { done.append(u"pdf"_s); }
    QString exportPNG() override { return u"Summary.png"_s; }
    QString exportMail(const QString &title, const QString &summary) override
    {
        done.append(title + u'|' + summary);
        return u"mailed"_s;
    }
    QStringList done;
};

bool hasPlugin() { return webPagePlugin() != nullptr; }

} // namespace

/// Pages of ours in the real web view.
class WebPage_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void callsEveryMethodAndReachesNothingElse()
    {
        if (!hasPlugin()) QSKIP("It was built without Qt WebEngine.");
        QStringList toasts, inserted;
        QList<QUrl> links;
        Pasteboard pasteboard;
        RecordingExporter exporter;
        JsApiUniversal universal{[&](const QString &text) { toasts.append(text); }};
        JsApiSummary summary{pasteboard, exporter};
        summary.insertSummaryHandler = [&](const QString &text) { inserted.append(text); };
        JsApiTickets tickets{[] { return u"log\n"_s; }};
        ReportApi report;
        WebPane pane;
        pane.resize(400, 300);
        pane.setPage({.name = u"test"_s,
                      .handlers = {&universal, &summary, &tickets, &report},
                      .openLink = [&](const QUrl &url) { links.append(url); }},
                     webPagePlugin);
        QVERIFY(!pane.page()); // nothing is loaded before it is to be seen
        pane.show();
        QTRY_VERIFY_WITH_TIMEOUT(!report.found.isEmpty(), longest);

        const QJsonObject found = report.found;
        for (const char *empty :
             {"toast", "insertSummary", "copyMarkdown", "copyPlainText", "copyRichText", "exportPdf",
              "noJson", "number", "object", "long", "busy", "otherName", "otherSlot"})
            QVERIFY2(found[QLatin1StringView{empty}] == QJsonValue{QString{}}, empty);
        QCOMPARE(found[u"exportPNG"_s].toString(), u"Summary.png"_s);
        QCOMPARE(found[u"exportMail"_s].toString(), u"mailed"_s);
        QCOMPARE(found[u"uploadLog"_s].toString(), u"log\n"_s);
        QVERIFY(found[u"device"_s].toObject().contains(u"version"_s));
        QCOMPARE(inserted, QStringList{u"# Week"_s});
        QCOMPARE(exporter.done, (QStringList{u"pdf"_s, u"Week|- a"_s}));
        QCOMPARE(toasts.size(), 10'002);
        QCOMPARE(toasts.last(), u"last"_s);
        QCOMPARE(QGuiApplication::clipboard()->text().size(), 10'000'000);

        QCOMPARE(found[u"unknown"_s].toString(), u"ReferenceError"_s);
        QCOMPARE(found[u"deleted"_s].toString(), u"undefined"_s);
        QCOMPARE(found[u"objects"_s].toArray(), QJsonArray{u"bridge"_s});
        QCOMPARE(found[u"fetched"_s].toString(), u"TypeError"_s);
        QCOMPARE(found[u"ownFile"_s].toString(), u"TypeError"_s);
        QCOMPARE(found[u"opened"_s].toBool(), true);
        QCOMPARE(found[u"address"_s].toString(), u"qrc:/orvane/pages/test/index.html"_s);
        QCOMPARE(links, QList<QUrl>{QUrl{u"https://example.org/away"_s}}); // for the desktop
    }

    void copiesStyledText()
    {
        Pasteboard{}.setHtml(u"<html><body><b>Week</b><script>x</script></body></html>"_s);
        const QMimeData *data = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(data->text(), u"Week"_s);
        QVERIFY(data->html().contains(u"font-weight"));
        QVERIFY(!data->html().contains(u"<script"));
    }

    void showsTheSummary()
    {
        if (!hasPlugin()) QSKIP("It was built without Qt WebEngine.");
        ClientFixture client;
        client.restart({.webPages = webPagePlugin});
        client.useOnThisComputer();
        client.openList(u"Inbox"_s);
        client.find<QWidget>("addField").setFocus();
        client.type(u"Water the plants today"_s);
        client.press(Qt::Key_Return);
        client.openList(u"Summary"_s);
        WebPane &pane = client.window()->summaryPane();
        QVERIFY(client.window()->isSummaryShown());
        QVERIFY(pane.page());
        QTRY_VERIFY_WITH_TIMEOUT(pane.page()->isReady(), longest);

        QByteArray pdf;
        pane.page()->printToPdf([&pdf](const QByteArray &pages) { pdf = pages; });
        QTRY_VERIFY_WITH_TIMEOUT(pdf.startsWith("%PDF-"), longest);
        QImage picture;
        pane.page()->drawPicture(600, [&picture](const QImage &drawn) { picture = drawn; });
        QTRY_VERIFY_WITH_TIMEOUT(!picture.isNull(), longest);
        QCOMPARE(picture.width(), 600);
        QVERIFY2(picture.height() < 200, "it is higher than its lines");
        if (const QString folder = qEnvironmentVariable("ORVANE_KEEP_PAGES"); !folder.isEmpty()) {
            QFile file{folder + u"/summary.pdf"_s};
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(pdf);
            QVERIFY(picture.save(folder + u"/summary.png"_s));
        }

        client.openList(u"Today"_s);
        QVERIFY(!client.window()->isSummaryShown());
        client.openList(u"Summary"_s);
        QVERIFY(client.window()->isSummaryShown());
    }

    void saysHowToGetWhatIsMissing()
    {
        ClientFixture client;
        client.useOnThisComputer();
        client.openList(u"Summary"_s);
        QVERIFY(client.find<QLabel>("webPaneMissing").text().contains(u"orvane-web"));
        client.openList(u"Today"_s); // the rest works
        QVERIFY(!client.window()->isSummaryShown());
    }
};

ORVANE_TEST(WebPage_test)
#include "WebPage_test.moc"
