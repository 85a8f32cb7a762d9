#include "panel/sequence/sequence_text.h"
#include "sequence_fixture.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

QStringList faultsOf(const QByteArray& text, const SequenceContext& context = SequenceContext())
{
    Sequence sequence;
    QStringList texts;
    for (const SequenceFault& fault : parseSequence(text, context, &sequence))
        texts << faultText(QStringLiteral("filling.kxs"), fault);
    return texts;
}

/// Knows "pumps.csv", with pump at Y10, and "valves.csv", with valve at Y11 and pump again.
bool loadTags(const QString& file, QList<Tag>* tags, QString* error)
{
    if (file == QLatin1String("pumps.csv"))
        return parseTags("name,address\npump,Y10\n", file, tags, error);
    if (file == QLatin1String("valves.csv"))
        return parseTags("name,address\nvalve,Y11\npump,Y12\n", file, tags, error);
    *error = file + QStringLiteral(": No such file or directory");
    return false;
}

SequenceContext withTagsFiles()
{
    SequenceContext context;
    context.loadTags = loadTags;
    return context;
}

} // namespace

class SequenceTextTest : public QObject
{
    Q_OBJECT

private slots:
    void stepsKeepTheirLines();
    void encodings_data();
    void encodings();
    void tagsComeFromFiles_data();
    void tagsComeFromFiles();
    void allFaultsAreNamed();
    void faults_data();
    void faults();
};

void SequenceTextTest::stepsKeepTheirLines()
{
    const Sequence sequence = sequenceOf("# a pump\r\n"
                                         "\r\n"
                                         "  write pump = on   # it runs\r\n"
                                         "\texpect level = 7\r\n"
                                         "finally # off again\r\n"
                                         "write pump = off\r\n");
    QCOMPARE(sequence.steps.size(), 3);
    QCOMPARE(sequence.mainSteps, 2);
    QStringList steps;
    for (const Step& step : sequence.steps)
        steps << QStringLiteral("%1: %2").arg(step.line).arg(step.text);
    QCOMPARE(steps,
             (QStringList{"3: write pump = on", "4: expect level = 7", "6: write pump = off"}));
    QCOMPARE(sequenceOf("pause 1s").mainSteps, 1);
    QCOMPARE(sequenceOf("finally\npause 1s").mainSteps, 0);
}

void SequenceTextTest::encodings_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("UTF-8") << QByteArray("# \xC3\xA4\nwrite D0 = 1");
    QTest::newRow("with a mark") << QByteArray("\xEF\xBB\xBFwrite D0 = 1\n");
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFEp\0a\0u\0s\0e\0 \0001\0s\0", 18);
    QTest::newRow("a comment in another encoding") << QByteArray("# \xE4\nwrite D0 = 1");
}

void SequenceTextTest::encodings()
{
    QFETCH(QByteArray, text);
    QCOMPARE(faultsOf(text), QStringList());
}

void SequenceTextTest::tagsComeFromFiles_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("faults");
    QTest::newRow("one file") << QByteArray("tags pumps.csv\nwrite pump = on") << QStringList();
    QTest::newRow("quoted") << QByteArray("tags \"pumps.csv\" # the pumps\nwrite pump = on")
                            << QStringList();
    QTest::newRow("not there") << QByteArray("tags pumsp.csv\nwrite D0 = 1")
                               << QStringList{
                                      "filling.kxs:1:6: pumsp.csv: No such file or directory"};
    QTest::newRow("a name twice") << QByteArray("tags pumps.csv\ntags valves.csv\nwrite D0 = 1")
                                  << QStringList{
                                         "filling.kxs:2:6: two tags files name a tag 'pump'"};
    QTest::newRow("behind a step")
        << QByteArray("write D0 = 1\ntags pumps.csv")
        << QStringList{"filling.kxs:2:6: tags files stand before the first step"};
    QTest::newRow("behind finally")
        << QByteArray("finally\ntags pumps.csv\npause 1s")
        << QStringList{"filling.kxs:2:6: tags files stand before the first step"};
    QTest::newRow("without a name")
        << QByteArray("tags\npause 1s")
        << QStringList{"filling.kxs:1:5: the name of a tags file must follow"};
    QTest::newRow("two names in quotes")
        << QByteArray("tags \"a.csv\" \"b.csv\"\npause 1s")
        << QStringList{"filling.kxs:1:6: the name of one tags file must follow"};
}

void SequenceTextTest::tagsComeFromFiles()
{
    QFETCH(QByteArray, text);
    QTEST(faultsOf(text, withTagsFiles()), "faults");
}

void SequenceTextTest::allFaultsAreNamed()
{
    QCOMPARE(faultsOf("tags pumsp.csv\nwrite D0 = x\npause 1s\npause\nexpect D8000 = 1\n",
                      withTagsFiles())
                 .size(),
             4);
}

void SequenceTextTest::faults_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("fault");
    QTest::newRow("nothing") << QByteArray()
                             << "filling.kxs: no steps; write lines such as expect D100 = 5";
    QTest::newRow("comments only")
        << QByteArray("# pumps\n") << "filling.kxs: no steps; write lines such as expect D100 = 5";
    QTest::newRow("finally twice") << QByteArray("pause 1s\nfinally\n finally\n")
                                   << "filling.kxs:3:2: finally stands here for the second time";
    QTest::newRow("finally with a step") << QByteArray("pause 1s\nfinally write D0 = 1\n")
                                         << "filling.kxs:2:9: finally stands alone on its line";
    QTest::newRow("no UTF-8")
        << QByteArray("write D0 = \xE4\n")
        << "filling.kxs:1: column 12: byte 0xe4 is not UTF-8; save the file as UTF-8";
    QTest::newRow("a zero byte") << QByteArray(
        "pause 1s\0 2s", 12) << "filling.kxs:1: column 9: a byte that is 0; save the file as UTF-8";
}

void SequenceTextTest::faults()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, fault);
    QCOMPARE(faultsOf(text), QStringList{fault});
}

QTEST_GUILESS_MAIN(SequenceTextTest)
#include "tst_sequence_text.moc"
