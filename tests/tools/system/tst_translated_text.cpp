#include "system/translated_text.h"

#include <QtCore/QThread>
#include <QtCore/QTranslator>
#include <QtTest/QTest>

using namespace kx;

namespace
{

/// A language whose words are longer, with one form more than English for counts: of 0.
class Foreign : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int count) const override
    {
        if (qstrcmp(context, "kx") != 0)
            return QString();
        if (qstrcmp(text, "no reply") == 0)
            return QStringLiteral("nulla respondo");
        if (qstrcmp(text, "%1 coils") != 0)
            return QString();
        return count == 0   ? QStringLiteral("neniu (%1)")
               : count == 1 ? QStringLiteral("%1 bobeno")
                            : QStringLiteral("%1 bobenoj");
    }
};

QString coils(qint64 count)
{
    return countedText(count, "%1 coil", QT_TRANSLATE_N_NOOP("kx", "%1 coils"));
}

} // namespace

class TranslatedTextTest : public QObject
{
    Q_OBJECT

private slots:
    void counts_data();
    void counts();
    void textsForPeople();
    void textsForPrograms();
    void textsOfOtherThreads();
    void textsBeforeTheProgramBegins();
};

void TranslatedTextTest::counts_data()
{
    QTest::addColumn<qint64>("count");
    QTest::addColumn<QString>("english");
    QTest::addColumn<QString>("foreign");
    QTest::newRow("none") << qint64(0) << "0 coils"
                          << "neniu (0)";
    QTest::newRow("one") << qint64(1) << "1 coil"
                         << "1 bobeno";
    QTest::newRow("two") << qint64(2) << "2 coils"
                         << "2 bobenoj";
    QTest::newRow("more than an int holds") << qint64(4294967297) << "4294967297 coils"
                                            << "4294967297 bobenoj";
}

void TranslatedTextTest::counts()
{
    QFETCH(qint64, count);
    QTEST(coils(count), "english");
    Foreign foreign;
    QCoreApplication::installTranslator(&foreign);
    QTEST(coils(count), "foreign");
}

void TranslatedTextTest::textsForPeople()
{
    const QString before = forPeople(QT_TRANSLATE_NOOP("kx", "no reply"));
    Foreign foreign;
    QCoreApplication::installTranslator(&foreign);
    QCOMPARE(before, QString("no reply"));
    QCOMPARE(forPeople("no reply"), QString("nulla respondo"));
    QCOMPARE(Text::tr("line lost"), QString("line lost")); // which it has not
}

void TranslatedTextTest::textsForPrograms()
{
    Foreign foreign;
    QCoreApplication::installTranslator(&foreign);
    QCOMPARE(forPrograms("no reply"), QString("no reply"));
}

void TranslatedTextTest::textsOfOtherThreads()
{
    Foreign foreign;
    QCoreApplication::installTranslator(&foreign);
    bool areRight = true;
    const std::unique_ptr<QThread> thread(QThread::create([&areRight] {
        for (int i = 0; i < 1000; ++i)
            areRight = areRight && forPeople("no reply") == QLatin1String("nulla respondo");
    }));
    thread->start();
    for (int i = 0; i < 1000; ++i)
        QCOMPARE(coils(2), QString("2 bobenoj"));
    QVERIFY(thread->wait(60000));
    QVERIFY(areRight);
}

void TranslatedTextTest::textsBeforeTheProgramBegins()
{
    QCOMPARE(QString(qgetenv("KX_TEXT_BEFORE")), QString("1 coil"));
}

int main(int argc, char** argv)
{
    qputenv("KX_TEXT_BEFORE", coils(1).toUtf8());
    QCoreApplication application(argc, argv);
    TranslatedTextTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translated_text.moc"
