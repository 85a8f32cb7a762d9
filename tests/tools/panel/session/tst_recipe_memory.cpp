#include "panel/session/recipe_memory.h"

#include <QtTest/QTest>

using namespace kx;

class RecipeMemoryTest : public QObject
{
    Q_OBJECT

private slots:
    void wordsAreLoadedFromTheBeginning();
    void noWordLiesOutside();
    void requestsAreBytesOfTheSharedBlock();
    void requestsNeedTheMutex();
};

void RecipeMemoryTest::wordsAreLoadedFromTheBeginning()
{
    RecipeMemory memory;
    memory.load({1, 2, 3});
    memory.load({4, 5});
    QCOMPARE(memory.word(0), quint16(4));
    QCOMPARE(memory.word(1), quint16(5));
    QCOMPARE(memory.word(2), quint16(3)); // of the load before
    QCOMPARE(memory.buffer()[1], static_cast<unsigned short>(5));
}

void RecipeMemoryTest::noWordLiesOutside()
{
    RecipeMemory memory;
    std::vector<quint16> words(65536, 7);
    memory.load(words);
    QCOMPARE(memory.word(65535), quint16(7));
    QCOMPARE(memory.word(65536), quint16(0));
    QCOMPARE(memory.word(-1), quint16(0));
    // A block of 512 registers that starts at the last word is read to its end.
    QCOMPARE(memory.buffer()[65535 + 512], static_cast<unsigned short>(0));
}

// Byte 60115 asks for a download, byte 60116 for an upload.
void RecipeMemoryTest::requestsAreBytesOfTheSharedBlock()
{
    RecipeMemory memory;
    QCOMPARE(memory.requested(), NO_JOB);
    memory.raise(RECIPE_WRITE_JOB);
    QCOMPARE(memory.requested(), RECIPE_WRITE_JOB);
    QCOMPARE(int(memory.sharedBlock()[60115]), 1);
    QCOMPARE(int(memory.sharedBlock()[60116]), 0);
    memory.raise(RECIPE_READ_JOB);
    QCOMPARE(memory.requested(), RECIPE_READ_JOB);
    QCOMPARE(int(memory.sharedBlock()[60115]), 0);
    QCOMPARE(int(memory.sharedBlock()[60116]), 1);
    memory.lower();
    QCOMPARE(memory.requested(), NO_JOB);
    memory.sharedBlock()[60115] = 2; // which is no request
    QCOMPARE(memory.requested(), NO_JOB);
}

void RecipeMemoryTest::requestsNeedTheMutex()
{
    RecipeMemory memory;
    memory.raise(RECIPE_WRITE_JOB);
    QVERIFY(memory.mutex()->tryLock()); // and was given back
    memory.mutex()->unlock();
}

QTEST_APPLESS_MAIN(RecipeMemoryTest)
#include "tst_recipe_memory.moc"
