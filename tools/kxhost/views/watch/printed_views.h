/// Views that write a line per event: as text, or as JSON.
#ifndef KX_KXHOST_VIEWS_WATCH_PRINTED_VIEWS_H
#define KX_KXHOST_VIEWS_WATCH_PRINTED_VIEWS_H

#include "kxhost/views/watch/watch_view.h"

#include <QtCore/QJsonObject>

namespace kx
{

/// "D100 (Pump speed)"; the address alone when the name is empty.
QString withName(const QString& address, const QString& name);

/// "2024-05-17T10:11:12.013 1 D100 1234", or "... no answer" instead of the value;
/// the address with its name.
QString entryRow(const WatchEntry& entry, const QDateTime& time);
QJsonObject entryJson(const WatchEntry& entry, const QDateTime& time);

class TextView : public WatchView
{
public:
    explicit TextView(bool frames) : m_frames(frames) {}

    void showSummary(const WatchSummary& summary) override;

protected:
    void showEntry(const WatchEntry& entry, const QDateTime& time) override;
    void showLinkEvent(const LinkEvent& event, const QDateTime& time) override;
    void showExchange(const ExchangeRecord& record) override;

private:
    bool m_frames;
};

class JsonView : public WatchView
{
public:
    explicit JsonView(bool frames) : m_frames(frames) {}

    void showSummary(const WatchSummary& summary) override;

protected:
    void showEntry(const WatchEntry& entry, const QDateTime& time) override;
    void showLinkEvent(const LinkEvent& event, const QDateTime& time) override;
    void showExchange(const ExchangeRecord& record) override;

private:
    bool m_frames;
};

} // namespace kx

#endif
