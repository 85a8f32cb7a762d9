// Another driver that a panel has loaded: exports all the names of this one and
// notes every call. Nothing of it may ever be used by this driver.

#include "driver/tarvelan.h"

extern "C" KX_EXPORT int decoyCalls;
int decoyCalls = 0;

namespace
{

int wrong()
{
    ++decoyCalls;
    return -77;
}

} // namespace

#define DECOY_ENTRY_POINT(name)                                                                    \
    extern "C" KX_EXPORT int name();                                                               \
    int name()                                                                                     \
    {                                                                                              \
        return wrong();                                                                            \
    }

DECOY_ENTRY_POINT(intf_SetDriverPropertyPage)
DECOY_ENTRY_POINT(intf_addConditionRead)
DECOY_ENTRY_POINT(intf_addrMerge)
DECOY_ENTRY_POINT(intf_checkAddr)
DECOY_ENTRY_POINT(intf_checkAddrValidity)
DECOY_ENTRY_POINT(intf_dealRcvFrame)
DECOY_ENTRY_POINT(intf_getData)
DECOY_ENTRY_POINT(intf_getDriverParameter)
DECOY_ENTRY_POINT(intf_getDriverPropertyPage)
DECOY_ENTRY_POINT(intf_getProtocolType)
DECOY_ENTRY_POINT(intf_getRegDiscription)
DECOY_ENTRY_POINT(intf_getRegListByType)
DECOY_ENTRY_POINT(intf_getSendFrame)
DECOY_ENTRY_POINT(intf_initProperty)
DECOY_ENTRY_POINT(intf_multiCopy)
DECOY_ENTRY_POINT(intf_setAddrValueChangeCallBack)
DECOY_ENTRY_POINT(intf_setData)
DECOY_ENTRY_POINT(intf_setRcpAddress)

// Of the same names and arguments as the driver's own functions.
#define DECOY(declaration)                                                                         \
    KX_EXPORT declaration;                                                                         \
    declaration                                                                                    \
    {                                                                                              \
        wrong();                                                                                   \
    }
#define DECOY_RESULT(declaration)                                                                  \
    KX_EXPORT declaration;                                                                         \
    declaration                                                                                    \
    {                                                                                              \
        return wrong();                                                                            \
    }

DECOY_RESULT(int _setBitValue(int, int, int))
DECOY(void addVarToList(QList<VARIABLE>&, VARIABLE&))
DECOY(void getReadFrame(VARIABLE&))
DECOY(void rcpAddrToVar(_RCP_VAR_PRO, VARIABLE&, int))
DECOY(void getWriteFrame(VARIABLE&))
DECOY_RESULT(int check_rcv_data(unsigned char*, int))
DECOY(void _byteDataChange(unsigned char*, unsigned char*, int, QString, int))
DECOY(void _wordDataChange(int*, int*, int, QString, int, int))
DECOY(void _write_FailOrSuc(int, QString, int, int, int))
DECOY(void dealListWhenFinish())
DECOY_RESULT(int getIndexOfDataArea(int, QString, int, QList<_DATA_>&))
DECOY_RESULT(int getRegAddressWeight(int, QString, int, int))
DECOY(void write_saveDataToArea(int, QString, int, int, unsigned char*))
DECOY_RESULT(int _setDataAreaMonitorFlag(int, QString, int, int))
DECOY(void _OnlyOneDataTypeDataChange(int, QString, int, int, unsigned char, unsigned char, int))
DECOY(void addrMerge(QList<KEY_ADDRESS>&, int))

extern KX_EXPORT QString REG_LIST[13];
QString REG_LIST[13];

extern KX_EXPORT QString REG_DESCRIPTION[13 * 5];
QString REG_DESCRIPTION[13 * 5];

extern KX_EXPORT const int REG_OFFSET[13 * 3];
const int REG_OFFSET[13 * 3] = {};

tarvelan::tarvelan() : linkId(-77)
{
    wrong();
}

tarvelan::~tarvelan()
{
    wrong();
}

tarvelan driver;
