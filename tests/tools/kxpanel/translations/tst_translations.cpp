#include "kxpanel/translations/translations.h"

#include "addresses/count_fault.h"
#include "exchange/failure.h"
#include "panel/text/frame_text.h"
#include "panel/text/reply_faults.h"
#include "panel/values/value_address.h"
#include "recording/recorded.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtCore/QXmlStreamReader>
#include <QtTest/QTest>

using namespace kxpanel;

namespace
{

struct Message {
    QString context;
    QString source;
    bool isCounted = false;
    bool isFinished = true;
    QStringList forms; ///< of a counted one, singular and plural
};

void readTranslation(QXmlStreamReader* xml, Message* message)
{
    message->isFinished = !xml->attributes().hasAttribute("type");
    if (!message->isCounted) {
        message->forms << xml->readElementText();
        return;
    }
    while (xml->readNextStartElement())
        message->forms << xml->readElementText();
}

QList<Message> messagesOf(const QString& path)
{
    QList<Message> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QString("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QString("message")) {
            messages << Message();
            messages.last().context = context;
            messages.last().isCounted = xml.attributes().value("numerus") == QString("yes");
        } else if (xml.name() == QString("source")) {
            messages.last().source = xml.readElementText();
        } else if (xml.name() == QString("translation")) {
            readTranslation(&xml, &messages.last());
        }
    }
    return messages;
}

/// What is replaced in a text: %1, %n, %v. A % before a blank is one of per cent.
QStringList placesIn(const QString& text)
{
    static const QRegularExpression place("%[0-9a-z]");
    QStringList places;
    for (auto found = place.globalMatch(text); found.hasNext();)
        places << found.next().captured();
    places.sort();
    return places;
}

QString texts(const QString& language)
{
    return QString::fromLocal8Bit(KX_TRANSLATIONS "/kxpanel_%1.ts").arg(language);
}

/// What lupdate makes of a copy of the language's file, without what has gone.
QList<Message> updated(const QString& language, const QStringList& options)
{
    QTemporaryDir folder;
    const QString copy = folder.filePath("copy.ts");
    QProcess lupdate;
    if (QFile::copy(texts(language), copy))
        lupdate.start(KX_LUPDATE, QStringList{"-silent", "-locations", "none", "-no-obsolete", "-I",
                                              KX_TOOLS, KX_TOOLS}
                                      + options + QStringList{"-ts", copy});
    const bool isUpdated = lupdate.waitForFinished(60000) && lupdate.exitCode() == 0;
    // It knows where each text belongs.
    return isUpdated && lupdate.readAllStandardError().isEmpty() ? messagesOf(copy)
                                                                 : QList<Message>();
}

/// Words in a text of the sources that is neither marked nor translated where it stands.
QStringList unmarkedTexts(const QString& path)
{
    static const QRegularExpression plain(
        "(?:QStringLiteral|QLatin1String|fromLatin1|fromUtf8)\\(\\s*\"((?:[^\"\\\\]|\\\\.)*)\"");
    static const QRegularExpression words("[a-z]{2,} [a-z]{2,}");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {path};
    QStringList texts;
    for (auto found = plain.globalMatch(QString::fromUtf8(file.readAll())); found.hasNext();) {
        const QString text = found.next().captured(1);
        if (words.match(text).hasMatch())
            texts << text;
    }
    return texts;
}

/// Which kxhost alone shows, or a program reads.
bool isOfCommandLine(const QString& path, const QString& text)
{
    for (const char* const folder : {"panel/dump/", "panel/sequence/"}) {
        if (path.startsWith(folder))
            return true;
    }
    const QStringList known = {
        "exchange/lines/port_driver.cpp: the port took %1 baud instead of %2",
        "exchange/lines/serial_line.cpp: low latency",
        "panel/text/summary_text.cpp: ; %1 not whole, so not sent",
        "panel/text/summary_text.cpp: %1 s, %2 bytes sent, %3 received, ",
        "system/repeated_option.cpp: %1 is given twice, as %2 and as %3",
    };
    return known.contains(path + ": " + text);
}

/// Why an address is refused.
QString faultOf(const QString& address)
{
    kx::AddressRange range;
    kx::ValueFormat format;
    QString fault;
    return kx::parseValueAddress(address, &range, &format, &fault) ? QString() : fault;
}

/// One to which no reply came.
kx::ExchangeRecord unanswered()
{
    kx::ExchangeRecord record;
    record.request = QByteArray::fromHex("01030000000AC5CD");
    record.replyKind = kx::ReplyKind::None;
    record.result = 8; // the driver asks again
    return record;
}

/// One whose reply has a wrong CRC and a byte more.
kx::ExchangeRecord damaged()
{
    kx::ExchangeRecord record;
    record.request = QByteArray::fromHex("010300640001C5D5");
    record.reply = QByteArray::fromHex("010302000578480D");
    record.replyKind = kx::ReplyKind::Bad;
    return record;
}

} // namespace

class TranslationsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void everyTextIsTranslated();
    void everyCountHasItsEnglishForms();
    void noNumberStandsBeforeAPlural();
    void everyTextOfTheSourcesIsThere_data();
    void everyTextOfTheSourcesIsThere();
    void reasonsOfTheRuntimeLibraryAreMarked();
    void everyTranslationIsLoaded();
    void counts_data();
    void counts();
    void textsOfTheRuntimeLibrary();
    void whatProgramsReadStaysEnglish();
    void numbersHaveThePointThatCanBeTyped();
    void languages_data();
    void languages();
};

void TranslationsTest::cleanup()
{
    for (QTranslator* translator : QCoreApplication::instance()->findChildren<QTranslator*>())
        delete translator;
    QLocale::setDefault(QLocale::c());
}

void TranslationsTest::everyTextIsTranslated()
{
    const QList<Message> messages = messagesOf(texts("de"));
    QVERIFY(messages.size() > 750);
    for (const Message& message : messages) {
        QVERIFY2(message.isFinished, qPrintable(message.source));
        QCOMPARE(message.forms.size(), message.isCounted ? 2 : 1);
        for (const QString& form : message.forms) {
            QVERIFY2(!form.isEmpty(), qPrintable(message.source));
            QVERIFY2(placesIn(form) == placesIn(message.source), qPrintable(form));
        }
    }
}

void TranslationsTest::everyCountHasItsEnglishForms()
{
    const QList<Message> messages = messagesOf(texts("en"));
    QVERIFY(messages.size() > 25);
    for (const Message& message : messages) {
        QVERIFY2(message.isFinished && message.isCounted, qPrintable(message.source));
        QCOMPARE(message.forms.size(), 2);
        for (const QString& form : message.forms) {
            QVERIFY2(!form.isEmpty() && !form.contains('('), qPrintable(form));
            QVERIFY2(placesIn(form) == placesIn(message.source), qPrintable(form));
        }
    }
}

/// "1 requests" would be shown; speeds and limits of bits are never 1.
void TranslationsTest::noNumberStandsBeforeAPlural()
{
    static const QRegularExpression plural(
        "%[0-9] (bits|exchanges|registers|replies|requests|values)\\b(?!( per second| at most| are "
        "shown))");
    QStringList wrong;
    for (const Message& message : messagesOf(texts("de"))) {
        if (message.context.startsWith("kxpanel::") && message.source.contains(plural))
            wrong << message.context + ": " + message.source;
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join('\n')));
}

void TranslationsTest::everyTextOfTheSourcesIsThere_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("German") << "de" << QStringList();
    QTest::newRow("English, of counts alone") << "en" << QStringList("-pluralonly");
}

void TranslationsTest::everyTextOfTheSourcesIsThere()
{
    QFETCH(QString, language);
    QFETCH(QStringList, options);
    const QList<Message> messages = updated(language, options);
    QStringList missing;
    for (const Message& message : messages) {
        if (!message.isFinished)
            missing << message.context + ": " + message.source;
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join('\n')));
    QCOMPARE(messages.size(), messagesOf(texts(language)).size()); // and nothing that has gone
}

// A window that speaks German would give its reasons in English.
void TranslationsTest::reasonsOfTheRuntimeLibraryAreMarked()
{
    int files = 0;
    QStringList unmarked;
    for (const char* const folder : {"addresses", "exchange", "panel", "recording", "system"}) {
        QDirIterator sources(QString(KX_TOOLS "/") + folder, {"*.cpp", "*.h"}, QDir::Files,
                             QDirIterator::Subdirectories);
        while (sources.hasNext()) {
            const QString path = QDir(KX_TOOLS).relativeFilePath(sources.next());
            ++files;
            for (const QString& text : unmarkedTexts(sources.filePath())) {
                if (!isOfCommandLine(path, text))
                    unmarked << path + ": " + text;
            }
        }
    }
    QVERIFY(files > 200);
    QVERIFY2(unmarked.isEmpty(), qPrintable(unmarked.join('\n')));
}

void TranslationsTest::everyTranslationIsLoaded()
{
    QVERIFY(takeLanguage(QLocale("de_AT")));
    for (const Message& message : messagesOf(texts("de"))) {
        const int count = message.isCounted ? 1 : -1;
        QString form = message.forms.first();
        QCOMPARE(QCoreApplication::translate(message.context.toUtf8(), message.source.toUtf8(),
                                             nullptr, count),
                 message.isCounted ? form.replace("%n", "1") : form);
    }
    QCOMPARE(
        QCoreApplication::translate("kxpanel::RecipesPage", "%n value(s) saved in %1", nullptr, 3),
        QString("3 Werte in %1 gespeichert"));
}

