#include "panel/session/driver_port.h"

#include "addresses/watch_pieces.h"
#include "exchange/driver_keys.h"
#include "panel/session/driver_values.h"
#include "panel/session/value_limit.h"
#include "registers/register_types.h"

#include <utility>

namespace kx
{

namespace
{

DriverPort* current = nullptr; // the holder of the driver, for its plain C functions

bool isRecipe(int kind)
{
    return kind == RECIPE_WRITE_JOB || kind == RECIPE_READ_JOB;
}

} // namespace

DriverPort::DriverPort(const DriverEntryPoints& entryPoints, const SessionSettings& settings,
                       const LoopClock* clock)
    : m_driver(entryPoints),
      m_settings(settings),
      m_polls(entryPoints.object, clock, settings.exchange.replyTimeout)
{
    if (!isHeld())
        return;
    current = this;
    m_driver.setAddrValueChangeCallBack(valueChange);
    initialise();
}

DriverPort::~DriverPort()
{
    if (!isHeld())
        return;
    giveUpQueued();
    m_driver.initProperty(nullptr, nullptr, nullptr, &m_status, "", nullptr);
    current = nullptr;
}

DriverEntryPoints DriverPort::requests() const
{
    DriverEntryPoints entryPoints = m_driver;
    entryPoints.getSendFrame = getSendFrame;
    entryPoints.dealRcvFrame = dealRcvFrame;
    return entryPoints;
}

void DriverPort::initialise()
{
    giveUpQueued();
    m_parameters = QStringLiteral("%1#%2#0#%3#%4")
                       .arg(m_settings.link)
                       .arg(m_settings.writeLocalOnly ? 1 : 0)
                       .arg(m_settings.retries)
                       .arg(m_settings.maxWords)
                       .toLatin1();
    m_driver.initProperty(m_recipe.sharedBlock(), nullptr, m_recipe.buffer(), &m_status,
                          m_parameters.constData(), m_recipe.mutex());
    m_isOut = false;
    m_write = Slot();
    m_read = Slot();
    m_polls.replace({});
    m_changes.clear();
}

void DriverPort::giveUpQueued()
{
    withdrawRecipe();
    m_isPolling = false;
    // After five writes in a row without a polled read the driver says once that it has none.
    for (int refusals = 0; refusals < 2 && hasQueued();) {
        FRAME_PRO request = FRAME_PRO();
        const bool hasRequest = nextRequest(&request) == 1;
        refusals = hasRequest ? 0 : refusals + 1;
        if (hasRequest)
            giveUpRequest();
    }
    m_isPolling = true;
}

void DriverPort::drop(JobKind kind)
{
    if (m_isOut && m_outKind == kind)
        giveUpRequest();
    else
        slotOf(kind).isUnwanted = slotOf(kind).isQueued;
}

DriverPort::Slot& DriverPort::slotOf(int kind)
{
    return kind == WRITE_JOB ? m_write : m_read;
}

/// Without a reply the driver repeats a request up to its limit and then drops it.
void DriverPort::giveUpRequest()
{
    QByteArray noReply;
    QString errorText;
    while (settle(noReply, errorText) == REPLY_RETRY) {
    }
}

QList<AddressRange> DriverPort::joined(const QList<AddressRange>& ranges)
{
    QList<KEY_ADDRESS> keys;
    for (const AddressRange& range : watchPieces(ranges, m_settings.maxWords))
        keys << keyOf(range);
    m_driver.addrMerge(keys);
    QList<AddressRange> requests;
    for (const VARIABLE& job : std::as_const(m_driver.object->readList))
        requests << rangeOf(job);
    return requests;
}

void DriverPort::poll(const QList<PolledRange>& polls)
{
    QList<KEY_ADDRESS> keys;
    for (const PolledRange& poll : polls)
        keys << keyOf(poll.range);
    m_driver.addrMerge(keys);
    m_polls.replace(polls);
}

void DriverPort::read(const AddressRange& range)
{
    const ValueLimit limit(m_driver.object, range);
    KEY_ADDRESS key = keyOf(range);
    m_driver.addConditionRead(key, CONDITION_READ_JOB);
    m_read = {true, false};
}

void DriverPort::write(const Assignment& assignment)
{
    const AddressRange& range = assignment.range;
    QByteArray bytes = driverBytes(assignment);
    m_write = {!m_settings.writeLocalOnly, false};
    m_changing = range;
    const ValueLimit limit(m_driver.object, range);
    m_driver.setData(range.station, QString::fromLatin1(range.type->name), range.address,
                     range.driverCount(), reinterpret_cast<unsigned char*>(bytes.data()),
                     WRITE_JOB);
}

QList<qint64> DriverPort::values(const AddressRange& range) const
{
    QByteArray bytes(bytesOf(range), '\0');
    m_driver.getData(range.station, QString::fromLatin1(range.type->name), range.address,
                     range.driverCount(), reinterpret_cast<unsigned char*>(bytes.data()));
    return valuesOf(range, bytes);
}

QList<qint64> DriverPort::answeredValues(const AddressRange& range) const
{
    return valuesOfReply(range, m_reply);
}

QList<ValueChange> DriverPort::takeChanges()
{
    QList<ValueChange> changes;
    changes.swap(m_changes);
    return changes;
}

bool DriverPort::isRecipeOut() const
{
    return m_isOut && isRecipe(m_outKind);
}

void DriverPort::startRecipe(RecipeDirection direction, QVector<_RCP_VAR_PRO> variables)
{
    for (_RCP_VAR_PRO& variable : variables)
        variable.rcpId = m_settings.link;
    {
        const RecipeLimit limit(m_driver.object);
        m_driver.setRcpAddress(variables);
    }
    m_blocksDone = 0;
    m_recipe.raise(direction == RecipeDirection::Download ? RECIPE_WRITE_JOB : RECIPE_READ_JOB);
}

/// The driver goes back to the first block only when a transfer has ended. So the block that is
/// on its way is given up; between two blocks the next one is asked for as a read, which does no
/// harm, and is given up unsent.
void DriverPort::withdrawRecipe()
{
    if (!isRecipeOut() && m_blocksDone > 0) {
        m_recipe.raise(RECIPE_READ_JOB);
        FRAME_PRO request = FRAME_PRO();
        nextRequest(&request);
    }
    if (isRecipeOut())
        giveUpRequest();
    m_recipe.lower();
}

int DriverPort::nextRequest(FRAME_PRO* out)
{
    const JobKind recipe = m_recipe.requested();
    const bool isNew = !m_isOut;
    if (isNew && m_isPolling)
        m_polls.offer();
    else if (isNew)
        m_polls.withhold();
    if (m_driver.getSendFrame(out) != 1)
        return 0;
    // A transfer that has nothing to send ends in here, and another request comes out.
    if (isNew)
        m_outKind = recipe != NO_JOB && isRecipePending() ? recipe : out->job.kind;
    if (isNew && m_outKind == CYCLIC_READ_JOB)
        m_polls.begin();
    m_out = rangeOf(out->job);
    m_isOut = true;
    out->job.kind = m_outKind;
    const bool isOfSlot = m_outKind == WRITE_JOB || m_outKind == CONDITION_READ_JOB;
    if (!isOfSlot || !slotOf(m_outKind).isUnwanted)
        return 1;
    giveUpRequest();
    return nextRequest(out);
}

int DriverPort::settle(QByteArray& reply, QString& errorText)
{
    m_changing = m_out;
    int result = m_driver.dealRcvFrame(reply, errorText);
    QByteArray noReply;
    while (result == REPLY_RETRY && m_outKind == CYCLIC_READ_JOB && m_polls.isTry())
        result = m_driver.dealRcvFrame(noReply, errorText);
    if (result == REPLY_RETRY || !m_isOut)
        return result;
    m_isOut = false;
    m_reply = reply;
    if (m_outKind == WRITE_JOB || m_outKind == CONDITION_READ_JOB)
        slotOf(m_outKind) = Slot();
    if (isRecipe(m_outKind))
        m_blocksDone = isRecipePending() ? m_blocksDone + 1 : 0;
    return result;
}

int DriverPort::getSendFrame(FRAME_PRO* out)
{
    return current->nextRequest(out);
}

int DriverPort::dealRcvFrame(QByteArray& reply, QString& errorText)
{
    return current->settle(reply, errorText);
}

void DriverPort::valueChange(int link, int station, QString name, int address)
{
    // Ends of one-off reads and words of recipes come here, too, under names of no type.
    const RegisterType* const type = current ? findRegisterType(name) : nullptr;
    if (type)
        current->m_changes.append({{type, address, 1, station}, 0, link, current->m_changing});
}

} // namespace kx
