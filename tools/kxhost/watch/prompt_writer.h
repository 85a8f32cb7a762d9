#ifndef KX_KXHOST_WATCH_PROMPT_WRITER_H
#define KX_KXHOST_WATCH_PROMPT_WRITER_H

#include "panel/files/tag_assignment.h"
#include "panel/jobs/write_job.h"

namespace kx
{

/// Writes assignments as they are typed, one after the other, and tells what became of them.
class PromptWriter : public QObject
{
    Q_OBJECT

public:
    /// @param station of assignments that name none
    /// @param tags whose names may stand for addresses
    /// @param order of values that name none, see takeOrder()
    PromptWriter(Session* session, int station, const QList<Tag>& tags = {},
                 const ValueFormat& order = ValueFormat());

    /// Says in message() why when the assignment is refused; else writes it.
    void take(const QString& line);

signals:
    void message(const QString& text);

private:
    bool parse(const QString& line, TagAssignment* typed, QString* error) const;
    void writeNext();
    void onOutcome(const WriteOutcome& outcome);

    Session* m_session;
    int m_station;
    QList<Tag> m_tags;
    ValueFormat m_order;
    QList<TagAssignment> m_waiting; ///< the first is being written
};

} // namespace kx

#endif
