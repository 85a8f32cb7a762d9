#ifndef KX_PANEL_SESSION_SESSION_H
#define KX_PANEL_SESSION_SESSION_H

#include "addresses/export.h"
#include "exchange/driver_library.h"
#include "exchange/lines/line.h"
#include "exchange/loop_clock.h"
#include "exchange/replies/statistics.h"
#include "panel/plan/read_rules.h"
#include "panel/polling/polled_range.h"
#include "panel/recipe/recipe_layout.h"
#include "panel/session/session_events.h"
#include "panel/session/session_settings.h"

#include <memory>

namespace kx
{

struct PollEvents;

/// The driver at work on one line: polls a watch list, reads and writes on request,
/// transfers recipes, and tells what happens.
///
/// A process has one driver, so it has one session at a time. A session has no thread of its
/// own: make it on any thread, or move it before start(), with its line; then call it there
/// only. It needs that thread's event loop. A slot may call any method, but must delete a
/// session with deleteLater().
///
/// Every read, write and recipe has a handle and ends exactly once, in a signal that names it:
/// when it is done, when it failed for good, when it was cancelled, and when stop(),
/// initialise(), the destructor or a line lost for good ends all. What has ended is never
/// sent afterwards; what had been sent before may have been carried out.
class KXRUNTIME_EXPORT Session : public QObject
{
    Q_OBJECT

public:
    /// Initialises the driver for a new session.
    /// @param entryPoints of loadDriver()
    /// @param line stays the caller's and must outlive the session
    /// @param clock stays the caller's and must outlive the session; null: the system's
    /// @return null and one line in `*error` when another session, or a plan that is being
    ///         asked for, has the driver
    static std::unique_ptr<Session> create(const DriverEntryPoints& entryPoints, Line* line,
                                           const SessionSettings& settings, QString* error,
                                           LoopClock* clock = nullptr);
    /// As stop(); then the driver is free for another session.
    ~Session() override;

    /// Begins to poll. The line must be open, or be opening again by itself.
    void start();
    /// Ends polling and all reads, writes and recipes (FailureKind::SessionEnded). The watch
    /// list and the values stay, and start() goes on.
    void stop();
    bool isRunning() const;
    /// Discards the watch list and all values, and ends all reads, writes and recipes
    /// (FailureKind::DriverInitialised). Polling goes on, once there is a new watch list.
    void initialise();

    /// Replaces what is polled. Ranges must name their stations, 1 to 247. They are joined to few
    /// requests and cut where one cannot hold them, see SessionSettings, but never within a value
    /// of AddressRange::width registers; addresses between may be read along. A range that does not
    /// exist is left out, and failed() tells so later.
    ///
    /// Ranges without an interval take turns, those with one come when they are due. A station
    /// that does not answer is left out, but for a try now and then.
    /// @return how many requests read all
    int watch(const QList<PolledRange>& ranges);
    /// The same, all without an interval.
    int watch(const QList<AddressRange>& ranges);
    /// Times that a range with an interval was not asked for within it.
    qint64 missedPolls() const;
    /// The values that the driver holds, one per address: 0 or 1, 0..65535, or 0..4294967295;
    /// 0 for what was never read. A value written counts once no other write waits before it, until
    /// the write fails. Each address is as the latest request about it left it: of a value of
    /// several registers, ValueChange::request tells whether they are of one reply.
    /// None for a range that does not exist.
    QList<qint64> values(const AddressRange& range) const;
    /// What the station answered to the latest request, an accepted read or poll of this range:
    /// also of addresses for which values() gives one that is being written. Within exchanged()
    /// alone.
    QList<qint64> answeredValues(const AddressRange& range) const;

    /// Reads a range once, ahead of what is polled; readFinished() tells its end. Reads are
    /// done in their order. The range must be of one station and fit one request, see readPieces();
    /// a ReadJob cuts a longer one.
    /// @return the read's handle, 1 or more; 0 and no end while the session is being deleted
    int read(const AddressRange& range);
    /// Writes values, ahead of all reads; writeFinished() tells whether the station confirmed
    /// them. Writes are done in their order, each of them: none replaces another. It must fit
    /// one request, see writePieces(); a WriteJob cuts a longer one.
    /// @return the write's handle, as of read()
    int write(const Assignment& assignment);

