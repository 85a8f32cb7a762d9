#include "model/random_runtime.h"

#include <QtTest/QTest>

/// KX_RANDOM_STEPS sets the number of calls, KX_RANDOM_SEED the first seed.
class RandomCallsTest : public QObject
{
    Q_OBJECT

public:
    /// Runs longer than the five minutes that QtTest allows by itself.
    static void initMain()
    {
        if (!qgetenv("KX_RANDOM_STEPS").isEmpty())
            qputenv("QTEST_FUNCTION_TIMEOUT", "86400000"); // ms: a day
    }

private slots:
    void libraryAndPlainDriverAgree();
};

namespace
{

const int STEPS_PER_SEED = 2000;
const qint64 ORDINARY_STEPS = 120000; // the same in each run: a few seconds

qint64 numberFromEnvironment(const char* name, qint64 otherwise)
{
    const QByteArray number = qgetenv(name);
    return number.isEmpty() ? otherwise : number.toLongLong();
}

} // namespace

void RandomCallsTest::libraryAndPlainDriverAgree()
{
    const qint64 wanted = numberFromEnvironment("KX_RANDOM_STEPS", ORDINARY_STEPS);
    qint64 seed = numberFromEnvironment("KX_RANDOM_SEED", 1);
    const auto originalOrder = driver.regNames;
    qint64 steps = 0;
    while (steps < wanted) {
        RandomRuntime runtime(static_cast<quint64>(seed));
        driver.regNames = originalOrder;
        for (int step = 0; step < STEPS_PER_SEED && !runtime.differs(); ++step, ++steps)
            runtime.step();
        runtime.compareState();
        if (runtime.differs())
            qDebug("%s", qPrintable(runtime.story()));
        QVERIFY2(!runtime.differs(), qPrintable(QString::fromLatin1("seed %1").arg(seed)));
        ++seed;
    }
    qDebug("%lld calls, seeds up to %lld", steps, seed - 1);
}

QTEST_GUILESS_MAIN(RandomCallsTest)
#include "tst_random_calls.moc"
