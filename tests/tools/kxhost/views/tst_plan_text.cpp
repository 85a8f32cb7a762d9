// A plan as text: requests with something wrong, and the marks of the limits.

#include "kxhost/views/plan_text.h"
#include "registers/register_types.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

PlannedRequest request(const char* type, int address, int count)
{
    PlannedRequest request;
    request.type = findRegisterType(QString::fromLatin1(type));
    request.address = address;
    request.count = count;
    request.bytesSent = 8;
    request.bytesExpected = 9;
    return request;
}

WatchedRanges watched(const char* text)
{
    AddressRange range;
    QString error;
    if (!parseAddressRange(QString::fromLatin1(text), &range, &error))
        qFatal("%s", qPrintable(error));
    range.station = 1;
    return WatchedRanges({range});
}

Plan planOf(const QList<PlannedRequest>& requests)
{
    Plan plan;
    plan.maxWords = 32;
    plan.requests = requests;
    return plan;
}

} // namespace

class PlanTextTest : public QObject
{
    Q_OBJECT

private slots:
    void timesAreInMilliseconds();
    void whatIsWrongIsSaid();
    void longRequestsArePictured();
    void theBestAndTheOneInUseAreMarked();
};

void PlanTextTest::timesAreInMilliseconds()
{
    QCOMPARE(timeText(43021), QString::fromLatin1("43.0 ms"));
    QCOMPARE(timeText(0), QString::fromLatin1("0.0 ms"));
    QCOMPARE(timeText(1234567), QString::fromLatin1("1234.6 ms"));
}

void PlanTextTest::whatIsWrongIsSaid()
{
    QCOMPARE(warningRows(planOf({request("D", 0, 4)}), watched("D0:4")), QStringList());
    QCOMPARE(warningRows(planOf({request("SM", 250, 12)}), watched("SM254:8")),
             (QStringList{"request 1 runs past the split of SM: 6 asked for from SM256 on lie in "
                          "the second Modbus range, from 30000 on, so the controller refuses the "
                          "request or answers with others; a lower limit keeps the ranges apart"}));
    QCOMPARE(warningRows(planOf({request("D", 0, 126), request("M", 0, 2001)}), watched("D0")),
             (QStringList{"request 1 asks for 126 registers, but Modbus allows 125; the "
                          "controller will refuse it",
                          "request 2 asks for 2001 coils, but Modbus allows 2000; the controller "
                          "will refuse it"}));
    QCOMPARE(warningRows(planOf({request("D", 0, 4), request("D", 0, 5), request("D", 0, 4)}),
                         watched("D0:4")),
             (QStringList{"request 3 repeats request 1, as the driver does with a range longer "
                          "than its limit of 32"}));
}

void PlanTextTest::longRequestsArePictured()
{
    // 128 registers at two to a character; D64 to D127 are asked for.
    QCOMPARE(pictureRows(planOf({request("D", 0, 128), request("X", 8, 2)}), watched("D65:63")),
             (QStringList{"1   D0  ................................+###############################"
                          " D127",
                          "2  X10  .. X11"}));
}

void PlanTextTest::theBestAndTheOneInUseAreMarked()
{
    LengthResult first;
    first.maxWords = 1;
    first.cost = costOf(PlanTiming(), 4, 32, 28); // 60 characters are 62.5 ms
    LengthResult second;
    second.maxWords = 2;
    second.cost = costOf(PlanTiming(), 1, 8, 13); // 21 characters are 21.875 ms
    second.unread = 3;
    LengthResult chosen;
    chosen.cost = costOf(PlanTiming(), 2, 16, 14); // 30 characters are 31.25 ms
    QCOMPARE(
        lengthRows({first, second}, chosen, 2),
        (QStringList{"LIMIT  REQUESTS  BYTES OUT  BYTES IN    CYCLE  LOAD  UNREAD",
                     " auto         2         16        14  48.5 ms  64 %       0",
                     "    1         4         32        28  97.1 ms  64 %       0  <- best limit",
                     "    2         1          8        13  30.5 ms  72 %       3  <- in use"}));
    QCOMPARE(lengthRows({first, second}, chosen, 1).at(2),
             QString::fromLatin1(
                 "    1         4         32        28  97.1 ms  64 %       0  <- best limit, in "
                 "use"));
    QCOMPARE(lengthRows({first, second}, chosen, 0).at(1),
             QString::fromLatin1(
                 " auto         2         16        14  48.5 ms  64 %       0  <- in use"));
}

QTEST_APPLESS_MAIN(PlanTextTest)
#include "tst_plan_text.moc"
