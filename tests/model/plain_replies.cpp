#include "model/plain_driver.h"

#include <cstring>

int replyByte(const QByteArray& reply, int index)
{
    if (index < 0 || index >= reply.size())
        return 0;
    return static_cast<unsigned char>(reply.at(index));
}

int PlainDriver::dealReply(const QByteArray& reply, QString& errorText)
{
    errorText = QString::fromLatin1("");
    if (frameList.isEmpty())
        return 0;
    const QByteArray bytes = reply;
    const int check = checkReply(reinterpret_cast<const unsigned char*>(bytes.constData()),
                                 static_cast<int>(bytes.size()));
    if (check == 1)
        return acceptRead(bytes);
    if (check == 2)
        return acceptWrite();
    return refuse(bytes, errorText);
}

int PlainDriver::acceptRead(const QByteArray& reply)
{
    commFailed = 0;
    const FRAME_PRO frame = frameList.at(0);
    int first = 0;
    int end = 0;
    if (currentKind == 6 && rcpIndex < intList.size()) {
        first = intList.at(rcpIndex);
        end = static_cast<int>(rcpVarsA.size());
        if (rcpIndex + 1 < intList.size())
            end = intList.at(rcpIndex + 1);
    }
    if (isBitType(frame.job.regType))
        decodeBits(frame, reply);
    else if (isWordType(frame.job.regType))
        decodeWords(frame, reply);
    else if (is32Type(frame.job.regType))
        decodeDoubleWords(frame, reply);
    if (currentKind == 6 && isWordType(frame.job.regType))
        copyRecipeWords(frame, reply, first, end);
    retire();
    return 1;
}

int PlainDriver::acceptWrite()
{
    const VARIABLE job = frameList.at(0).job;
    if (currentKind == 2)
        settleWrite(job.station, job.regType, job.address, job.count, 1);
    commFailed = 0;
    retire();
    return 1;
}

void PlainDriver::retire()
{
    frameList.removeFirst();
    if (frameList.isEmpty())
        dealListWhenFinish();
    errorCount = 0;
}

int PlainDriver::refuse(const QByteArray& reply, QString& errorText)
{
    ++errorCount;
    if (errorCount < retryLimit)
        return 8;
    commFailed = 1;
    const FRAME_PRO frame = frameList.at(0);
    const VARIABLE& job = frame.job;
    if (currentKind == 2)
        settleWrite(job.station, job.regType, job.address, job.count, 0);
    errorText = QString::number(reply.size()) + QLatin1Char(',') + QString::number(job.station)
                + QLatin1Char(',') + QString::number(job.address) + QLatin1Char(',') + job.regType;
    markFailed(frame);
    frameList.clear();
    errorCount = 0;
    dealListWhenFinish();
    return 2;
}

void PlainDriver::markFailed(const FRAME_PRO& frame)
{
    const VARIABLE& job = frame.job;
    const bool bits = isBitType(job.regType);
    if (catalogueRow(job.regType) < 0)
        return;
    const int marks = bits ? frame.dataLen : frame.dataLen / 2;
    for (int i = 0; i < marks; ++i) {
        const int a = wrapped(job.address + static_cast<qint64>(bits ? 8 : 1) * i);
        record(job.station, job.regType, a).commError = 1;
    }
}

void PlainDriver::decodeBits(const FRAME_PRO& frame, const QByteArray& reply)
{
    const VARIABLE& job = frame.job;
    const int d = frame.frameFunc;
    for (int i = 0; i < frame.dataLen; ++i) {
        const int a = wrapped(static_cast<qint64>(job.address) + i);
        const int index = indexOfDataArea(job.station, job.regType, a, dataAreas);
        dataAreas[index].commError = 0;
        if (dataAreas.at(index).value[0] != replyByte(reply, d + i)) {
            dataAreas[index].writePending = 0;
            valueChanged(linkId, job.station, job.regType, a);
        }
        dataAreas[index].value[0] = lowByte((replyByte(reply, d + i / 8) >> (i % 8)) & 1);
    }
}

void PlainDriver::decodeWords(const FRAME_PRO& frame, const QByteArray& reply)
{
    const VARIABLE& job = frame.job;
    for (int k = 0; k < frame.dataLen / 2; ++k) {
        const int a = wrapped(static_cast<qint64>(job.address) + k);
        const int high = replyByte(reply, frame.frameFunc + 2 * k);
        const int low = replyByte(reply, frame.frameFunc + 2 * k + 1);
        const int index = indexOfDataArea(job.station, job.regType, a, dataAreas);
        dataAreas[index].commError = 0;
        const _DATA_ before = dataAreas.at(index);
        if (before.value[0] != low || before.value[1] != high) {
            if (before.writePending == 1 && before.reserved == 0)
                dataAreas[index].writePending = 0;
            wordChange(before.value[0] + 256 * before.value[1], low + 256 * high, job.station,
                       job.regType, a, 0);
        }
        dataAreas[index].value[0] = lowByte(low);
        dataAreas[index].value[1] = lowByte(high);
    }
}

void PlainDriver::decodeDoubleWords(const FRAME_PRO& frame, const QByteArray& reply)
{
    const VARIABLE& job = frame.job;
    for (int k = 0; k < frame.dataLen / 4; ++k) {
        const int a = wrapped(static_cast<qint64>(job.address) + k);
        unsigned char b[4];
        unsigned char value[4];
        for (int byte = 0; byte < 4; ++byte) {
            b[byte] = lowByte(replyByte(reply, frame.frameFunc + 4 * k + byte));
            value[3 - byte] = b[byte];
        }
        const int index = indexOfDataArea(job.station, job.regType, a, dataAreas);
        dataAreas[index].commError = 0;
        if (std::memcmp(dataAreas.at(index).value, value, 4) != 0) {
            dataAreas[index].writePending = 0;
            wholeChange(job.station, job.regType, a, 0, 0, 0, 0);
        }
        std::memcpy(dataAreas[index].value, value, 4);
        if (currentKind == 6)
            copyRecipeDoubleWord(k, b);
    }
}

bool PlainDriver::storeInBuffer(int offset, int word)
{
    if (recipeBuffer == nullptr || offset < 0)
        return false;
    recipeBuffer[offset] = static_cast<unsigned short>(word);
    return true;
}

void PlainDriver::copyRecipeDoubleWord(int k, const unsigned char* b)
{
    if (rcpIndex >= rcpVarsA.size())
        return;
    const int o = rcpVarsA.at(rcpIndex).bufOffset + 2 * k;
    const bool hasLow = storeInBuffer(o, b[2] * 256 + b[3]);
    const bool hasHigh = storeInBuffer(o + 1, b[0] * 256 + b[1]);
    if (hasLow)
        valueChanged(0, -1, QString::fromLatin1("RWI"), o);
    if (hasHigh)
        valueChanged(0, -1, QString::fromLatin1("RWI"), o + 1);
}

void PlainDriver::copyRecipeWords(const FRAME_PRO& frame, const QByteArray& reply, int first,
                                  int end)
{
    const int d = frame.frameFunc;
    for (int j = first; j < end; ++j) {
        const qint64 p = static_cast<qint64>(rcpVarsA.at(j).address) - rcpVarsA.at(first).address;
        const int high = replyByte(reply, wrapped(d + 2 * p));
        const int low = replyByte(reply, wrapped(d + 2 * p + 1));
        const int o = rcpVarsA.at(j).bufOffset;
        if (storeInBuffer(o, high * 256 + low))
            valueChanged(0, -1, QString::fromLatin1("RWI"), o);
    }
}
