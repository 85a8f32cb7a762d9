#include "kxpanel/grid/drag_picture.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>

using kxpanel::dragPicture;

class DragPictureTest : public QObject
{
    Q_OBJECT

private slots:
    void isAsWideAsTheName();
    void staysSmallWithManyLongNames();
};

void DragPictureTest::isAsWideAsTheName()
{
    const QLabel widget;
    const QFontMetrics metrics = widget.fontMetrics();
    const QPixmap picture = dragPicture({"Level"}, &widget);
    QCOMPARE(picture.width(), metrics.horizontalAdvance("Level") + 2 * metrics.averageCharWidth());
    QCOMPARE(picture.height(), metrics.lineSpacing() + metrics.averageCharWidth());
    // The name is on it.
    const QImage image = picture.toImage();
    int others = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            others += image.pixelColor(x, y) == image.pixelColor(0, 0) ? 0 : 1;
    }
    QVERIFY2(others > 20, qPrintable(QString::number(others)));
}

void DragPictureTest::staysSmallWithManyLongNames()
{
    const QLabel widget;
    const QFontMetrics metrics = widget.fontMetrics();
    QStringList names;
    for (int i = 0; i < 10000; ++i)
        names << QString(200, QLatin1Char('W'));
    const QPixmap picture = dragPicture(names, &widget);
    QVERIFY(picture.width() <= 26 * metrics.averageCharWidth());
    // Three names and how many more.
    QCOMPARE(picture.height(), 4 * metrics.lineSpacing() + metrics.averageCharWidth());
}

QTEST_MAIN(DragPictureTest)

#include "tst_drag_picture.moc"
