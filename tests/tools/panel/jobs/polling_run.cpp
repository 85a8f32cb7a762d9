#include "tools/panel/jobs/polling_run.h"

#include "data/reply_handling.h"

namespace kx
{

namespace
{

FaultyRunSettings twoStations()
{
    FaultyRunSettings settings;
    settings.line.stations = {1, 2};
    settings.watched << QStringLiteral("D0:8@1");
    settings.session.retries = 2;
    settings.session.exchange.settle = 0; // nobody answers late
    return settings;
}

QString withoutCrc(const QByteArray& frame)
{
    return QString::fromLatin1(frame.left(frame.size() - 2).toHex(' ').toUpper());
}

} // namespace

PollingRun::PollingRun() : m_run(std::make_unique<FaultyRun>(twoStations()))
{
    m_run->line().onRequest = [this](const QByteArray& request) {
        m_onItsWay = withoutCrc(request);
    };
    QObject::connect(&session(), &Session::exchanged, &session(),
                     [this](const ExchangeRecord& record) {
                         const QString request = withoutCrc(record.request);
                         if (request == QLatin1String(POLLED))
                             m_polls += record.result == REPLY_ACCEPTED ? 1 : 0;
                         else if (!record.repeated && record.result != REPLY_IGNORED)
                             m_asked << request;
                     });
}

bool PollingRun::until(const std::function<bool()>& isEnough)
{
    // Far more than any of these tests needs.
    const qint64 end = session().statistics().requests + 1000;
    m_run->runUntil([&] { return isEnough() || session().statistics().requests >= end; });
    return isEnough();
}

bool PollingRun::untilEnded(const Job& job)
{
    return until([&job] { return job.hasEnded(); });
}

bool PollingRun::untilOnTheWay(const QString& request)
{
    return until([this, &request] { return m_onItsWay == request; });
}

bool PollingRun::pollsGoOn(int polls)
{
    const int enough = m_polls + polls;
    return until([this, enough] { return m_polls >= enough; });
}

QList<quint32> PollingRun::memory(const char* range)
{
    QList<quint32> values;
    QString error;
    if (!m_run->line().stations().values(rangeOf(QString::fromLatin1(range)), &values, &error))
        qFatal("%s", qPrintable(error));
    return values;
}

Assignment assignmentOf(const char* text)
{
    Assignment assignment;
    QString error;
    if (!parseAssignment(QString::fromLatin1(text), &assignment, &error))
        qFatal("%s", qPrintable(error));
    return assignment;
}

Tag tagOf(const char* range)
{
    Tag tag;
    tag.range = rangeOf(QString::fromLatin1(range));
    return tag;
}

RecipeLayout layoutOf(const char* rows)
{
    RecipeFile file;
    RecipeLayout layout;
    QString error;
    const QByteArray text = QByteArray("name,station,register,address,type,value\n") + rows;
    if (!RecipeFile::parse(text, 1, &file, &error)
        || !layOutRecipe(file.rows(), 32, &layout, &error))
        qFatal("%s", qPrintable(error));
    return layout;
}

} // namespace kx
