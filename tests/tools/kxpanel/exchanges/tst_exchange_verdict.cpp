#include "kxpanel/exchanges/exchange_verdict.h"

#include "../sample_exchanges.h"

#include <QtGui/QPalette>
#include <QtTest/QTest>

using namespace kxpanel;

class ExchangeVerdictTest : public QObject
{
    Q_OBJECT

private slots:
    void verdicts();
    void symbolsDiffer();
    void coloursCanBeReadOnEither();
};

void ExchangeVerdictTest::verdicts()
{
    QCOMPARE(verdictOf(answeredPoll()), ExchangeVerdict::Accepted);
    QCOMPARE(verdictOf(unansweredPoll()), ExchangeVerdict::Repeated);
    QCOMPARE(verdictOf(refusedWrite()), ExchangeVerdict::Failed);
}

void ExchangeVerdictTest::symbolsDiffer()
{
    const QSet<QString> symbols = {verdictSymbol(ExchangeVerdict::Accepted),
                                   verdictSymbol(ExchangeVerdict::Repeated),
                                   verdictSymbol(ExchangeVerdict::Failed)};
    QCOMPARE(symbols.size(), 3);
}

void ExchangeVerdictTest::coloursCanBeReadOnEither()
{
    for (const QColor& base : {QColor(Qt::white), QColor(0x20, 0x20, 0x20)}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        QCOMPARE(isDark(palette), base != QColor(Qt::white));
        for (const ExchangeVerdict verdict : {ExchangeVerdict::Repeated, ExchangeVerdict::Failed}) {
            const int distance = verdictColour(verdict, palette).lightness() - base.lightness();
            QVERIFY(qAbs(distance) > 96);
        }
    }
}

QTEST_GUILESS_MAIN(ExchangeVerdictTest)

#include "tst_exchange_verdict.moc"
