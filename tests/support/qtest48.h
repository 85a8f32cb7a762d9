/// What Qt 4.8 lacks of what the tests use of QtTest, so that they read the same with each
/// Qt. Each source of a test reads it first when the build is for Qt 4.
#ifndef KX_TESTS_SUPPORT_QTEST48_H
#define KX_TESTS_SUPPORT_QTEST48_H

#include <QtTest/QTest>

#if QT_VERSION < 0x050000

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QMetaType>
#include <QtCore/QVector>

#define QTEST_GUILESS_MAIN(TestObject)                                                             \
    int main(int argc, char* argv[])                                                               \
    {                                                                                              \
        QCoreApplication application(argc, argv);                                                  \
        TestObject test;                                                                           \
        return QTest::qExec(&test, argc, argv);                                                    \
    }

QT_BEGIN_NAMESPACE

namespace QTest
{

/// Compares values of two types, which Qt 4.8 declares and does not define.
template <typename Actual, typename Expected>
bool qCompare(const Actual& actual, const Expected& expected, const char* actualText,
              const char* expectedText, const char* file, int line)
{
    if (actual == expected)
        return compare_helper(true, "COMPARE()", file, line);
    return compare_helper(false, "Compared values are not the same", toString<Actual>(actual),
                          toString<Expected>(expected), actualText, expectedText, file, line);
}

/// Makes the list a type that a table of test data can hold, and returns its id.
template <typename List>
int registeredList(const char* name, int idOfElements)
{
    const QByteArray listName = QByteArray(name) + '<' + QMetaType::typeName(idOfElements) + '>';
    List* const isNoAlias = reinterpret_cast<List*>(quintptr(-1)); // as Q_DECLARE_METATYPE says
    return qRegisterMetaType<List>(listName.constData(), isNoAlias);
}

} // namespace QTest

template <typename Element>
struct QMetaTypeId<QList<Element>> {
    enum { Defined = 1 };
    static int qt_metatype_id()
    {
        static const int id =
            QTest::registeredList<QList<Element>>("QList", qMetaTypeId<Element>());
        return id;
    }
};

template <typename Element>
struct QMetaTypeId<QVector<Element>> {
    enum { Defined = 1 };
    static int qt_metatype_id()
    {
        static const int id =
            QTest::registeredList<QVector<Element>>("QVector", qMetaTypeId<Element>());
        return id;
    }
};

QT_END_NAMESPACE

#endif

#endif
