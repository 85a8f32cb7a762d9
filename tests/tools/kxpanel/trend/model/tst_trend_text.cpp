#include "kxpanel/trend/model/trend_text.h"

#include <QtCore/QDateTime>
#include <QtTest/QTest>

using kxpanel::TrendView;

class TrendTextTest : public QObject
{
    Q_OBJECT

private slots:
    void spans_data()
    {
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<QString>("text");

        QTest::newRow("none") << qint64(0) << "0 ms";
        QTest::newRow("below a second") << qint64(999) << "999 ms";
        QTest::newRow("a second") << qint64(1000) << "1 s";
        QTest::newRow("seconds") << qint64(59999) << "59.999 s";
        QTest::newRow("a minute") << qint64(60000) << "1 min";
        QTest::newRow("minutes") << qint64(200500) << "3 min 20.5 s";
        QTest::newRow("a little more than minutes") << qint64(120020) << "2 min 20 ms";
        QTest::newRow("an hour") << qint64(3600000) << "1 h";
        QTest::newRow("hours without their seconds") << qint64(93930000) << "26 h 5 min";
        QTest::newRow("back") << qint64(-1500) << "-1.5 s";
    }

    void spans()
    {
        QFETCH(qint64, milliseconds);
        QTEST(kxpanel::spanText(milliseconds), "text");
    }

    void cursors()
    {
        TrendView view;
        QVERIFY(kxpanel::cursorText(view).startsWith("Keys 1 and 2"));
        const QDateTime first(QDate(2026, 11, 23), QTime(10, 3, 12, 345));
        view.setCursor(0, first.toMSecsSinceEpoch());
        QCOMPARE(kxpanel::cursorText(view), QString("Cursor 1: 2026-11-23 10:03:12.345"));
        view.setCursor(1, first.addMSecs(2655).toMSecsSinceEpoch());
        QCOMPARE(kxpanel::cursorText(view),
                 QString("Cursor 1: 2026-11-23 10:03:12.345    Cursor 2: 2026-11-23 10:03:15.000"
                         "    Difference: 2.655 s"));
    }
};

QTEST_APPLESS_MAIN(TrendTextTest)
#include "tst_trend_text.moc"
