#include "kxpanel/translations/translations.h"

#include <QtCore/QFile>
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

QString texts()
{
    return QString::fromLocal8Bit(KX_TRANSLATIONS "/kxpanel_de.ts");
}

} // namespace

class TranslationsTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void everyTextIsTranslated();
    void everyTextOfTheSourcesIsThere();
    void everyTranslationIsLoaded();
    void languages_data();
    void languages();
};

void TranslationsTest::cleanup()
{
    for (QTranslator* translator : QCoreApplication::instance()->findChildren<QTranslator*>())
        delete translator;
}

void TranslationsTest::everyTextIsTranslated()
{
    const QList<Message> messages = messagesOf(texts());
    QVERIFY(messages.size() > 500);
    for (const Message& message : messages) {
        QVERIFY2(message.isFinished, qPrintable(message.source));
        QCOMPARE(message.forms.size(), message.isCounted ? 2 : 1);
        for (const QString& form : message.forms) {
            QVERIFY2(!form.isEmpty(), qPrintable(message.source));
            QVERIFY2(placesIn(form) == placesIn(message.source), qPrintable(form));
        }
    }
}

void TranslationsTest::everyTextOfTheSourcesIsThere()
{
    QTemporaryDir folder;
    const QString copy = folder.filePath("kxpanel_de.ts");
    QVERIFY(QFile::copy(texts(), copy));
    const QStringList arguments = {"-silent",           "-locations", "none",
                                   "-no-obsolete",      "-I",         KX_TOOLS,
                                   KX_TOOLS "/kxpanel", "-ts",        copy};
    QProcess lupdate;
    lupdate.start(KX_LUPDATE, arguments);
    QVERIFY(lupdate.waitForFinished(60000));
    QCOMPARE(lupdate.exitCode(), 0);
    QCOMPARE(lupdate.readAllStandardError(), QByteArray()); // it knows where each text belongs
    QStringList missing;
    const QList<Message> messages = messagesOf(copy);
    for (const Message& message : messages) {
        if (!message.isFinished)
            missing << message.context + ": " + message.source;
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join('\n')));
    QCOMPARE(messages.size(), messagesOf(texts()).size()); // and nothing that has gone
}

void TranslationsTest::everyTranslationIsLoaded()
{
    QVERIFY(takeLanguage(QLocale("de_AT")));
    for (const Message& message : messagesOf(texts())) {
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
