#include "kxhost/scan/line_search.h"

namespace kx
{

namespace
{

const QList<int> BAUDS = {9600, 19200, 38400, 57600, 115200, 4800, 2400, 1200};
const QList<char> PARITIES = {'N', 'E', 'O'};

const int FIRST_ROUND = 1; // stations
const int SECOND_ROUND = 9;

QList<QList<int>> roundsOf(const QList<int>& stations)
{
    QList<QList<int>> rounds;
    for (const QList<int>& round :
         {stations.mid(0, FIRST_ROUND), stations.mid(FIRST_ROUND, SECOND_ROUND),
          stations.mid(FIRST_ROUND + SECOND_ROUND)}) {
        if (!round.isEmpty())
            rounds << round;
    }
    return rounds;
}

bool areSame(const LineFormat& one, const LineFormat& other)
{
    return one.baud == other.baud && one.parity == other.parity;
}

} // namespace

QList<LineFormat> formatsToTry(const LineFormat& given, bool anyBaud, bool anyParity)
{
    QList<LineFormat> formats;
    for (const char parity : anyParity ? PARITIES : QList<char>{given.parity}) {
        for (const int baud : anyBaud ? BAUDS : QList<int>{given.baud})
            formats << LineFormat{baud, parity};
    }
    return formats;
}

QList<SearchStep> searchSteps(const QList<LineFormat>& formats, const QList<int>& stations)
{
    if (formats.size() == 1)
        return {{formats.first(), stations}};
    QList<SearchStep> steps;
    for (const QList<int>& round : roundsOf(stations)) {
        for (const LineFormat& format : formats)
            steps << SearchStep{format, round};
    }
    return steps;
}

QList<int> stationsLeft(const QList<SearchStep>& steps, const LineFormat& format,
                        const QList<int>& stations)
{
    QList<int> left = stations;
    for (const SearchStep& step : steps) {
        if (!areSame(step.format, format))
            continue;
        for (const int station : step.stations)
            left.removeAll(station);
    }
    return left;
}

} // namespace kx
