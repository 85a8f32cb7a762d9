#include "kxhost/scan/line_search.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

using namespace kx;

namespace
{

QString formatText(const LineFormat& format)
{
    return QString::number(format.baud) + QLatin1Char(format.parity);
}

QString texts(const QList<LineFormat>& formats)
{
    QStringList parts;
    for (const LineFormat& format : formats)
        parts << formatText(format);
    return parts.join(' ');
}

/// "9600N:1,2 19200N:1,2".
QString texts(const QList<SearchStep>& steps)
{
    QStringList parts;
    for (const SearchStep& step : steps) {
        QStringList stations;
        for (const int station : step.stations)
            stations << QString::number(station);
        parts << formatText(step.format) + ':' + stations.join(',');
    }
    return parts.join(' ');
}

QList<int> upTo(int last)
{
    QList<int> stations;
    for (int station = 1; station <= last; ++station)
        stations << station;
    return stations;
}

const LineFormat USUAL = {9600, 'N'};
const LineFormat OTHER = {19200, 'E'};

} // namespace

class LineSearchTest : public QObject
{
    Q_OBJECT

private slots:
    void theLikeliestFormatsComeFirst()
    {
        QCOMPARE(texts(formatsToTry(OTHER, false, false)), QString("19200E"));
        QCOMPARE(texts(formatsToTry(OTHER, true, false)),
                 QString("9600E 19200E 38400E 57600E 115200E 4800E 2400E 1200E"));
        QCOMPARE(texts(formatsToTry(OTHER, false, true)), QString("19200N 19200E 19200O"));
        QCOMPARE(texts(formatsToTry(OTHER, true, true)),
                 QString("9600N 19200N 38400N 57600N 115200N 4800N 2400N 1200N "
                         "9600E 19200E 38400E 57600E 115200E 4800E 2400E 1200E "
                         "9600O 19200O 38400O 57600O 115200O 4800O 2400O 1200O"));
    }

    void oneFormatIsOneStep()
    {
        QCOMPARE(texts(searchSteps({OTHER}, {3, 1, 2})), QString("19200E:3,1,2"));
    }

    void lowStationsAreAskedInAllFormatsFirst()
    {
        QCOMPARE(texts(searchSteps({USUAL, OTHER}, upTo(12))),
                 QString("9600N:1 19200E:1 "
                         "9600N:2,3,4,5,6,7,8,9,10 19200E:2,3,4,5,6,7,8,9,10 "
                         "9600N:11,12 19200E:11,12"));
        QCOMPARE(texts(searchSteps({USUAL, OTHER}, {7, 9})),
                 QString("9600N:7 19200E:7 9600N:9 19200E:9"));
        QCOMPARE(texts(searchSteps({USUAL, OTHER}, {7})), QString("9600N:7 19200E:7"));
    }

    void whoIsLeftToBeAsked()
    {
        const QList<SearchStep> asked = {{USUAL, {1}}, {OTHER, {1}}, {USUAL, {2, 3}}};
        QCOMPARE(stationsLeft(asked, USUAL, upTo(5)), (QList<int>{4, 5}));
        QCOMPARE(stationsLeft(asked, OTHER, upTo(5)), (QList<int>{2, 3, 4, 5}));
        QCOMPARE(stationsLeft(asked, {9600, 'E'}, upTo(2)), (QList<int>{1, 2}));
        QCOMPARE(stationsLeft({}, USUAL, {}), QList<int>());
    }
};

QTEST_APPLESS_MAIN(LineSearchTest)
#include "tst_line_search.moc"
