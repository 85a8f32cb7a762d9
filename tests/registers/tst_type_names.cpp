#include "registers/type_names.h"

#include <QtTest/QTest>

class TypeNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void givesEachTypeItsName()
    {
        const TypeNames names;
        const QStringList expected = {"X", "Y",  "M",  "SM",   "S",  "T", "C",
                                      "D", "SD", "CV", "32CV", "TV", "Z"};
        for (const QString& name : expected)
            QCOMPARE(names.of(findRegisterType(name)), name);
    }

    void theNameIsTheSameStringEachTime()
    {
        const TypeNames names;
        const RegisterType* const type = findRegisterType(QString("32CV"));
        QVERIFY(names.of(type).isSharedWith(names.of(type)));
        QVERIFY(!names.of(type).isSharedWith(TypeNames().of(type)));
    }
};

QTEST_APPLESS_MAIN(TypeNamesTest)
#include "tst_type_names.moc"
