// What kxpanel says of itself, with its manual page, before there is a window.

#include "manual_page.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

const QString MANUAL_PAGE = QStringLiteral(KX_MAN_PAGES "/kxpanel.1");

struct ProgramResult {
    int exitCode; ///< -1: killed, or not over after half a minute
    QString output;
    QString errors;
};

/// Without a display.
ProgramResult runProgram(const QStringList& arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* const name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(name);
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(KX_WINDOW_PROGRAM, arguments);
    const bool isOver = program.waitForFinished() && program.exitStatus() == QProcess::NormalExit;
    return {isOver ? program.exitCode() : -1, QString::fromUtf8(program.readAllStandardOutput()),
            QString::fromUtf8(program.readAllStandardError())};
}

/// The lines behind a heading that are calls of the program.
QStringList callsBehind(const QString& heading, const QString& text)
{
    QStringList calls;
    for (const QString& line : text.section(heading, 1).split('\n')) {
        if (line.trimmed().startsWith("kxpanel"))
            calls << line.trimmed();
    }
    return calls;
}

} // namespace

class KxpanelUsageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theManualPageHasEveryOption();
    void theManualPageHasTheExamples();
    void theManualPageHasTheExitCodes();
    void aLetterStandsForTheSameAsInKxhost();
    void theVersion();

private:
    QString m_help;
    QString m_manual;
};

void KxpanelUsageTest::init()
{
    const ProgramResult result = runProgram({"--help"});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    m_help = result.output;
    m_manual = manualPage(MANUAL_PAGE);
}

void KxpanelUsageTest::theManualPageHasEveryOption()
{
    const QSet<QString> options = optionsIn(m_help);
    const QSet<QString> explained = optionsIn(m_manual);
    QVERIFY(options.size() > 20);
    QCOMPARE((options - explained).values(), QList<QString>());
    QCOMPARE((explained - options).values(), QList<QString>());
    QVERIFY(lettersIn(m_help).size() > 5);
    QCOMPARE(lettersIn(m_manual), lettersIn(m_help));
}

void KxpanelUsageTest::theManualPageHasTheExamples()
{
    const QStringList examples = callsBehind("Examples:", m_help);
    QVERIFY(examples.size() > 3);
    QCOMPARE(callsBehind(".SH EXAMPLES", m_manual), examples);
}

void KxpanelUsageTest::theManualPageHasTheExitCodes()
{
    const QString line = m_help.section("Exit codes: ", 1).section('\n', 0, 0);
    QStringList codes;
    for (const QString& part : line.split(", "))
        codes << part.section(' ', 0, 0);
    QCOMPARE(codes, (QStringList{"0", "2", "3"}));
    const QString inManual = m_manual.section(".SH EXIT STATUS", 1).section(".SH", 0, 0);
    QCOMPARE(inManual.split('\n').filter(QRegularExpression("^\\.B \\d")),
             codes.replaceInStrings(QRegularExpression("^"), ".B "));
}

void KxpanelUsageTest::aLetterStandsForTheSameAsInKxhost()
{
    const QMap<QString, QString> ofKxhost = lettersIn(manualPage(KX_MAN_PAGES "/kxhost.1"));
    const QMap<QString, QString> letters = lettersIn(m_help);
    for (const QString& letter : letters.keys())
        QCOMPARE(ofKxhost.value(letter), letters.value(letter));
}

void KxpanelUsageTest::theVersion()
{
    const ProgramResult result = runProgram({"--version"});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output.section('\n', 0, 0), QString("kxpanel " KX_VERSION));
    QVERIFY(m_manual.section('\n', 0, 0).contains("\"tarvelan KX series " KX_VERSION "\""));
}

QTEST_GUILESS_MAIN(KxpanelUsageTest)
#include "tst_kxpanel_usage.moc"
