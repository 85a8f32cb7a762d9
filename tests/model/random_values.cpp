#include "model/random_values.h"

#include "model/plain_driver.h"

#include <climits>

namespace
{

const char* const TYPES[] = {"X", "Y",  "M",  "SM",   "S",  "T", "C",
                             "D", "SD", "CV", "32CV", "TV", "Z"};
const int RECIPE_OFFSETS = 2000; // leaves room for the longest variable in the recipe buffer

/// The first address past the type, and around its split.
int edgeOf(const QString& regType, RandomSource& random)
{
    if (regType == QLatin1String("M"))
        return random.oneOf({2048, 10240});
    if (regType == QLatin1String("SM") || regType == QLatin1String("SD"))
        return random.oneOf({256, 512});
    if (regType == QLatin1String("S"))
        return 1024;
    if (regType == QLatin1String("D"))
        return 8000;
    if (regType == QLatin1String("CV") || regType == QLatin1String("32CV"))
        return random.oneOf({200, 256});
    return regType == QLatin1String("Z") ? 16 : 256;
}

} // namespace

RandomValues::RandomValues(quint64 seed) : m_random(seed)
{
    changePool();
}

void RandomValues::changePool()
{
    m_types.clear();
    const int size = m_random.between(1, 4);
    for (int i = 0; i < size; ++i)
        m_types.append(QString::fromLatin1(TYPES[m_random.below(13)]));
    m_stations[0] = m_random.between(0, 3);
    m_stations[1] = m_random.between(1, 300);
}

QString RandomValues::regType()
{
    if (m_random.chance(85))
        return m_types.at(m_random.below(static_cast<int>(m_types.size())));
    if (m_random.chance(80))
        return QString::fromLatin1(TYPES[m_random.below(13)]);
    return QString::fromLatin1(m_random.oneOf({"", "Q", "x", "32", "D ", "CV32", "D_bit"}));
}

int RandomValues::station()
{
    if (m_random.chance(93))
        return m_stations[m_random.below(2)];
    return m_random.chance(70) ? m_random.between(-3, 300)
                               : m_random.oneOf({INT_MIN, -1, 0, 65536, INT_MAX});
}

int RandomValues::address(const QString& regType)
{
    const int choice = m_random.below(100);
    if (choice < 70)
        return (regType == QLatin1String("32CV") ? 200 : 0) + m_random.below(40);
    if (choice < 73)
        return 0;
    if (choice < 90)
        return edgeOf(regType, m_random) + m_random.between(-20, 4);
    if (choice < 95)
        return m_random.between(0, 12000);
    return choice < 98 ? m_random.between(-20, 0)
                       : m_random.oneOf({INT_MIN, INT_MAX - 40, INT_MAX}) + m_random.below(1);
}

int RandomValues::count()
{
    const int choice = m_random.below(200);
    if (choice < 60)
        return m_random.between(1, 3);
    if (choice < 150)
        return m_random.between(1, 24);
    if (choice < 180)
        return 8 * m_random.between(1, 8);
    if (choice < 190)
        return m_random.between(-3, 0);
    if (choice < 192)
        return m_random.oneOf({-40, -8, INT_MIN, INT_MIN + 1});
    if (choice < 198)
        return m_random.between(100, 140);
    return choice < 199 ? m_random.between(500, 600) : m_random.between(1000, 1100);
}

QString RandomValues::addressText(const QString& regType)
{
    if (m_random.chance(2))
        return QString::number(m_random.below(8)) + QChar(0) + QString::number(m_random.below(8));
    if (m_random.chance(20))
        return QString::fromLatin1(
            m_random.oneOf({"", " 7", "7 ", "+5", "-1", "8", "0x10", "1a", "99999999999",
                            "2147483647", "-2147483648", "010", "1.5", "17777777777"}));
    const bool octal = regType == QLatin1String("X") || regType == QLatin1String("Y");
    const int number =
        m_random.chance(60) ? edgeOf(regType, m_random) - m_random.below(4) : address(regType);
    return QString::number(number, octal == m_random.chance(90) ? 8 : 10);
}

