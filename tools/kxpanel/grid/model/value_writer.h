#ifndef KX_KXPANEL_GRID_MODEL_VALUE_WRITER_H
#define KX_KXPANEL_GRID_MODEL_VALUE_WRITER_H

#include "kxpanel/machine/machine.h"
#include "panel/files/tag_assignment.h"

#include <QtCore/QHash>
#include <QtCore/QQueue>

#include <atomic>
#include <memory>

namespace kxpanel
{

class TagList;

/// What became of the latest write of a value.
///
///     none --write()--> Waiting --its turn--> Writing --jobEnded()--> Confirmed or Failed
///
/// write() of the same value begins anew; follow() leads back to none.
struct ValueWrite {
    enum Phase { Waiting, Writing, Confirmed, Failed };

    Phase phase = Waiting;
    kx::Assignment assignment;
    QString name;           ///< of the value, as shown when the write was asked for
    QString text;           ///< as the value will be shown
    QString reason;         ///< why it failed, one line
    bool mayBeDone = false; ///< it failed, and the controller may have it all the same
    qint64 endedAt = 0;     ///< milliseconds since 1970 in UTC, when it was confirmed or failed
};

/// Writes values one after the other, in the order in which they were asked for: the bits of a word
/// that are written at once would undo each other.
class ValueWriter : public QObject
{
    Q_OBJECT

public:
    /// Machine::startJob(), or what stands in for it.
    using JobStarter = std::function<void(int ticket, const JobMaker& make)>;

    /// The list outlives the writer.
    ValueWriter(const TagList* tags, const JobStarter& startJob, QObject* parent = nullptr);

    /// By which writes end, milliseconds since 1970 in UTC: that of readings. Else the system's.
    void setClock(const std::function<qint64()>& milliseconds) { m_now = milliseconds; }

    /// Checks a typed value of a tag of one value, without sending anything.
    /// @return false and the reason in `*fault`, in one line with the tag's name in front
    static bool parse(const WatchedValue& value, const QString& typed,
                      kx::TagAssignment* assignment, QString* fault);
    /// Why no value of the tag can be written; empty when it can.
    static QString readOnlyReason(const kx::Tag& tag);

    /// Asks for a write, as of parse(). One of the same value that waits is replaced by it.
    void write(int number, const kx::TagAssignment& assignment);
    /// Null when there was none.
    const ValueWrite* writeOf(int number) const;
    /// How many wait for their turn.
    int waiting() const { return static_cast<int>(m_waiting.size()); }
    /// Sends none of those that wait; they have failed.
    void callOff();
    /// Forgets writes of values that have gone or have other registers now. Those that wait are not
    /// sent and have failed; the one under way goes on, and its end is told.
    void follow();

public slots:
    /// As Machine::clockSet(): else what is read later could seem to be older than a write.
    void onClockSet(qint64 by);
    void onJobEnded(int ticket, const kx::Failure& failure);

signals:
    /// writeOf() is another.
    void changed(int number);
    /// A write has ended, well or not, also one of a value that has gone.
    void ended(const kxpanel::ValueWrite& write);
    /// None is under way and none waits any more.
    /// @param written how many have succeeded since that was so before
    /// @param failed the others
    void allEnded(int written, const QList<kxpanel::ValueWrite>& failed);

private:
    void writeNext();
    void forget(int number);
    void tellEnd(const ValueWrite& write);
    void tellAllEnded();

    const TagList* m_tags;
    JobStarter m_startJob;
    std::function<qint64()> m_now;
    QQueue<int> m_waiting;                         ///< numbers of values
    QHash<int, ValueWrite> m_writes;               ///< by number of the value
    int m_ticket = 0;                              ///< of the write under way; 0: none
    int m_writing = 0;                             ///< number of its value
    ValueWrite m_underWay;                         ///< the write itself, which outlives its value
    std::shared_ptr<std::atomic<bool>> m_hasBegun; ///< its job was made, in the machine's thread
    int m_written = 0;                             ///< since none was under way
    QList<ValueWrite> m_failed;                    ///< the same
};

} // namespace kxpanel

#endif
