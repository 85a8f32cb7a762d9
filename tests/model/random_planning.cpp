#include "model/random_runtime.h"

#include "planning/address_merge.h"
#include "planning/monitor_flags.h"

void RandomRuntime::planReads()
{
    QList<KEY_ADDRESS> keys;
    const int size = m_random.chance(97) ? m_random.below(12) : m_random.below(120);
    QString text;
    for (int i = 0; i < size; ++i) {
        keys.append(m_values.keyAddress());
        text += shown(keys.at(i));
    }
    called(QString::fromLatin1("plan reads of ") + text);
    const QList<KEY_ADDRESS> before = keys;
    same("result", intf_addrMerge(keys), m_plain.planReads(before));
    sameList("keys", keys, before);
}

void RandomRuntime::addConditionRead()
{
    KEY_ADDRESS key = m_values.keyAddress();
    const int kind = m_values.kind();
    // Splitting a long range into tiny pieces is tried now and then only.
    if (key.count > 100 && m_random.chance(80))
        key.count = 40;
    called(QString::fromLatin1("condition read ") + shown(key));
    const KEY_ADDRESS before = key;
    same("result", intf_addConditionRead(key, kind), m_plain.addConditionRead(before, kind));
    same("key", key, before);
}

void RandomRuntime::floodQueue()
{
    const bool writes = m_random.chance(50);
    called(QString::fromLatin1(writes ? "600 writes" : "600 condition reads"));
    unsigned char data[16] = {1, 2, 3, 4};
    for (int i = 0; i < 600; ++i) {
        KEY_ADDRESS wanted = key(1, "D", 2 * i, 1);
        data[0] = static_cast<unsigned char>(i);
        if (writes) {
            intf_setData(1, wanted.regType, i % 550, 1, data, 2);
            m_plain.setData(1, wanted.regType, i % 550, 1, data, 2);
        } else {
            intf_addConditionRead(wanted, 3);
            m_plain.addConditionRead(wanted, 3);
        }
    }
}

void RandomRuntime::setRecipe()
{
    QVector<_RCP_VAR_PRO> vars = m_values.recipe(m_plain.linkId);
    QString text;
    for (const _RCP_VAR_PRO& var : vars)
        text += shown(var);
    called(QString::fromLatin1("set recipe ") + text);
    const QVector<_RCP_VAR_PRO> before = vars;
    same("result", intf_setRcpAddress(vars), m_plain.setRcpAddress(before));
    sameList("variables", vars, before);
}

void RandomRuntime::merge()
{
    QList<KEY_ADDRESS> library;
    const int size = m_random.between(1, 14);
    QString text;
    for (int i = 0; i < size; ++i) {
        library.append(m_values.keyAddress());
        text += shown(library.at(i));
    }
    const int mode = m_random.oneOf({1, 1, 2, 2, 0, -1, 3});
    called(QString::fromLatin1("merge in mode %1 ").arg(mode) + text);
    QList<KEY_ADDRESS> plain = library;
    const QList<int> starts = m_plain.intList;
    addrMerge(library, mode);
    m_plain.mergeAddresses(plain, mode);
    sameList("blocks", library, plain);
    sameList("intList", driver.intList, m_plain.intList);
    // Only the block starts of the recipe in force may be used by recipe reads.
    driver.intList = starts;
    m_plain.intList = starts;
}

void RandomRuntime::markMonitored()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    const int count = m_values.count();
    called(QString::fromLatin1("watch %1 %2 %3 %4").arg(station).arg(type).arg(address).arg(count));
    same("result", _setDataAreaMonitorFlag(station, type, address, count),
         m_plain.setMonitorFlag(station, type, address, count));
}

void RandomRuntime::setBit()
{
    const int value = static_cast<int>(m_random.next() & 0xFFFFFFFF);
    const int bit = m_random.between(-2, 34);
    const int set = m_random.between(-1, 2);
    called(QString::fromLatin1("bit %1 of %2 = %3").arg(bit).arg(value).arg(set));
    same("result", _setBitValue(value, bit, set), PlainDriver::setBitValue(value, bit, set));
}

void RandomRuntime::fillRecipeJob()
{
    _RCP_VAR_PRO var = m_values.recipeVariable(m_plain.linkId);
    var.bufOffset -= m_random.chance(5) ? 2100 : 0;
    VARIABLE library = m_values.job();
    VARIABLE plain = library;
    const int withData = m_random.between(-1, 1);
    called(QString::fromLatin1("recipe job %1 of ").arg(withData) + shown(var));
    rcpAddrToVar(var, library, withData);
    m_plain.rcpAddrToVar(var, plain, withData);
    same("job", library, plain);
}
