/// Channels of a list of tags, and what they have of each.
#ifndef KX_TESTS_TOOLS_KXPANEL_TREND_MODEL_TREND_CHANNELS_FIXTURE_H
#define KX_TESTS_TOOLS_KXPANEL_TREND_MODEL_TREND_CHANNELS_FIXTURE_H

#include "kxpanel/trend/model/trend_channels.h"
#include "trend_tags.h"

#include <QtTest/QTest>

namespace kxpanel
{

inline QString samplesOf(const TrendChannels& channels, int number)
{
    QStringList texts;
    for (const TrendSample& sample : channels.find(number)->store->samples(0, 10000000)) {
        kx::GapReason reason = kx::GapReason::NotYetRead;
        QString text = QString::number(sample.value);
        if (sample.isGap())
            text = gapReasonOf(sample.value, &reason) ? kx::gapText(reason) : "no number";
        texts << QStringLiteral("%1 %2").arg(QString::number(sample.time()), text);
    }
    return texts.join(", ");
}

inline QList<int> numbersOf(const TrendChannels& channels)
{
    QList<int> numbers;
    for (const TrendChannel& channel : channels.list())
        numbers << channel.number;
    return numbers;
}

class TrendChannelsFixture : public QObject
{
protected:
    TagList* m_tags = nullptr;
    TrendChannels* m_channels = nullptr;

    QList<int> watch(const QList<kx::Tag>& tags) { return m_tags->insert(m_tags->size(), tags); }

    void makeChannels()
    {
        m_tags = new TagList(this);
        m_channels = new TrendChannels(m_tags, this);
    }
    void takeChannelsAway()
    {
        delete m_channels;
        delete m_tags;
    }
};

} // namespace kxpanel

#endif