    /// The words that the downloads asked for from now on send; those that wait keep theirs.
    /// A variable names its first word by _RCP_VAR_PRO::bufOffset. A RecipeJob loads its own.
    /// @return false, and nothing changes, when there are more than RECIPE_BUFFER_WORDS
    bool loadRecipe(const std::vector<quint16>& words);
    /// A word that an upload has brought: in recipeFinished(), and until another transfer
    /// begins. 0 outside the buffer.
    quint16 recipeWord(int offset) const;
    /// The values of the block that an upload has brought, one per address: in
    /// recipeBlockDone(). Coils are found here alone, since they never reach the words.
    const QList<qint64>& uploadedValues() const { return m_uploaded; }
    /// Transfers a recipe, pass after pass, ahead of all else; recipeFinished() tells its end.
    /// Recipes are done in their order. While one is under way nothing else is sent.
    /// @param passes as of layOutRecipe(): each is a recipe of its own for the driver
    /// @return the recipe's handle, as of read()
    int transferRecipe(RecipeDirection direction, const QList<RecipePass>& passes);

    /// Ends a read, write or recipe (FailureKind::Aborted with `reason` as its text) before
    /// this returns. A station may still act on a request that is on its way; it is not
    /// repeated, and its reply is ignored.
    /// @return false when it had ended before
    bool cancel(int handle, const QString& reason);

    const SessionSettings& settings() const { return m_settings; }
    const Line* line() const { return m_line; }
    const Statistics& statistics() const;
    /// Milliseconds since the first start(); 0 before.
    qint64 elapsed() const;

signals:
    /// The first of the signals about a request; the others follow in the order below. The
    /// record's `job.kind` is the request's true JobKind, also of a recipe's block.
    void exchanged(const kx::ExchangeRecord& record);
    /// Sent after the driver stored the new value. Bits may be reported without a change, and
    /// addresses between watched ones, too.
    void valueChanged(const kx::ValueChange& change);
    void readFinished(int handle, const kx::ReadEnd& end);
    void writeFinished(int handle, const kx::WriteEnd& end);
    /// A station has answered this block of the recipe.
    void recipeBlockDone(int handle, const kx::AddressRange& block);
    void recipeFinished(int handle, const kx::RecipeEnd& end);
    /// A polled request failed for good; it comes again in the next cycle. Or a watched range
    /// does not exist (FailureKind::OutOfRange), and is not polled.
    void failed(const kx::Failure& failure);
    /// A station did not answer a poll, and is left out until it answers a try.
    void stationSilenced(int station);
    /// A station refused a poll, and is asked for less at once from now on, or for no addresses
    /// between those that are watched.
    void requestsShortened(int station, const kx::StationRules& rules);
    /// All ranges of the shortest interval were asked for once more, or left out.
    void cycleFinished();
    /// The driver has nothing to send; each time it is asked in vain.
    void idle();
    /// The line is lost for good (FailureKind::LineLost) and the session has stopped, after the
    /// ends of all reads, writes and recipes. Open the line and start() to go on.
    void lineFailed(const kx::Failure& failure);

private:
    struct Parts; // what a program that includes this needs not know

    /// The end of a read, a write or a recipe without an exchange of its own.
    struct Ended {
        int handle;    ///< 0: of a watched range
        JobKind kind;  ///< RECIPE_WRITE_JOB: a recipe in either direction
        RecipeEnd end; ///< of all kinds
    };

    Session(const DriverEntryPoints& entryPoints, Line* line, const SessionSettings& settings,
            LoopClock* clock);

    int newHandle() { return m_isGone ? 0 : ++m_lastHandle; }
    /// Else tells the end later.
    bool accepts(int handle, JobKind kind, Failure refusal);
    int issued(int handle);
    /// Hands what is next over to the driver.
    void handOver();
    void onExchange(const ExchangeRecord& record);
    void onIdle();
    void onLineLost(const QString& error);
    void tellChanges();
    void tellPoll(const ExchangeRecord& record, const PollEvents& events);
    /// Ends all that waits, here and in the driver.
    void endAll(const Failure& failure);
    void tellLater(const Ended& ended);
    void tellWaitingEnds();
    void tell(const Ended& ended);

    std::unique_ptr<Parts> m_parts;
    Line* m_line;
    SessionSettings m_settings;
    QList<Ended> m_toTell;    ///< from the event loop, when their callers know the handles
    QList<int> m_issuing;     ///< handles that their callers do not know yet
    QList<qint64> m_uploaded; ///< of the latest block
    int m_lastHandle = 0;
    bool m_isGone = false;
    /// What an exchange has brought: the words of an upload must not be replaced meanwhile.
    bool m_isTelling = false;
    bool m_wasAskedAgain = false; ///< the driver, since its latest request
};

} // namespace kx

#endif
