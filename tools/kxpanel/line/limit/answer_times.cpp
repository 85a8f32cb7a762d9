#include "kxpanel/line/limit/answer_times.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

namespace kxpanel
{

namespace
{

const size_t LATEST = 50; // answers, whatever their length
const size_t LATEST_OF_A_LENGTH = 9;
const qint64 STAYS = 500;     // answers of the station, without one of the length
const int LENGTHS_APART = 16; // bytes; from less the time of one cannot be told

template <typename Numbers>
auto medianOf(Numbers numbers)
{
    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

template <typename Value>
void pushLatest(std::deque<Value>* latest, const Value& value, size_t most)
{
    latest->push_back(value);
    if (latest->size() > most)
        latest->pop_front();
}

} // namespace

void AnswerTimes::add(int station, int bytes, qint64 time)
{
    Station& answered = m_stations[station];
    pushLatest(&answered.latest, {bytes, time}, LATEST);
    Answers& ofLength = answered.byBytes[bytes];
    pushLatest(&ofLength.latest, time, LATEST_OF_A_LENGTH);
    ofLength.last = ++answered.count;
    for (auto it = answered.byBytes.begin(); it != answered.byBytes.end();)
        it = answered.count - it->second.last < STAYS ? std::next(it) : answered.byBytes.erase(it);
}

AnswerPace AnswerTimes::pace(const kx::LineTiming& line, bool isNetwork) const
{
    AnswerPace pace;
    pace.line = line;
    pace.isNetwork = isNetwork;
    for (const auto& [number, station] : m_stations)
        pace.turnarounds.insert(number, eachOf(station, 0));
    if (!isNetwork)
        return pace;
    pace.perByte = perByte(line);
    for (const auto& [number, station] : m_stations)
        pace.each.insert(number, eachOf(station, pace.perByte));
    return pace;
}

/// On average, since a cycle takes what its answers take together; but for the longest and the
/// shortest, so that one that is late changes nothing.
qint64 AnswerTimes::eachOf(const Station& station, double perByte)
{
    std::vector<double> rests;
    for (const Answer& answer : station.latest)
        rests.push_back(static_cast<double>(answer.time) - perByte * answer.bytes);
    std::sort(rests.begin(), rests.end());
    const std::ptrdiff_t leftOut = rests.size() > 2 ? 1 : 0;
    const double sum = std::accumulate(rests.begin() + leftOut, rests.end() - leftOut, 0.0);
    const auto count = static_cast<double>(rests.size()) - 2.0 * static_cast<double>(leftOut);
    return std::max(std::llround(sum / count), 0LL);
}

/// By what answers of other lengths took longer or less. When all are alike, as the serial line has
/// it that the gateway is said to have, unless they came sooner: then there is none.
double AnswerTimes::perByte(const kx::LineTiming& line) const
{
    const double character = static_cast<double>(line.transmissionTime(1000)) / 1000;
    std::vector<double> slopes;
    bool isSooner = false;
    for (const auto& [number, station] : m_stations) {
        const std::vector<Length> lengths = lengthsOf(station);
        for (size_t i = 0; i < lengths.size(); ++i) {
            isSooner = isSooner || lengths[i].time < character * lengths[i].bytes;
            for (size_t j = i + 1; j < lengths.size(); ++j) {
                const int apart = lengths[j].bytes - lengths[i].bytes;
                if (apart >= LENGTHS_APART)
                    slopes.push_back((lengths[j].time - lengths[i].time) / apart);
            }
        }
    }
    if (!slopes.empty())
        return std::max(medianOf(slopes), 0.0);
    return isSooner ? 0 : character;
}

/// Rising.
std::vector<AnswerTimes::Length> AnswerTimes::lengthsOf(const Station& station)
{
    std::vector<Length> lengths;
    for (const auto& [bytes, answers] : station.byBytes)
        lengths.push_back({bytes, static_cast<double>(medianOf(answers.latest))});
    return lengths;
}

} // namespace kxpanel
