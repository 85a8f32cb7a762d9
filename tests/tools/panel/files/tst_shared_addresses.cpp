#include "panel/files/shared_addresses.h"
#include "panel/values/value_address.h"

#include <QtTest/QTest>

using namespace kx;

class SharedAddressesTest : public QObject
{
    Q_OBJECT

private slots:
    void severalFormatsAreNamed_data();
    void severalFormatsAreNamed();
};

void SharedAddressesTest::severalFormatsAreNamed_data()
{
    QTest::addColumn<QString>("addresses");
    QTest::addColumn<QString>("names"); ///< of all their values
    const auto row = [](const char* name, const char* addresses, const char* names) {
        QTest::newRow(name) << QString::fromLatin1(addresses) << QString::fromLatin1(names);
    };
    row("none", "", "");
    row("one format", "D100:2/float D102/float", "D100 D102 D102");
    row("other addresses", "D100/float D102/u32", "D100 D102");
    row("one address in two formats", "D100/float D100/u32,high", "D100/float D100/u32,high");
    row("with and without one", "D100 D100/s16*0.1+5", "D100 D100/s16*0.1+5");
    row("only the value that is there twice", "D100:3/float D102/u32 D200",
        "D100 D102/float D104 D102/u32 D200");
    row("the same format twice, and another", "D100/hex D100/hex D100", "D100/hex D100/hex D100");
    row("at another station", "D100@1/float D100@2/u32", "D100 D100");
    row("a word and its bit, which is named", "D100/hex D100.5", "D100/hex D100.5");
    row("units alone, which the values tell", "D100/u16,unit=bar D100/u16,unit=psi", "D100 D100");
}

void SharedAddressesTest::severalFormatsAreNamed()
{
    QFETCH(QString, addresses);
    QList<Tag> tags;
    for (const QString& address : addresses.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        Tag tag;
        QString fault;
        QVERIFY2(parseValueAddress(address, &tag.range, &tag.format, &fault), qPrintable(fault));
        tags << tag;
    }
    const SharedAddresses shared(tags);
    QStringList names;
    for (const Tag& tag : tags) {
        for (int i = 0; i < valuesIn(tag.range, tag.format); ++i)
            names << (shared.hold(tag, i) ? nameWithFormat(tag.range, tag.format, i)
                                          : valueName(tag.range, tag.format, i));
    }
    QTEST(names.join(' '), "names");
}

QTEST_APPLESS_MAIN(SharedAddressesTest)
#include "tst_shared_addresses.moc"
