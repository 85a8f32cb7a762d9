#include "panel/sequence/junit_report.h"

#include "system/printable_text.h"

#include <QtCore/QMap>
#include <QtCore/QXmlStreamWriter>

namespace kx
{

namespace
{

const double MICROSECONDS_PER_SECOND = 1e6;
const int MILLISECOND_PLACES = 3; // of seconds

QString seconds(qint64 microseconds)
{
    return QString::number(static_cast<double>(microseconds) / MICROSECONDS_PER_SECOND, 'f',
                           MILLISECOND_PLACES);
}

/// What XML can hold.
QString xmlText(const QString& text)
{
    QString printable = printableText(text);
    for (const ushort noCharacter : {ushort(0xFFFE), ushort(0xFFFF)})
        printable.replace(QChar(noCharacter), QChar(QChar::ReplacementCharacter));
    return printable;
}

class JunitWriter
{
public:
    JunitWriter(const QString& name, const Sequence& sequence, const QList<StepResult>& results);

    QByteArray report(const QDateTime& startedAt);

private:
    void writeSuite(const QDateTime& startedAt);
    void writeCase(int step);
    void writeFault(const char* element, const QString& message);
    int count(StepOutcome outcome) const;

    QString m_name;
    const Sequence& m_sequence;
    QMap<int, StepResult> m_results; ///< by step
    QByteArray m_xml;
    QXmlStreamWriter m_writer{&m_xml};
};

JunitWriter::JunitWriter(const QString& name, const Sequence& sequence,
                         const QList<StepResult>& results)
    : m_name(xmlText(name)), m_sequence(sequence)
{
    for (const StepResult& result : results)
        m_results.insert(result.step, result);
}

int JunitWriter::count(StepOutcome outcome) const
{
    int count = 0;
    for (const StepResult& result : m_results)
        count += result.outcome == outcome ? 1 : 0;
    return count;
}

QByteArray JunitWriter::report(const QDateTime& startedAt)
{
    m_writer.setAutoFormatting(true);
    m_writer.writeStartDocument();
    m_writer.writeStartElement(QStringLiteral("testsuites"));
    writeSuite(startedAt);
    m_writer.writeEndElement();
    m_writer.writeEndDocument();
    return m_xml;
}

void JunitWriter::writeSuite(const QDateTime& startedAt)
{
    const int steps = static_cast<int>(m_sequence.steps.size());
    qint64 microseconds = 0;
    for (const StepResult& result : m_results)
        microseconds += result.microseconds;
    const auto write = [this](const char* name, const QString& value) {
        m_writer.writeAttribute(QLatin1String(name), value);
    };
    m_writer.writeStartElement(QStringLiteral("testsuite"));
    write("name", m_name);
    write("tests", QString::number(steps));
    write("failures", QString::number(count(StepOutcome::Failed)));
    write("errors", QString::number(steps - static_cast<int>(m_results.size())));
    write("skipped", QString::number(count(StepOutcome::Skipped)));
    write("time", seconds(microseconds));
    write("timestamp", startedAt.toUTC().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")));
    for (int step = 0; step < steps; ++step)
        writeCase(step);
    m_writer.writeEndElement();
}

// Line numbers of one width, since CI servers sort cases by their names.
void JunitWriter::writeCase(int step)
{
    const StepResult result = m_results.value(step);
    const Step& done = m_sequence.steps.at(step);
    const auto digits = QString::number(m_sequence.steps.last().line).size();
    m_writer.writeStartElement(QStringLiteral("testcase"));
    m_writer.writeAttribute(QStringLiteral("classname"), m_name);
    m_writer.writeAttribute(QStringLiteral("name"),
                            QStringLiteral("line %1: %2")
                                .arg(done.line, static_cast<int>(digits), 10, QLatin1Char('0'))
                                .arg(xmlText(done.text)));
    m_writer.writeAttribute(QStringLiteral("time"), seconds(result.microseconds));
    if (!m_results.contains(step))
        writeFault("error", QStringLiteral("not done: the run did not come to its end"));
    else if (result.outcome == StepOutcome::Failed)
        writeFault("failure", result.reason);
    else if (result.outcome == StepOutcome::Skipped)
        writeFault("skipped", QStringLiteral("a step before it failed, or the run was stopped"));
    m_writer.writeEndElement();
}

void JunitWriter::writeFault(const char* element, const QString& message)
{
    m_writer.writeStartElement(QLatin1String(element));
    m_writer.writeAttribute(QStringLiteral("message"), xmlText(message));
    m_writer.writeEndElement();
}

} // namespace

QByteArray junitReport(const QString& name, const QDateTime& startedAt, const Sequence& sequence,
                       const QList<StepResult>& results)
{
    return JunitWriter(name, sequence, results).report(startedAt);
}

} // namespace kx
