#include "views/pictures/PagePicture.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class PagePicture_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesOrRefuses_data() { addCaseRows("gui/pictures.txt", 3); }
    void takesOrRefuses()
    {
        QFETCH(QStringList, cells);
        const Result<PictureRequest> request = pictureRequest(cells[0], u"today"_s, cells[1], {});
        QCOMPARE(bool(request), cells[2].isEmpty());
        if (!request) QVERIFY2(request.error().sentence.contains(cells[2]), qUtf8Printable(cells[2]));
    }
};

ORVANE_TEST(PagePicture_test)
#include "PagePicture_test.moc"
