#ifndef KX_KXHOST_COMMANDS_PROMPT_WRITER_H
#define KX_KXHOST_COMMANDS_PROMPT_WRITER_H

#include "panel/session/session.h"

namespace kx
{

/// Writes assignments as they are typed, and tells what became of them.
class PromptWriter : public QObject
{
    Q_OBJECT

public:
    /// @param station of assignments that name none
    PromptWriter(Session* session, int station);

    /// Says in message() why when the assignment is refused; else writes it.
    void take(const QString& line);

signals:
    void message(const QString& text);

private:
    bool isRefused(const Assignment& assignment, QString* reason) const;
    void onExchange(const ExchangeRecord& record);

    Session* m_session;
    int m_station;
    bool m_hasFailed = false; ///< a piece of the last assignment has
};

} // namespace kx

#endif
