#include "views/pictures/PagePicture.h"

#include "support/TestMain.h"
#include "views/preferences/PreferencesWindowController.h"

using namespace Qt::StringLiterals;

class PagePicture_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesOrRefuses_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("refusal");
        QTest::newRow("as usual") << u"p.png"_s << QString{} << QString{};
        QTest::newRow("in capitals") << u"P.PNG"_s << u"200x8000"_s << QString{};
        QTest::newRow("no ending") << u"picture"_s << u"720x480"_s << QString{};
        QTest::newRow("another kind") << u"p.jpg"_s << QString{} << u".png"_s;
        QTest::newRow("too large") << u"p.png"_s << u"99999x99999"_s << u"from 200 to 8000"_s;
        QTest::newRow("no size") << u"p.png"_s << u"large"_s << u"1280x800"_s;
    }

    void takesOrRefuses()
    {
        QFETCH(QString, file);
        QFETCH(QString, size);
        QFETCH(QString, refusal);
        const Result<PictureRequest> request = pictureRequest(file, u"today"_s, size, {});
        QCOMPARE(bool(request), refusal.isEmpty());
        if (!request) QVERIFY2(request.error().sentence.contains(refusal), qUtf8Printable(refusal));
    }

    void preferencesHaveThesePages()
    {
        for (const QString &each : {QString{}, u"general"_s, u"shortcuts"_s, u"data"_s})
            QVERIFY(PreferencesWindowController::hasPage(each));
        QVERIFY(!PreferencesWindowController::hasPage(u"nope"_s));
    }
};

ORVANE_TEST(PagePicture_test)
#include "PagePicture_test.moc"
