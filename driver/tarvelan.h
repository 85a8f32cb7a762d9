/// The driver object: all state of the driver lives in the one instance `driver`.
#ifndef TARVELAN_DRIVER_TARVELAN_H
#define TARVELAN_DRIVER_TARVELAN_H

#include "driver/export.h"
#include "driver/records.h"

#include <QtCore/QList>
#include <QtCore/QMutex>
#include <QtCore/QString>
#include <QtCore/QVector>

/// The runtime's value-change function: link number (-1: end of a condition
/// read, 0 with name "RWI": recipe buffer word), station, register type name,
/// address (or result, or word offset). It carries no value: read it with
/// intf_getData(), which may be called from inside.
typedef void (*ValueChangeCallBack)(int link, int station, QString name, int address);

/// Field order is binary interface: the 31 fields below, in this order.
/// Runtimes and tests may look at them between calls; nothing here is locked.
///
/// `readList` may be changed between calls: its first job is the one that is polled next.
///
/// `dataAreas` may be changed, too, between calls and inside the value-change function;
/// the first record of a key counts. References and iterators into it are good until the
/// next call of the driver, those got inside that function until it returns. Read it
/// with at() or through a const reference: asking for write access, as operator[] and
/// begin() do, makes the driver copy the list and index it anew.
class KX_EXPORT tarvelan
{
public:
    tarvelan();
    ~tarvelan();

    /// Called on value changes and at the end of a condition read. Null until
    /// the runtime registers it; not tested before a call.
    ValueChangeCallBack valueChangeCallBack;
    int linkId;                     ///< link number, first argument of value-change calls
    int writeLocalOnly;             ///< nonzero: intf_setData() only updates the cache
    int param2;                     ///< stored only
    int retryLimit;                 ///< bad replies in a row after which a request fails
    int maxWords;                   ///< length and gap limit when addresses are merged
    unsigned char* hostShared;      ///< the runtime's block with the recipe request bytes
    void* hostArg1;                 ///< stored only
    unsigned short* recipeBuffer;   ///< the runtime's recipe values, 16-bit words
    QMutex* hostMutex;              ///< guards the recipe request bytes
    QList<VARIABLE> readList;       ///< cyclic read jobs, the next one first
    QList<VARIABLE> writeList;      ///< pending writes
    QList<VARIABLE> condList;       ///< pending condition reads
    QList<_DATA_> dataAreas;        ///< cached values, in order of creation
    QVector<_RCP_VAR_PRO> rcpVarsA; ///< recipe variables of this link, sorted
    QVector<_RCP_VAR_PRO> rcpVars;  ///< recipe register blocks, one request each
    QList<int> intList;             ///< index in `rcpVarsA` at which each block starts
    QList<QString> regNames;        ///< register type names in sort order
    VARIABLE condVar;               ///< the condition read whose end is reported
    VARIABLE currentJob;            ///< the job whose frame was built last
    int currentKind;                ///< its kind, see JobKind
    int burstCount;                 ///< writes and condition reads since the last cyclic read
    int aux1;                       ///< set to 0, never read
    int errorCount;                 ///< bad replies in a row
    int maxBitsPerJob;              ///< most bits in one condition read
    int maxWordsPerJob;             ///< most registers in one condition read or write
    int commFailed;                 ///< nonzero from a final failure to the next good reply
    int aux2;                       ///< set to 0, never read
    int aux3;                       ///< set to 1, never read
    QList<FRAME_PRO> frameList;     ///< frames not yet answered, the one on the wire first
    int rcpIndex;                   ///< next recipe block to transfer

private:
    tarvelan(const tarvelan&);
    tarvelan& operator=(const tarvelan&);
};

/// The one driver object, alive from loading the library to unloading it.
extern KX_EXPORT tarvelan driver;

#endif
