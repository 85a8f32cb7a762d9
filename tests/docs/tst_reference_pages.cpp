// The reference holds a page for every exported entry point, as the headers declare it.

#include "exported_names.h"
#include "page.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

QStringList entryPoints()
{
    return exportedNames().filter(QStringLiteral("intf_"));
}

/// The headers of the library, on one line.
QString allDeclarations()
{
    QString headers;
    for (const char* folder : {"data", "driver", "modbus", "planning", "registers"})
        for (const QString& header : sourceFiles(folder, "*.h"))
            headers += sourceText(header);
    return headers.simplified();
}

/// The headers that declare entry points, on one line.
QString declarations()
{
    QString headers;
    for (const char* header :
         {"driver/setup.h", "registers/address_check.h", "registers/address_series.h",
          "registers/recipe_addresses.h", "registers/register_catalogue.h", "planning/read_jobs.h",
          "planning/condition_reads.h", "modbus/send_schedule.h", "data/reply_handling.h",
          "data/host_access.h"})
        headers += sourceText(QString::fromLatin1(header));
    return headers.simplified();
}

QString synopsisOf(const QString& page)
{
    return between(page, "## Synopsis\n\n```cpp\n", "\n```").simplified();
}

/// A paragraph that is only a link to a file is that file's text on the site.
bool showsExample(const QString& page, const QString& file)
{
    return page.contains(QString("\n\n[%1](../examples/reference/%1)\n").arg(file));
}

/// What the header says before that declaration, on one line.
QString commentBefore(const QString& synopsis)
{
    QString before = declarations().section("KX_EXPORT " + synopsis, 0, 0);
    return before.section("KX_EXPORT ", -1).remove("/// ");
}

/// The rows of the guide that say what must not be called from inside.
QString forbiddenInTheGuide()
{
    return sourceText("docs/guide/threads-and-calls.md").split('\n').filter("| no |").join(' ');
}

} // namespace

class ReferencePagesTest : public QObject
{
    Q_OBJECT

private slots:
    void entryPoint_data()
    {
        QTest::addColumn<QString>("page");
        QCOMPARE(int(entryPoints().size()), 18);
        for (const QString& name : entryPoints())
            QTest::newRow(qPrintable(name))
                << sourceText(QStringLiteral("docs/reference/%1.md").arg(name));
    }

    void entryPoint()
    {
        QFETCH(QString, page);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QVERIFY(page.startsWith("# " + name + "\n"));
        const QString synopsis = synopsisOf(page);
        QVERIFY(synopsis.contains(" " + name + "("));
        QVERIFY2(declarations().contains("KX_EXPORT " + synopsis), qPrintable(synopsis));
        QVERIFY(showsExample(page, name + ".cpp"));
        QVERIFY(showsExample(page, name + ".expected"));
        QVERIFY(sourceText("docs/examples/reference/" + name + ".cpp").contains(name + "("));
        QVERIFY(sourceText("docs/reference/index.md").contains("(" + name + ".md)"));
    }

    void whatIsCalledFromInside_data() { entryPoint_data(); }

    // Page, header and guide say the same of calls from inside the value-change function.
    void whatIsCalledFromInside()
    {
        QFETCH(QString, page);
        const bool isForbidden =
            page.contains(" It must not be called from inside the value-change function.");
        QCOMPARE(page.contains(" It may be called from inside the value-change function."),
                 !isForbidden);
        QCOMPARE(
            commentBefore(synopsisOf(page)).contains("not from inside the value-change function"),
            isForbidden);
        QCOMPARE(forbiddenInTheGuide().contains(
                     QString("`%1`").arg(QLatin1String(QTest::currentDataTag()))),
                 isForbidden);
    }

    void everyOtherNameIsOnOnePage()
    {
        const QString page = sourceText("docs/reference/other-names.md");
        int others = 0;
        for (const QString& exported : exportedNames()) {
            if (exported.startsWith(QLatin1String("intf_")))
                continue;
            ++others;
            const QString name = plainName(exported);
            QVERIFY2(page.contains("`" + name + "`") || page.contains("::" + name + "`"),
                     qPrintable(name));
        }
        QCOMPARE(others, 24);
    }

    // As the headers declare them; a constructor has no type to tell.
    void declarationsOfOtherNames()
    {
        static const QRegularExpression row(R"(\n\| `(\w+)` \| `([^`]+)` \|)");
        const QString headers = allDeclarations();
        int rows = 0;
        for (auto found = row.globalMatch(sourceText("docs/reference/other-names.md"));
             found.hasNext(); ++rows) {
            const QRegularExpressionMatch match = found.next();
            QVERIFY2(headers.contains("KX_EXPORT " + match.captured(2) + ";"),
                     qPrintable(match.captured(2)));
            QVERIFY(match.captured(2).contains(match.captured(1)));
        }
        QCOMPARE(rows, 20);
    }
};

QTEST_APPLESS_MAIN(ReferencePagesTest)
#include "tst_reference_pages.moc"
