#include "stories/slave.h"

namespace
{

const int WRITE_REPLY_LENGTH = 8;

QString described(const VARIABLE& job)
{
    return QString::fromLatin1("%1 %2 %3").arg(job.regType).arg(job.address).arg(job.count);
}

} // namespace

QByteArray replyWith(const DriverFixture& runtime, const char* data)
{
    const QByteArray values = bytes(data);
    const QByteArray head = wholeBytes(runtime.polled()).left(2) + static_cast<char>(values.size());
    return withCrc((head + values).toHex().constData());
}

QByteArray goodReply(const DriverFixture& runtime)
{
    const FRAME_PRO& request = runtime.polled();
    if (request.dataLen == 0)
        return withCrc(
            wholeBytes(runtime.polled()).left(WRITE_REPLY_LENGTH - 2).toHex().constData());
    return replyWith(runtime, QByteArray(request.recvLen - 5, '\0').toHex().constData());
}

QStringList serve(DriverFixture& runtime, int count)
{
    QStringList served;
    for (int i = 0; i < count; ++i) {
        if (runtime.poll().isEmpty()) {
            served << "-";
            continue;
        }
        served << described(runtime.polled().job);
        if (runtime.deal(goodReply(runtime)) != 1)
            served << "not accepted";
    }
    return served;
}

QList<int> failRequest(DriverFixture& runtime)
{
    QList<int> results;
    do {
        runtime.poll();
        results << runtime.deal(QByteArray());
    } while (results.last() == 8 && results.size() < 100);
    return results;
}

QList<int> addresses(const QList<VARIABLE>& jobs)
{
    QList<int> result;
    for (const VARIABLE& job : jobs)
        result << job.address;
    return result;
}

void setValues(int station, const char* type, int address, int count, const char* hex)
{
    QByteArray values = bytes(hex);
    intf_setData(station, QString::fromLatin1(type), address, count,
                 reinterpret_cast<unsigned char*>(values.data()), WRITE_JOB);
}

void addCondition(int station, const char* type, int address, int count)
{
    KEY_ADDRESS wanted = key(station, type, address, count);
    intf_addConditionRead(wanted, CONDITION_READ_JOB);
}

int planRecipe(const QList<RecipeVariable>& variables)
{
    QVector<_RCP_VAR_PRO> records;
    for (const RecipeVariable& v : variables)
        records << variable(1, QString::fromLatin1(v.type), v.address, v.count, v.bufferOffset);
    return intf_setRcpAddress(records);
}

Report recipeWord(int offset)
{
    return Report{0, -1, "RWI", offset};
}
