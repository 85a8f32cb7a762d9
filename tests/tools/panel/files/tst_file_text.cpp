#include "panel/files/file_text.h"

#include <QtTest/QTest>

using namespace kx;

namespace
{

/// Bytes from a literal with zeros in it, without the zero at its end.
template <size_t SIZE>
QByteArray bytes(const char (&literal)[SIZE])
{
    return QByteArray(literal, static_cast<int>(SIZE) - 1);
}

} // namespace

class FileTextTest : public QObject
{
    Q_OBJECT

private slots:
    void encodingsAreTaken_data();
    void encodingsAreTaken();
    void damagedUtf16IsRefused_data();
    void damagedUtf16IsRefused();
    void textIsUtf8_data();
    void textIsUtf8();
};

void FileTextTest::encodingsAreTaken_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QByteArray>("utf8");

    QTest::newRow("nothing") << bytes("") << bytes("");
    QTest::newRow("UTF-8") << bytes("Z\xC3\xA4hler") << bytes("Z\xC3\xA4hler");
    QTest::newRow("no UTF-8, kept for comments") << bytes("#\xE4\0") << bytes("#\xE4\0");
    QTest::newRow("UTF-8 with a mark") << bytes("\xEF\xBB\xBFZ\xC3\xA4") << bytes("Z\xC3\xA4");
    QTest::newRow("a mark only") << bytes("\xEF\xBB\xBF") << bytes("");
    QTest::newRow("UTF-16, little-endian")
        << bytes("\xFF\xFEZ\0\xE4\0\n\0") << bytes("Z\xC3\xA4\n");
    QTest::newRow("UTF-16, big-endian") << bytes("\xFE\xFF\0Z\0\xE4\0\n") << bytes("Z\xC3\xA4\n");
    QTest::newRow("UTF-16 beyond U+FFFF") // U+1F3ED is D83C DFED
        << bytes("\xFF\xFE\x3C\xD8\xED\xDF") << bytes("\xF0\x9F\x8F\xAD");
    QTest::newRow("UTF-16 with a zero") << bytes("\xFF\xFE\0\0") << bytes("\0");
}

void FileTextTest::encodingsAreTaken()
{
    QFETCH(QByteArray, stored);
    QByteArray utf8;
    TextEncoding encoding = TextEncoding::Utf8;
    QString error;
    QVERIFY2(decodeText(stored, &utf8, &encoding, &error), qPrintable(error));
    QTEST(utf8, "utf8");
    QCOMPARE(encodeText(utf8, encoding), stored);
}

void FileTextTest::damagedUtf16IsRefused_data()
{
    QTest::addColumn<QByteArray>("stored");

    QTest::newRow("half a character at the end") << bytes("\xFF\xFEZ\0\xE4");
    QTest::newRow("first half of a pair alone") << bytes("\xFF\xFE\x3C\xD8Z\0");
    QTest::newRow("second half of a pair alone") << bytes("\xFE\xFF\xDF\xED");
}

void FileTextTest::damagedUtf16IsRefused()
{
    QFETCH(QByteArray, stored);
    QByteArray utf8;
    TextEncoding encoding = TextEncoding::Utf8;
    QString error;
    QVERIFY(!decodeText(stored, &utf8, &encoding, &error));
    QCOMPARE(error, QStringLiteral("damaged UTF-16; save the file as UTF-8"));
}

void FileTextTest::textIsUtf8_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("fault"); ///< empty: none

    QTest::newRow("nothing") << bytes("") << "";
    QTest::newRow("one to four bytes") << bytes("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x8F\xAD") << "";
    QTest::newRow("a replacement character in the file") << bytes("\xEF\xBF\xBD") << "";
    QTest::newRow("Latin-1") << bytes("Z\xE4hler") << "column 2: byte 0xe4 is not UTF-8";
    QTest::newRow("columns are characters, not bytes")
        << bytes("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x8F\xAD\xEF\xBF\xBD\xFC")
        << "column 5: byte 0xfc is not UTF-8";
    QTest::newRow("Latin-1 at the end") << bytes("a\xE4") << "column 2: byte 0xe4 is not UTF-8";
    QTest::newRow("a character that is broken off")
        << bytes("a\xEF\xBF") << "column 2: byte 0xef is not UTF-8";
    QTest::newRow("a continuation alone") << bytes("\xA4") << "column 1: byte 0xa4 is not UTF-8";
    QTest::newRow("too long a form") << bytes("\xC0\xAF") << "column 1: byte 0xc0 is not UTF-8";
    QTest::newRow("half a pair") << bytes("\xED\xA0\xBC") << "column 1: byte 0xed is not UTF-8";
    QTest::newRow("zero") << bytes("a\0b") << "column 2: a byte that is 0";
    QTest::newRow("the mark of a second file")
        << bytes("\xEF\xBB\xBFname") << "column 1: a second byte-order mark";
}

void FileTextTest::textIsUtf8()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, fault);
    QString error;
    QCOMPARE(checkUtf8(line, &error), fault.isEmpty());
    QCOMPARE(error, fault.isEmpty() ? QString() : fault + "; save the file as UTF-8");
}

QTEST_APPLESS_MAIN(FileTextTest)
#include "tst_file_text.moc"
