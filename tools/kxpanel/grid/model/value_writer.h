#ifndef KX_KXPANEL_GRID_MODEL_VALUE_WRITER_H
#define KX_KXPANEL_GRID_MODEL_VALUE_WRITER_H

#include "kxpanel/machine/machine.h"
#include "panel/files/tag_assignment.h"

#include <QtCore/QHash>
#include <QtCore/QQueue>

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
    QString text;       ///< as the value will be shown
    QString reason;     ///< why it failed, one line
    qint64 endedAt = 0; ///< milliseconds since 1970 in UTC, when it was confirmed or failed
};

/// Writes values one after the other, in the order in which they were asked for: the bits of a word
/// that are written at once would undo each other.
class ValueWriter : public QObject
{
    Q_OBJECT

public:
    /// Machine::startJob(), or what stands in for it.
    using JobStarter = std::function<void(int ticket, const JobMaker& make)>;

    explicit ValueWriter(const JobStarter& startJob, QObject* parent = nullptr);

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
    /// Forgets writes of values that have gone or have other registers now; those that wait are not
    /// sent.
    void follow(const TagList& tags);

public slots:
    void onJobEnded(int ticket, const kx::Failure& failure);

signals:
    /// writeOf() is another.
    void changed(int number);
    /// A write has ended, well or not.
    void ended(int number, const kxpanel::ValueWrite& write);

private:
    void writeNext();

    JobStarter m_startJob;
    QQueue<int> m_waiting;           ///< numbers of values
    QHash<int, ValueWrite> m_writes; ///< by number of the value
    int m_ticket = 0;                ///< of the write under way; 0: none
    int m_writing = 0;               ///< number of its value
};

} // namespace kxpanel

#endif