unsigned char RandomValues::dataByte()
{
    return m_random.chance(75) ? static_cast<unsigned char>(m_random.below(3)) : m_random.byte();
}

QByteArray RandomValues::payload()
{
    QByteArray bytes(2500, '\0');
    const bool zeros = m_random.chance(10);
    for (char& byte : bytes)
        byte = zeros ? '\0' : static_cast<char>(dataByte());
    return bytes;
}

KEY_ADDRESS RandomValues::keyAddress()
{
    KEY_ADDRESS key = KEY_ADDRESS();
    key.keyName = QString::number(m_random.below(100));
    key.keyTag1 = m_random.below(100);
    key.keyTag2 = m_random.below(100);
    key.station = station();
    key.regType = regType();
    key.addrText = QString::number(m_random.below(100));
    key.address = address(key.regType);
    key.bitIndex = isBitType(key.regType) == m_random.chance(90) ? -1 : m_random.below(16);
    key.count = count();
    key.data[m_random.below(1024)] = m_random.byte();
    return key;
}

VARIABLE RandomValues::job()
{
    VARIABLE job = VARIABLE();
    job.kind = kind();
    job.station = station();
    job.regType = regType();
    job.address = address(job.regType);
    job.count = count();
    const QByteArray bytes = payload();
    for (int i = 0; i < 1024; ++i)
        job.data[i] = static_cast<unsigned char>(bytes.at(i));
    return job;
}

_RCP_VAR_PRO RandomValues::recipeVariable(int link)
{
    _RCP_VAR_PRO var = _RCP_VAR_PRO();
    var.rcpId = m_random.chance(85) ? link : m_random.between(-1, 3);
    var.station = station();
    var.regType = regType();
    var.address = address(var.regType);
    var.count = count();
    var.bufOffset = m_random.chance(97) ? m_random.below(RECIPE_OFFSETS) : m_random.between(-9, -1);
    for (unsigned char& extra : var.rcpExtra)
        extra = m_random.byte();
    return var;
}

QVector<_RCP_VAR_PRO> RandomValues::recipe(int link)
{
    QVector<_RCP_VAR_PRO> vars;
    const int size = m_random.below(7);
    for (int i = 0; i < size; ++i)
        vars.append(recipeVariable(link));
    return vars;
}

_DATA_ RandomValues::dataArea()
{
    _DATA_ area = _DATA_();
    area.commError = static_cast<unsigned char>(m_random.below(2));
    area.writePending = static_cast<unsigned char>(m_random.oneOf({0, 1, 1, 2}));
    area.reserved = m_random.chance(80) ? 0 : m_random.between(-1, 1);
    area.monitorFlags = m_random.oneOf({0, 1, 1, 2, 4, 7, -1, -2, 8});
    area.bitMonitorMask = m_random.oneOf({0, 1, 5, 0xFF, 0xFFFF, 0x8080, -1, INT_MIN});
    area.station = station();
    area.regType = regType();
    area.address = address(area.regType);
    for (int i = 0; i < 4; ++i) {
        area.value[i] = dataByte();
        area.writeValue[i] = dataByte();
    }
    return area;
}

QByteArray RandomValues::parameters()
{
    if (m_random.chance(6))
        return m_random.oneOf<const char*>(
            {"", "1#0#0#0", "1#x#0#0#16#99", "#####", " 2 #0#0#+2#07", "1#0#0#3#1.5"});
    const int words = m_random.oneOf({0, 1, 2, 7, 8, 10, 10, 16, 16, 32, 32, 32, 125, 125});
    const int local = m_random.chance(8) ? 1 : 0;
    QByteArray text = QByteArray::number(m_random.between(0, 2)) + "#" + QByteArray::number(local);
    text += "#" + QByteArray::number(m_random.byte());
    text += "#" + QByteArray::number(m_random.between(-1, 4));
    const int rare = m_random.oneOf({-1, -3, -40, 600, INT_MAX, INT_MIN, 0x10000000});
    text += "#" + QByteArray::number(m_random.chance(5) ? rare : words);
    return text;
}