void TranslationsTest::counts_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("ofTheWindow");
    QTest::addColumn<QString>("ofTheLibrary");
    const auto row = [](const char* name, const char* locale, int count, const char* ofTheWindow,
                        const char* ofTheLibrary) {
        QTest::newRow(name) << locale << count << ofTheWindow << ofTheLibrary;
    };
    row("English, none", "en_GB", 0, "0 values", "0 values for a count of 5");
    row("English, one", "en_GB", 1, "1 value", "1 value for a count of 5");
    row("English, two", "en_GB", 2, "2 values", "2 values for a count of 5");
    row("German, none", "de_DE", 0, "0 Werte", "0 Werte bei einer Anzahl von 5");
    row("German, one", "de_DE", 1, "1 Wert", "1 Wert bei einer Anzahl von 5");
    row("German, two", "de_DE", 2, "2 Werte", "2 Werte bei einer Anzahl von 5");
    row("a language that is not there, one", "fr_FR", 1, "1 value", "1 value for a count of 5");
    row("a language that is not there, two", "fr_FR", 2, "2 values", "2 values for a count of 5");
    row("no language, one", "C", 1, "1 value", "1 value for a count of 5");
}

void TranslationsTest::counts()
{
    QFETCH(QString, locale);
    QFETCH(int, count);
    takeLanguage(QLocale(locale));
    QTEST(QCoreApplication::translate("kxpanel::TransferTexts", "%n value(s)", nullptr, count),
          "ofTheWindow");
    QTEST(kx::countFault(count, 5), "ofTheLibrary");
}

void TranslationsTest::textsOfTheRuntimeLibrary()
{
    QCOMPARE(faultOf("D9000"), QString("out of range; the addresses are D0 to D7999 (decimal)"));
    QVERIFY(takeLanguage(QLocale("de_DE")));
    QCOMPARE(faultOf("D9000"),
             QString::fromUtf8("außerhalb des Bereichs; die Adressen sind D0 bis D7999 (dezimal)"));
    QCOMPARE(faultOf("X9"), QString::fromUtf8("„9“ ist keine Oktalzahl; die Adressen sind X0 bis "
                                              "X377 (oktal)"));
    QCOMPARE(kx::exceptionText(2), QString::fromUtf8("Ausnahme 2 (unzulässige Adresse)"));
    QCOMPARE(kx::outcomeText(unanswered()), QString("keine Antwort, wiederholt"));
    QCOMPARE(kx::requestText(unanswered().request),
             QString("Station 01, Funktion 03, Adresse 00 00, Anzahl 00 0A, CRC C5 CD"));
    QCOMPARE(kx::replyFaults(damaged(), kx::forPeople),
             QString("CRC 78 48 statt 78 47, 8 Byte statt 7"));
    QCOMPARE(kx::gapWords(kx::GapReason::Refused), QString("abgelehnt"));
}

void TranslationsTest::whatProgramsReadStaysEnglish()
{
    QVERIFY(takeLanguage(QLocale("de_DE")));
    const QJsonObject json = kx::exchangeJson(unanswered());
    QCOMPARE(json["outcome"].toString(), QString("no reply"));
    QCOMPARE(json["result"].toString(), QString("repeated"));
    QCOMPARE(json["requestFields"].toString(),
             QString("station 01, function 03, address 00 00, quantity 00 0A, CRC C5 CD"));
    QCOMPARE(kx::exchangeJson(damaged())["replyFaults"].toString(),
             QString("CRC 78 48 instead of 78 47, 8 bytes instead of 7"));
    QCOMPARE(kx::gapText(kx::GapReason::Refused), QString("refused"));
}

void TranslationsTest::numbersHaveThePointThatCanBeTyped()
{
    for (const char* const name : {"de_DE", "en_US", "fr_FR"}) {
        QLocale::setDefault(QLocale(name));
        takeLanguage(QLocale(name));
        QCOMPARE(QLocale().toString(12345.5), QString("12345.5"));
    }
}

void TranslationsTest::languages_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<QString>("text");
    QTest::newRow("German") << "de_DE" << true << "Rezepte";
    QTest::newRow("English, which the sources have") << "en_GB" << false << "Recipes";
    QTest::newRow("one that is not there") << "fr_FR" << false << "Recipes";
    QTest::newRow("none") << "C" << false << "Recipes";
}

void TranslationsTest::languages()
{
    QFETCH(QString, locale);
    QFETCH(bool, isThere);
    QCOMPARE(takeLanguage(QLocale(locale)), isThere);
    QTEST(QCoreApplication::translate("kxpanel::RecipesPage", "Recipes"), "text");
}

QTEST_GUILESS_MAIN(TranslationsTest)

#include "tst_translations.moc"
