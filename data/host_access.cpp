#include "data/host_access.h"

#include "data/data_areas.h"
#include "data/value_size.h"
#include "data/written_values.h"
#include "driver/job_queue.h"
#include "driver/job_split.h"
#include "driver/tarvelan.h"
#include "driver/wrapping.h"
#include "registers/type_names.h"

#include <algorithm>
#include <cstring>

namespace
{

/// How a write is cut: the most elements of one job, and the bytes of each.
struct Cut {
    int limit;
    int elementSize;
};

Cut cutOf(const RegisterType* type)
{
    const Cut bits = {PAYLOAD_SIZE, 1};
    const Cut registers = {driver.maxWordsPerJob, 2};
    return type->registerClass == BIT_CLASS ? bits : registers;
}

void fillPayload(VARIABLE& job, const unsigned char* bytes, qint64 length)
{
    const size_t used = static_cast<size_t>(std::min<qint64>(length, PAYLOAD_SIZE));
    std::memcpy(job.data, bytes, used);
    std::memset(job.data + used, 0, PAYLOAD_SIZE - used);
}

// The address advances by elements from job to job: by registers also for 32CV.
void queuePieces(VARIABLE& job, int address, int count, const unsigned char* data, const Cut& cut)
{
    if (cut.limit == 0)
        return;
    const int pieces = pieceCount(count, cut.limit);
    for (int piece = 0; piece < pieces; ++piece) {
        const qint64 offset = static_cast<qint64>(cut.elementSize) * cut.limit * piece;
        job.address = wrapAdd(address, wrapMul(cut.limit, piece));
        job.count = pieceLength(count, cut.limit, piece);
        fillPayload(job, data + offset, static_cast<qint64>(cut.elementSize) * job.count);
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
    queuePieces(job, address, count, data, cutOf(type));
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
