/// The driver again, as plainly as it can be written: every search walks its list,
/// every sort is a bubble sort, every copy is a whole record. The built library is
/// held against it, so nothing here comes from the library's sources.
#ifndef KX_TESTS_MODEL_PLAIN_DRIVER_H
#define KX_TESTS_MODEL_PLAIN_DRIVER_H

#include "driver/records.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>

class PlainDriver
{
public:
    PlainDriver();

    int initProperty(unsigned char* shared, unsigned short* recipe, const char* parameters);

    // The catalogue.
    static int regListByType(int kind, QList<QString>& names);
    static int regDescription(const QString& regType, QList<QString>& description);
    static int checkAddrValidity(const QString& regType, const QString& text, int* addr, int length,
                                 int isWord);
    static int checkAddr(const QString& regType, const QString& text, int* addr, int dataType,
                         int length, int access);
    static int multiCopy(const QString& regType, int start, int count, int step,
                         QVector<QString>& texts, QVector<int>& addrs);
    unsigned int weight(int station, const QString& regType, int addr) const;

    // Recipes.
    int setRcpAddress(const QVector<_RCP_VAR_PRO>& vars);
    void rcpAddrToVar(const _RCP_VAR_PRO& var, VARIABLE& job, int withData) const;

    // Planning.
    void mergeAddresses(QList<KEY_ADDRESS>& list, int mode);
    int planReads(const QList<KEY_ADDRESS>& keys);
    static int setBitValue(int value, int bit, int set);
    int setMonitorFlag(int station, const QString& regType, int address, int count);
    int addConditionRead(const KEY_ADDRESS& key, int kind);

    // Frames and their order.
    static unsigned int crc(const unsigned char* bytes, int length);
    int checkReply(const unsigned char* bytes, int length) const;
    void readFrame(const VARIABLE& job);
    void writeFrame(const VARIABLE& job);
    int sendFrame(FRAME_PRO* out);
    void dealListWhenFinish();

    // The cache.
    static int indexOfDataArea(int station, const QString& regType, int address,
                               QList<_DATA_>& list);
    void saveWritten(int station, const QString& regType, int address, int count,
                     const unsigned char* data);
    void wordChange(int oldValue, int newValue, int station, const QString& regType, int address,
                    int bitStart);
    void wholeChange(int station, const QString& regType, int address, int isBit, int newBits,
                     int oldBits, int groupMode);
    void byteChange(int newByte, int oldByte, int station, const QString& regType, int address);
    int getData(int station, const QString& regType, int address, int count, unsigned char* out);
    int setData(int station, const QString& regType, int address, int count,
                const unsigned char* data, int kind);
    static void addVarToList(QList<VARIABLE>& list, const VARIABLE& job);
    void settleWrite(int station, const QString& regType, int address, int count, int success);

    int dealReply(const QByteArray& reply, QString& errorText);

    std::function<void(int, int, const QString&, int)> valueChanged;
    int linkId = 0;
    int writeLocalOnly = 0;
    int param2 = 0;
    int retryLimit = 0;
    int maxWords = 0;
    unsigned char* hostShared = nullptr;
    unsigned short* recipeBuffer = nullptr;
    QList<VARIABLE> readList;
    QList<VARIABLE> writeList;
    QList<VARIABLE> condList;
    QList<_DATA_> dataAreas;
    QVector<_RCP_VAR_PRO> rcpVarsA;
    QVector<_RCP_VAR_PRO> rcpVars;
    QList<int> intList;
    QList<QString> regNames;
    VARIABLE condVar = VARIABLE();
    VARIABLE currentJob = VARIABLE();
    int currentKind = 0;
    int burstCount = 0;
    int errorCount = 0;
    int maxBitsPerJob = 0;
    int maxWordsPerJob = 0;
    int commFailed = 0;
    QList<FRAME_PRO> frameList;
    int rcpIndex = 0;

private:
    _DATA_& record(int station, const QString& regType, int address);
    void sortByWeight(QVector<_RCP_VAR_PRO>& vars) const;
    void sortByWeight(QList<KEY_ADDRESS>& list) const;
    QList<KEY_ADDRESS> joinTouching(const QList<KEY_ADDRESS>& list, int mode);
    QList<KEY_ADDRESS> bridgeGaps(const QList<KEY_ADDRESS>& blocks) const;
    void fileConditionRead(const VARIABLE& job);
    int rebuildCurrentJob();
    void scheduleRecipe(int kind);
    bool lacksValues(const _RCP_VAR_PRO& block) const;
    int scheduleLists();
    void finishConditionRead();
    void finishRecipe(int requestByte);
    int acceptRead(const QByteArray& reply);
    int acceptWrite();
    int refuse(const QByteArray& reply, QString& errorText);
    void retire();
    void markFailed(const FRAME_PRO& frame);
    void decodeBits(const FRAME_PRO& frame, const QByteArray& reply);
    void decodeWords(const FRAME_PRO& frame, const QByteArray& reply);
    void decodeDoubleWords(const FRAME_PRO& frame, const QByteArray& reply);
    bool storeInBuffer(int offset, int word);
    void copyRecipeDoubleWord(int k, const unsigned char* mostSignificantFirst);
    void copyRecipeWords(const FRAME_PRO& frame, const QByteArray& reply, int first, int end);
};

/// The low 32 bits of a result, as a 32-bit machine computes it.
inline int wrapped(qint64 value)
{
    return static_cast<int>(static_cast<quint32>(value));
}

inline unsigned char lowByte(int value)
{
    return static_cast<unsigned char>(value & 0xFF);
}

bool isBitType(const QString& regType);
/// D, SD, TV, CV and Z.
bool isWordType(const QString& regType);
bool is32Type(const QString& regType);

/// Row of the catalogue, -1 for an unknown type.
int catalogueRow(const QString& regType);
/// What is added to an address of that type to get its Modbus number.
int modbusBase(const QString& regType, int address);

/// Reply byte by index; 0 outside the reply.
int replyByte(const QByteArray& reply, int index);

#endif
