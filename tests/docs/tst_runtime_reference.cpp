// The reference of libkxruntime shows each declaration of its installed headers.

#include "page.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

QStringList installedHeaders()
{
    return QString(KX_RUNTIME_HEADERS).split(' ');
}

/// All its pages, one after the other.
QString reference()
{
    QString pages;
    for (const QString& page : sourceFiles("docs/reference/runtime", "*.md"))
        pages += sourceText(page);
    return pages;
}

/// The names that a header declares outside of any other, but for what is defined there.
QStringList declaredNames(const QString& header)
{
    static const QRegularExpression kind(
        R"(^(?:class|struct|enum class|enum|const int) (?:KXRUNTIME_EXPORT )?(\w+)(?=[^;{}]*[{=]))",
        QRegularExpression::MultilineOption);
    static const QRegularExpression function(R"(^KXRUNTIME_EXPORT [^;{}(]*\b(\w+)\()",
                                             QRegularExpression::MultilineOption);
    const QString text = sourceText("tools/" + header);
    QStringList names;
    for (const QRegularExpression& pattern : {kind, function}) {
        for (auto found = pattern.globalMatch(text); found.hasNext();)
            names << found.next().captured(1);
    }
    return names;
}

} // namespace

class RuntimeReferenceTest : public QObject
{
    Q_OBJECT

private slots:
    void everyDeclarationIsShown_data()
    {
        QTest::addColumn<QString>("link");
        for (const QString& header : installedHeaders()) {
            for (const QString& name : declaredNames(header)) {
                const QString link =
                    QString("\n[%1 in %2](../../../tools/%2#%1)\n").arg(name, header);
                QTest::addRow("%s in %s", qPrintable(name), qPrintable(header)) << link;
            }
        }
    }

    void everyDeclarationIsShown()
    {
        static const QString pages = reference();
        QFETCH(QString, link);
        QVERIFY2(pages.contains(link), qPrintable(link));
    }

    // A page of a header that is not installed would promise too much.
    void nothingElseIsShown()
    {
        static const QRegularExpression shown(R"(\]\(../../../tools/([\w/]+\.h)#)");
        const QString pages = reference();
        int links = 0;
        for (auto found = shown.globalMatch(pages); found.hasNext(); ++links) {
            const QString header = found.next().captured(1);
            QVERIFY2(installedHeaders().contains(header), qPrintable(header));
        }
        QVERIFY(links > 100);
    }
};

QTEST_APPLESS_MAIN(RuntimeReferenceTest)
#include "tst_runtime_reference.moc"
