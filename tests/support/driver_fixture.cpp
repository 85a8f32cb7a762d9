#include "support/driver_fixture.h"

#include <QtTest/QTest>

#include <cstring>

namespace
{

const int SHARED_BLOCK_SIZE = 60117;
const int RECIPE_WORDS = 4096;

DriverFixture* current = nullptr;

void forgetEverything()
{
    driver.linkId = 0;
    driver.writeLocalOnly = 0;
    driver.param2 = 0;
    driver.retryLimit = 0;
    driver.maxWords = 0;
    driver.rcpVarsA.clear();
    driver.rcpVars.clear();
    driver.intList.clear();
    driver.condVar = VARIABLE();
    driver.currentJob = VARIABLE();
    driver.rcpIndex = 0;
}

} // namespace

char* toString(const Report& report)
{
    const QString text = QString::fromLatin1("(%1, %2, %3, %4)")
                             .arg(report.link)
                             .arg(report.station)
                             .arg(report.name)
                             .arg(report.address);
    return QTest::toString(text);
}

DriverFixture::DriverFixture(const char* parameters)
    : shared(SHARED_BLOCK_SIZE, 0), recipe(RECIPE_WORDS, 0), status(-1), m_polled(FRAME_PRO())
{
    current = this;
    forgetEverything();
    initialise(parameters);
    intf_setAddrValueChangeCallBack(valueChanged);
}

DriverFixture::~DriverFixture()
{
    intf_setAddrValueChangeCallBack(nullptr);
    intf_initProperty(nullptr, nullptr, nullptr, &status, "", nullptr);
    current = nullptr;
}

void DriverFixture::initialise(const char* parameters)
{
    intf_initProperty(shared.data(), nullptr, recipe.data(), &status, parameters, &mutex);
}

QByteArray wholeBytes(const FRAME_PRO& frame)
{
    if (frame.sendLen < 1 || frame.sendLen > FRAME_SIZE)
        return QByteArray();
    return QByteArray(reinterpret_cast<const char*>(frame.frame), frame.sendLen);
}

QByteArray DriverFixture::poll()
{
    FRAME_PRO frame = FRAME_PRO();
    if (intf_getSendFrame(&frame) == 0)
        return QByteArray();
    m_polled = frame;
    return wholeBytes(frame);
}

int DriverFixture::deal(const QByteArray& reply)
{
    const std::vector<char> bytes(reply.begin(), reply.end());
    QByteArray received = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    return intf_dealRcvFrame(received, m_lastError);
}

int DriverFixture::unanswered()
{
    int marks = 0;
    for (const _DATA_& area : driver.dataAreas)
        marks += area.commError;
    return marks;
}

QByteArray DriverFixture::data(int station, const char* regType, int address, int count, int bytes)
{
    QByteArray out(bytes, '\xEE');
    intf_getData(station, QString::fromLatin1(regType), address, count,
                 reinterpret_cast<unsigned char*>(out.data()));
    return out;
}

void DriverFixture::valueChanged(int link, int station, QString name, int address)
{
    const Report report = {link, station, name, address};
    current->reports.append(report);
    if (current->onReport)
        current->onReport(report);
}

QByteArray bytes(const char* hex)
{
    return QByteArray::fromHex(hex);
}

QByteArray withCrc(const char* hex)
{
    QByteArray frame = bytes(hex);
    unsigned int crc = 0xFFFF;
    for (const char byte : frame) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? (crc >> 1) ^ 0xA001 : crc >> 1;
    }
    frame.append(static_cast<char>(crc & 0xFF));
    frame.append(static_cast<char>(crc >> 8));
    return frame;
}

KEY_ADDRESS key(int station, const char* regType, int address, int count)
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.station = station;
    key.regType = QString::fromLatin1(regType);
    key.address = address;
    key.count = count;
    const QStringList bitTypes = QString::fromLatin1("X,Y,M,S,SM,T,C").split(QLatin1Char(','));
    key.bitIndex = bitTypes.contains(key.regType) ? -1 : 0;
    return key;
}

VARIABLE job(int station, const char* regType, int address, int count, const char* hex)
{
    VARIABLE job = VARIABLE();
    job.station = station;
    job.regType = QString::fromLatin1(regType);
    job.address = address;
    job.count = count;
    const QByteArray payload = bytes(hex);
    std::memcpy(job.data, payload.constData(), static_cast<size_t>(payload.size()));
    return job;
}

_RCP_VAR_PRO variable(int station, const QString& regType, int address, int count, int bufOffset)
{
    _RCP_VAR_PRO variable = _RCP_VAR_PRO();
    variable.rcpId = 1;
    variable.station = station;
    variable.regType = regType;
    variable.address = address;
    variable.count = count;
    variable.bufOffset = bufOffset;
    return variable;
}
