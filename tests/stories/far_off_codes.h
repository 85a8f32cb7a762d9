/// Numbers beside a code's meaningful ones, with their low bytes, and at the edges of int.
#ifndef KX_TESTS_STORIES_FAR_OFF_CODES_H
#define KX_TESTS_STORIES_FAR_OFF_CODES_H

#include <QtTest/QTest>

#include <climits>

/// Every value tried but the meaningful ones.
inline QList<int> othersThan(const QList<int>& meaningful)
{
    QList<int> codes = {INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX - 1, INT_MAX};
    for (const int code : meaningful) {
        codes << code - 1 << code + 1 << -code << ~code;
        codes << code + 256 << code - 256 << code + 65536 << code - 65536 << (code ^ INT_MIN);
    }
    QList<int> others;
    for (const int code : codes) {
        if (!meaningful.contains(code) && !others.contains(code))
            others << code;
    }
    return others;
}

/// A column "code" with a row each.
inline void addOthersThan(const QList<int>& meaningful)
{
    QTest::addColumn<int>("code");
    for (const int code : othersThan(meaningful))
        QTest::newRow(QByteArray::number(code).constData()) << code;
}

#endif
