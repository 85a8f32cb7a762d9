#include "kxpanel/trend/history/trend_store.h"

#include "kxpanel/trend/history/trend_rings.h"

#include <algorithm>

namespace kxpanel
{

namespace
{

const int LEVELS = 5;

void addOnce(const TrendSample& sample, QVector<TrendSample>* samples)
{
    if (!sample.isThere() || (!samples->isEmpty() && sample.time() < samples->last().time()))
        return;
    if (samples->isEmpty() || !samples->last().isSame(sample))
        *samples << sample;
}

void addSpan(const TrendSpan& span, QVector<TrendSample>* samples)
{
    TrendSample kept[] = {span.first, span.lowest, span.highest, span.gap, span.last};
    std::stable_sort(
        std::begin(kept) + 1, std::end(kept) - 1,
        [](const TrendSample& a, const TrendSample& b) { return a.time() < b.time(); });
    for (const TrendSample& sample : kept)
        addOnce(sample, samples);
}

} // namespace

TrendStore::TrendStore(int samples)
    : m_samples(samples), m_levels(LEVELS, Ring<TrendSpan>(samples / 2))
{
}

void TrendStore::append(const TrendSample& sample)
{
    if (!isEmpty() && m_samples.at(m_samples.end() - 1).isSame(sample))
        return;
    TrendSample next = sample;
    if (!isEmpty() && sample.time() < end())
        next.setTime(end());
    m_samples.append(next);
    qint64 count = m_samples.end();
    for (int level = 0; level < LEVELS && count % SPAN_GROWTH == 0; ++level, count /= SPAN_GROWTH) {
        const std::size_t index = static_cast<std::size_t>(level);
        m_levels[index].append(level == 0 ? newestSpan(m_samples)
                                          : newestSpan(m_levels[index - 1]));
    }
}

void TrendStore::clear()
{
    m_samples.clear();
    for (Ring<TrendSpan>& level : m_levels)
        level.clear();
}

void TrendStore::shift(qint64 milliseconds)
{
    const auto move = [milliseconds](auto* item) { item->shift(milliseconds); };
    m_samples.changeAll(move);
    for (Ring<TrendSpan>& level : m_levels)
        level.changeAll(move);
}

qint64 TrendStore::begin() const
{
    if (isEmpty())
        return NO_TIME;
    qint64 next = 0;
    return spanFrom(oldest(), oldest() + 1, &next).first.time();
}

qint64 TrendStore::exactSince() const
{
    return isEmpty() ? NO_TIME : m_samples.at(m_samples.first()).time();
}

qint64 TrendStore::end() const
{
    return isEmpty() ? NO_TIME : m_samples.at(m_samples.end() - 1).time();
}

/// The number of the oldest sample that a span knows of.
qint64 TrendStore::oldest() const
{
    qint64 number = m_samples.first();
    qint64 width = 1;
    for (const Ring<TrendSpan>& level : m_levels) {
        width *= SPAN_GROWTH;
        if (!level.isEmpty())
            number = std::min(number, level.first() * width);
    }
    return number;
}

/// The last sample before a time, or the finest span that may hold it.
TrendStore::Place TrendStore::lastBefore(qint64 time) const
{
    const qint64 sample = lastItemBefore(m_samples, time);
    if (sample >= 0)
        return {sample, 1};
    qint64 width = 1;
    for (const Ring<TrendSpan>& level : m_levels) {
        width *= SPAN_GROWTH;
        const qint64 span = lastItemBefore(level, time);
        if (span >= 0)
            return {span * width, width};
    }
    return {-1, 0};
}

/// The first sample that counts from a time on: at that time, else the one that held then.
/// @param before lastBefore() it
qint64 TrendStore::numberFrom(const Place& before, qint64 time) const
{
    if (before.number < 0)
        return oldest();
    const qint64 next = before.number + 1;
    const bool isAtTime = before.width == 1 && next < m_samples.end() && m_samples.keeps(next)
                          && m_samples.at(next).time() == time;
    return isAtTime ? next : before.number;
}

/// Behind the last sample before a time.
qint64 TrendStore::numberTo(const Place& before) const
{
    return before.number < 0 ? oldest() : before.number + before.width;
}

/// The widest span that begins with a sample and ends before `end`, else the finest that is left of
/// it. `*next` is the number behind it.
TrendSpan TrendStore::spanFrom(qint64 number, qint64 end, qint64* next) const
{
    TrendSpan span;
    if (m_samples.keeps(number))
        span.add(m_samples.at(number));
    *next = number + 1;
    qint64 width = 1;
    for (const Ring<TrendSpan>& level : m_levels) {
        width *= SPAN_GROWTH;
        const bool isKept = level.keeps(number / width);
        const bool fits = isKept && number % width == 0 && number + width <= end;
        if (!fits && !span.isEmpty())
            break;
        if (!isKept)
            continue;
        span = level.at(number / width);
        *next = (number / width + 1) * width;
    }
    return span;
}

TrendSpan TrendStore::joined(qint64 first, qint64 end) const
{
    TrendSpan all;
    for (qint64 number = first; number < end;) {
        qint64 next = 0;
        all.add(spanFrom(number, end, &next));
        number = next;
    }
    return all;
}

TrendSpan TrendStore::between(qint64 from, qint64 to) const
{
    return joined(numberFrom(lastBefore(from), from), numberTo(lastBefore(to)));
}

QVector<TrendSpan> TrendStore::columns(qint64 from, qint64 step, int count, qint64 until) const
{
    QVector<TrendSpan> columns(count);
    Place before = lastBefore(from);
    for (int column = 0; column < count; ++column) {
        const qint64 begin = from + column * step;
        if (begin > until)
            break;
        const Place last = lastBefore(begin + step);
        columns[column] = joined(numberFrom(before, begin), numberTo(last));
        before = last;
    }
    return columns;
}

QVector<TrendSample> TrendStore::samples(qint64 from, qint64 to) const
{
    QVector<TrendSample> samples;
    const qint64 end = numberTo(lastBefore(to));
    for (qint64 number = numberFrom(lastBefore(from), from); number < end;) {
        qint64 next = 0;
        addSpan(spanFrom(number, number + 1, &next), &samples);
        number = next;
    }
    return samples;
}

qint64 TrendStore::bytes() const
{
    qint64 sum = m_samples.bytes();
    for (const Ring<TrendSpan>& level : m_levels)
        sum += level.bytes();
    return sum;
}

qint64 TrendStore::mostBytes(int samples)
{
    return samples * static_cast<qint64>(sizeof(TrendSample))
           + LEVELS * (samples / 2) * static_cast<qint64>(sizeof(TrendSpan));
}

} // namespace kxpanel
