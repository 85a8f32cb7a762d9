#include "panel/jobs/read_job.h"

#include "addresses/request_limits.h"
#include "exchange/loop_clock.h"
#include "panel/jobs/wanted_values.h"
#include "panel/plan/least_time.h"
#include "panel/plan/time_out_rules.h"
#include "panel/plan/whole_values.h"
#include "registers/register_types.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace kx
{

namespace
{

const int BITS_PER_WORD = 8; // of one-off reads, by the driver's limit

ReadRules rulesOf(const Session& session)
{
    const SessionSettings& settings = session.settings();
    ReadRules rules;
    rules.line = settings.timingOf(session.line()->timing());
    rules.usual.maxWords = settings.maxWords;
    rules.usual.maxBits = std::min(settings.maxBits, settings.maxWords * BITS_PER_WORD);
    if (settings.choosesLengths && session.line()->timing().baud > 0) // as polls
        return rulesWithin(settings.exchange.replyTimeout * MICROSECONDS_PER_MILLISECOND, rules);
    return rules;
}

bool isRefused(const Failure& failure)
{
    return failure.kind == FailureKind::Exception && refusesAddresses(failure.exceptionCode);
}

bool isAskedBefore(const AddressRange& one, const AddressRange& other)
{
    return std::make_tuple(one.station, registerTypeRow(one.type), one.address)
           < std::make_tuple(other.station, registerTypeRow(other.type), other.address);
}

/// One request for all of rising values.
template <class Iterator>
AddressRange spanOf(Iterator first, Iterator end)
{
    const AddressRange& last = *std::prev(end);
    if (&*first == &last)
        return last; // with its width
    return {first->type, first->address, last.address + last.values - first->address,
            first->station};
}

} // namespace

ReadJob::ReadJob(Session* session, const QList<Tag>& tags, QObject* parent)
    : Job(session, parent), m_wanted(new WantedValues(tags)), m_total(static_cast<int>(tags.size()))
{
    qRegisterMetaType<ReadOutcome>("kx::ReadOutcome");
    connect(session, &Session::readFinished, this, &ReadJob::onEnd);
}

ReadJob::~ReadJob() = default;

void ReadJob::begin()
{
    const QList<AddressRange> ranges = m_wanted->existing();
    for (const AddressRange& range : ranges) {
        m_edges << AddressRange{range.type, range.address, 1, range.station};
        m_edges << AddressRange{range.type, range.address + range.values, 1, range.station};
    }
    std::sort(m_edges.begin(), m_edges.end(), isAskedBefore);
    m_pieces = leastTimePieces(ranges, rulesOf(*session()));
    goOn();
}

void ReadJob::goOn()
{
    tellFinished();
    if (!isRunning())
        return;
    if (m_pieces.isEmpty())
        return end();
    await([piece = m_pieces.first()](Session* session) { return session->read(piece); });
}

/// A slot may abort the job.
void ReadJob::tellFinished()
{
    while (isRunning()) {
        const std::optional<ReadOutcome> outcome = m_wanted->takeFirst();
        if (!outcome)
            return;
        noteFailure(outcome->failure);
        emit rangeFinished(*outcome);
        if (isRunning())
            emit progress(m_total - m_wanted->size(), m_total);
    }
}

void ReadJob::onEnd(int handle, const ReadEnd& end)
{
    if (!takesEnd(handle))
        return;
    if (isSessionOver(end.failure))
        return endEarly(end.failure);
    const AddressRange piece = m_pieces.takeFirst();
    if (end.failure.isNone())
        m_wanted->take(piece, end.values);
    else
        onFailure(piece, end.failure);
    goOn();
}

void ReadJob::onFailure(const AddressRange& piece, const Failure& failure)
{
    if (isRefused(failure))
        return onRefusal(piece, failure);
    m_wanted->fail(piece, failure);
    if (failure.kind != FailureKind::NoReply && !isGatewayException(failure.exceptionCode))
        return;
    const auto isOfStation = [&](const AddressRange& other) {
        return other.station == piece.station;
    };
    for (const AddressRange& other : m_pieces) {
        if (isOfStation(other))
            m_wanted->fail(other, failure);
    }
    m_pieces.erase(std::remove_if(m_pieces.begin(), m_pieces.end(), isOfStation), m_pieces.end());
}

void ReadJob::onRefusal(const AddressRange& piece, const Failure& failure)
{
    const WholeValues values(m_wanted->unknownIn(piece));
    if (values.all().size() == 1) {
        // What lies within a value that cannot be read is asked for by itself.
        m_wanted->failOnly(values.all().front(), failure);
        m_pieces = leastTimePieces(m_wanted->unknownIn(piece), rulesOf(*session())) + m_pieces;
        return;
    }
    const QList<AddressRange> halves = halvesOf(piece, values);
    if (halves.isEmpty())
        m_wanted->fail(piece, failure);
    m_pieces = halves + m_pieces;
}

/// None when the piece is of one range and short enough for any controller.
QList<AddressRange> ReadJob::halvesOf(const AddressRange& piece, const WholeValues& values) const
{
    const int end = piece.address + piece.values;
    const auto firstInside = std::upper_bound(m_edges.begin(), m_edges.end(), piece, isAskedBefore);
    const auto pastEnd = std::lower_bound(
        firstInside, m_edges.end(), AddressRange{piece.type, end, 1, piece.station}, isAskedBefore);
    const int most = piece.type->registerClass == BIT_CLASS ? COILS_OF_ANY : REGISTERS_OF_ANY;
    int middle = piece.address + piece.values / 2;
    if (firstInside != pastEnd)
        middle = std::next(firstInside, std::distance(firstInside, pastEnd) / 2)->address;
    else if (piece.driverCount() <= most)
        return {};
    const auto isBelow = [middle](const AddressRange& value) { return value.address < middle; };
    const auto begin = values.all().begin();
    const auto pastLast = values.all().end();
    auto cut = std::partition_point(begin, pastLast, isBelow);
    if (cut == pastLast)
        --cut; // the last value begins below the middle and reaches beyond it
    return {spanOf(begin, cut), spanOf(cut, pastLast)};
}

void ReadJob::giveUp(const Failure& reason)
{
    for (const ReadOutcome& outcome : m_wanted->takeAll(reason))
        emit rangeFinished(outcome);
}

} // namespace kx
