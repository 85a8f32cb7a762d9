#include "data/host_access.h"

#include "data/data_areas.h"
#include "data/value_size.h"
#include "data/written_values.h"
#include "driver/job_queue.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "planning/job_split.h"
#include "registers/type_names.h"

#include <algorithm>
#include <cstring>

namespace
{

const int BYTES_PER_REGISTER = 2;

void fillPayload(VARIABLE& job, const unsigned char* bytes, qint64 length)
{
    const size_t used = static_cast<size_t>(std::min<qint64>(length, PAYLOAD_SIZE));
    std::memcpy(job.data, bytes, used);
    std::memset(job.data + used, 0, PAYLOAD_SIZE - used);
}

void queueBits(VARIABLE& job, int address, int count, const unsigned char* data)
{
    job.address = address;
    job.count = count;
    fillPayload(job, data, count);
    addVarToList(driver.writeList, job);
}

// The address advances by registers from job to job, also for 32CV.
void queueRegisters(VARIABLE& job, int address, int count, const unsigned char* data)
{
    const int limit = driver.maxWordsPerJob;
    if (limit == 0)
        return;
    const int jobs = pieceCount(count, limit);
    for (int piece = 0; piece < jobs; ++piece) {
        const qint64 offset = static_cast<qint64>(BYTES_PER_REGISTER) * limit * piece;
        job.address = wrapAdd(address, wrapMul(limit, piece));
        job.count = pieceLength(count, limit, piece);
        fillPayload(job, data + offset, static_cast<qint64>(BYTES_PER_REGISTER) * job.count);
        addVarToList(driver.writeList, job);
    }
}

void queueWrite(int station, const QString& regType, int address, int count,
                const unsigned char* data, int kind)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!type || !type->writable || count < 1)
        return;
    VARIABLE job = VARIABLE();
    job.kind = kind;
    job.station = station;
    job.regType = regType;
    if (type->registerClass == BIT_CLASS)
        queueBits(job, address, count, data);
    else
        queueRegisters(job, address, count, data);
}

} // namespace

int intf_getData(int station, QString regType, int address, int count, unsigned char* out)
{
    const RegisterType* const type = findRegisterType(regType);
    if (!type)
        return 1;
    const int size = valueSize(type->registerClass);
    const int values = count / registersPerAddress(type);
    const QString& name = typeNames->of(type);
    const UndisturbedAreas undisturbed;
    for (int i = 0; i < values; ++i) {
        const _DATA_& area = dataArea(station, name, wrapAdd(address, i));
        std::memcpy(out + static_cast<qint64>(i) * size, visibleValue(area),
                    static_cast<size_t>(size));
    }
    return 1;
}

int intf_setData(int station, QString regType, int address, int count, unsigned char* data,
                 int kind)
{
    if (driver.writeLocalOnly == 0)
        queueWrite(station, regType, address, count, data, kind);
    write_saveDataToArea(station, regType, address, count, data);
    return 1;
}
