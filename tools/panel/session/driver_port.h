#ifndef KX_PANEL_SESSION_DRIVER_PORT_H
#define KX_PANEL_SESSION_DRIVER_PORT_H

#include "exchange/driver_lease.h"
#include "exchange/driver_library.h"
#include "panel/session/poll_feed.h"
#include "panel/session/recipe_memory.h"
#include "panel/session/session_events.h"
#include "panel/session/session_settings.h"

#include <QtCore/QVector>

namespace kx
{

/// The driver, with ranges and values in place of records and bytes, and with what a runtime
/// must know of its queues. Each method is a call or two of the driver.
///
/// Requests come out with their true kind: the driver leaves the kind of the job before in
/// the blocks of a recipe, which would be taken for a write of the same registers.
///
/// All methods on one thread, which need not be the one that made the port.
class DriverPort
{
public:
    /// Initialises the driver when it is free; see isHeld().
    /// @param clock tells when polls are due
    DriverPort(const DriverEntryPoints& entryPoints, const SessionSettings& settings,
               const LoopClock* clock);
    /// The driver keeps no pointer into the port.
    ~DriverPort();
    Q_DISABLE_COPY(DriverPort)

    /// False when somebody else has the driver; then nothing else may be called.
    bool isHeld() const { return m_lease.isHeld(); }

    /// What an exchange loop is to call.
    DriverEntryPoints requests() const;

    /// Discards all that waits, the watch list and all cached values.
    void initialise();
    /// Gives up the writes, the one-off read and the recipe that wait or are on their way,
    /// as if nobody had answered; nothing of them is sent any more, and a reply that comes
    /// yet is ignored.
    void giveUpQueued();

    /// The requests to which the driver joins ranges of registers.
    QList<AddressRange> joined(const QList<AddressRange>& ranges);
    /// Replaces what is polled: each range is one request.
    void poll(const QList<PolledRange>& polls);
    PollFeed& polls() { return m_polls; }
    const PollFeed& polls() const { return m_polls; }
    /// One at a time, of one request: the driver drops all when one fails.
    void read(const AddressRange& range);
    /// One at a time, of one request: a write of a range whose write waits would replace it.
    void write(const Assignment& assignment);
    QList<qint64> values(const AddressRange& range) const;
    /// What the station answered to a read of the range, which is the latest request that has
    /// ended. The cache may hold another value, of a write that waits.
    QList<qint64> answeredValues(const AddressRange& range) const;

    /// Whether a write (WRITE_JOB) or a one-off read (CONDITION_READ_JOB) is in the driver: then
    /// no other of its kind may follow.
    bool hasQueued(JobKind kind) const
    {
        return kind == WRITE_JOB ? m_write.isQueued : m_read.isQueued;
    }
    bool hasQueued() const { return m_write.isQueued || m_read.isQueued; }
    /// Gives that one up, at once when it is on its way, else before it would be sent.
    void drop(JobKind kind);

    /// The changes reported since the last call, without their values.
    QList<ValueChange> takeChanges();

    /// Requests the transfer of variables of this link, of which there is one at least.
    void startRecipe(RecipeDirection direction, QVector<_RCP_VAR_PRO> variables);
    /// Whether blocks are left to transfer.
    bool isRecipePending() { return m_recipe.requested() != NO_JOB; }
    /// Whether a block was handed out and has not ended.
    bool isRecipeOut() const;
    /// Gives the transfer up, as giveUpQueued(); the next one starts at its first block.
    void withdrawRecipe();
    RecipeMemory& recipeMemory() { return m_recipe; }
    const RecipeMemory& recipeMemory() const { return m_recipe; }

private:
    /// One write, or one read, that the driver has.
    struct Slot {
        bool isQueued = false;
        bool isUnwanted = false;
    };

    static int getSendFrame(FRAME_PRO* out);
    static int dealRcvFrame(QByteArray& reply, QString& errorText);
    static void valueChange(int link, int station, QString name, int address);

    int nextRequest(FRAME_PRO* out);
    int settle(QByteArray& reply, QString& errorText);
    void giveUpRequest();
    Slot& slotOf(int kind);

    DriverLease m_lease;
    DriverEntryPoints m_driver;
    SessionSettings m_settings;
    RecipeMemory m_recipe;
    QByteArray m_parameters;
    int m_status = 0;
    QList<ValueChange> m_changes;
    bool m_isOut = false;    ///< a request was handed out and has not ended
    int m_outKind = NO_JOB;  ///< of that request
    AddressRange m_out;      ///< of that request
    AddressRange m_changing; ///< what is read or written with the values that change
    PollFeed m_polls;
    bool m_isPolling = true; ///< polls are offered to the driver
    QByteArray m_reply;      ///< to the latest request that has ended
    Slot m_write;
    Slot m_read;
    int m_blocksDone = 0; ///< of the recipe: where the driver goes on
};

} // namespace kx

#endif
