#ifndef KX_KXPANEL_LINE_LIMIT_ANSWER_TIMES_H
#define KX_KXPANEL_LINE_LIMIT_ANSWER_TIMES_H

#include "kxpanel/line/limit/answer_pace.h"

#include <deque>
#include <map>
#include <vector>

namespace kxpanel
{

/// How long stations took for their latest answers, from which it is foreseen what others take.
class AnswerTimes
{
public:
    /// @param bytes of the request and its reply
    /// @param time as Exchange::turnaround
    void add(int station, int bytes, qint64 time);
    /// Another line.
    void clear() { m_stations.clear(); }

    /// @param line serial line, be it behind a gateway
    AnswerPace pace(const kx::LineTiming& line, bool isNetwork) const;

private:
    struct Answer {
        int bytes;
        qint64 time; ///< microseconds
    };

    struct Answers {
        std::deque<qint64> latest; ///< microseconds
        qint64 last = 0;           ///< the station's, counted from 1
    };

    struct Station {
        std::deque<Answer> latest;
        qint64 count = 0;               ///< of its answers
        std::map<int, Answers> byBytes; ///< the same, by length; none that comes no more
    };

    struct Length {
        int bytes;
        double time; ///< usual one
    };

    static qint64 eachOf(const Station& station, double perByte);
    static std::vector<Length> lengthsOf(const Station& station);
    double perByte(const kx::LineTiming& line) const;

    std::map<int, Station> m_stations;
};

} // namespace kxpanel

#endif
