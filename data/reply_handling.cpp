#include "data/reply_handling.h"

#include "data/read_values.h"
#include "data/write_completion.h"
#include "driver/tarvelan.h"
#include "modbus/frame_list.h"
#include "modbus/reply_check.h"
#include "modbus/send_schedule.h"

namespace
{

const int WRITE_FAILED = 0;
const int WRITE_CONFIRMED = 1;

int check(const QByteArray& reply)
{
    // The check reads only; constData() keeps the runtime's bytes from being copied.
    const char* const bytes = reply.constData();
    return check_rcv_data(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes)),
                          static_cast<int>(reply.size()));
}

void settleWrite(const VARIABLE& job, int success)
{
    if (driver.currentKind == WRITE_JOB)
        _write_FailOrSuc(job.station, job.regType, job.address, job.count, success);
}

int retireRequest()
{
    if (!driver.frameList.isEmpty())
        dropFirstFrame();
    if (driver.frameList.isEmpty())
        dealListWhenFinish();
    driver.errorCount = 0;
    return REPLY_ACCEPTED;
}

int acceptData(const QByteArray& reply)
{
    driver.commFailed = 0;
    const ReadRequest request(driver.frameList.first());
    // Shared, so that it stays whole whatever the runtime does when called.
    const QByteArray bytes(reply); // NOLINT(performance-unnecessary-copy-initialization)
    storeReadValues(request, ReplyBytes(bytes));
    return retireRequest();
}

int acceptAcknowledgement()
{
    settleWrite(driver.frameList.first().job, WRITE_CONFIRMED);
    driver.commFailed = 0;
    return retireRequest();
}

QString failureText(int replyLength, const VARIABLE& job)
{
    return QString::fromLatin1("%1,%2,%3,").arg(replyLength).arg(job.station).arg(job.address)
           + job.regType;
}

int rejectReply(int replyLength, QString& errorText)
{
    ++driver.errorCount;
    if (driver.errorCount < driver.retryLimit)
        return REPLY_RETRY;

    driver.commFailed = 1;
    const ReadRequest request(driver.frameList.first());
    const QString text = failureText(replyLength, driver.frameList.first().job);
    settleWrite(driver.frameList.first().job, WRITE_FAILED);
    errorText = text;
    markUnanswered(request);
    driver.frameList.clear();
    driver.errorCount = 0;
    dealListWhenFinish();
    return REPLY_FAILED;
}

} // namespace

int intf_dealRcvFrame(QByteArray& reply, QString& errorText)
{
    if (!errorText.isEmpty() || errorText.isNull())
        errorText = QString::fromLatin1("");
    if (driver.frameList.isEmpty())
        return REPLY_IGNORED;
    switch (check(reply)) {
    case REPLY_WITH_DATA:
        return acceptData(reply);
    case REPLY_ACKNOWLEDGES:
        return acceptAcknowledgement();
    default:
        return rejectReply(static_cast<int>(reply.size()), errorText);
    }
}
