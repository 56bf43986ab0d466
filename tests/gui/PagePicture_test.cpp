#include "views/pictures/PagePicture.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class PagePicture_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesOrRefuses_data() { addCaseRows("gui/pictures.txt", 4); }
    void takesOrRefuses()
    {
        QFETCH(QStringList, cells);
        const Result<PictureRequest> request = PictureRequest::read(
            {.file = cells[0], .page = {}, .size = cells[1], .scale = {}, .textSize = cells[2]});
        QCOMPARE(bool(request), cells[3].isEmpty());
        if (!request) QVERIFY2(request.error().sentence.contains(cells[3]), qUtf8Printable(cells[3]));
    }
};

ORVANE_TEST(PagePicture_test)
#include "PagePicture_test.moc"
