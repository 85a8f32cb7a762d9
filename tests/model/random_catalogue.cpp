#include "model/random_runtime.h"

#include "registers/address_weight.h"

void RandomRuntime::checkAddress()
{
    const QString type = m_values.regType();
    const QString text = m_values.addressText(type);
    const int length = m_random.chance(50) ? m_random.between(0, 3) : m_values.count();
    const int dataType = m_random.between(-1, 10);
    const int access = m_random.between(0, 3);
    called(QString::fromLatin1("check %1 %2 length %3 data type %4 access %5")
               .arg(type, text)
               .arg(length)
               .arg(dataType)
               .arg(access));
    int library = -77;
    int plain = -77;
    same("validity", intf_checkAddrValidity(type, text, &library, length, dataType + 1),
         PlainDriver::checkAddrValidity(type, text, &plain, length, dataType + 1));
    same("address", library, plain);
    same("check", intf_checkAddr(type, text, &library, dataType, length, access),
         PlainDriver::checkAddr(type, text, &plain, dataType, length, access));
    same("address checked", library, plain);
}

void RandomRuntime::listRegisters()
{
    const QString type = m_values.regType();
    const int kind = m_random.between(-1, 2);
    called(QString::fromLatin1("list registers of kind %1, describe %2").arg(kind).arg(type));
    QList<QString> library;
    QList<QString> plain;
    same("list", intf_getRegListByType(kind, library), PlainDriver::regListByType(kind, plain));
    same("description", intf_getRegDiscription(type, library),
         PlainDriver::regDescription(type, plain));
    sameList("texts", library, plain);
}

void RandomRuntime::copyAddresses()
{
    const QString type = m_values.regType();
    const int start = m_values.address(type);
    const int count = m_random.between(-1, 30);
    const int step = m_random.chance(80) ? m_random.between(-4, 12) : m_values.address(type);
    called(
        QString::fromLatin1("%1 copies of %2 %3 by %4").arg(count).arg(type).arg(start).arg(step));
    QVector<QString> libraryTexts;
    QVector<QString> plainTexts;
    QVector<int> libraryNumbers;
    QVector<int> plainNumbers;
    same("result", intf_multiCopy(type, start, count, step, libraryTexts, libraryNumbers),
         PlainDriver::multiCopy(type, start, count, step, plainTexts, plainNumbers));
    sameList("texts", libraryTexts, plainTexts);
    sameList("addresses", libraryNumbers, plainNumbers);
}

void RandomRuntime::weigh()
{
    const int station = m_values.station();
    const QString type = m_values.regType();
    const int address = m_values.address(type);
    called(QString::fromLatin1("weigh %1 %2 %3").arg(station).arg(type).arg(address));
    same("weight", getRegAddressWeight(station, type, address, m_random.below(3)),
         m_plain.weight(station, type, address));
}
