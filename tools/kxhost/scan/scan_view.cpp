#include "kxhost/scan/scan_view.h"

#include "kxhost/terminal/console.h"
#include "panel/text/counted.h"

namespace kx
{

namespace
{

QString parityName(char parity)
{
    if (parity == 'N')
        return QStringLiteral("none");
    return QString::fromLatin1(parity == 'E' ? "even" : "odd");
}

} // namespace

ScanView::ScanView(bool isSearch, int stopBits, bool json)
    : m_isSearch(isSearch),
      m_stopBits(stopBits),
      m_json(json),
      m_bar(!json && isStandardOutputTerminal())
{
}

QString ScanView::text(const LineFormat& format) const
{
    return QStringLiteral("%1 8%2%3")
        .arg(format.baud)
        .arg(QLatin1Char(format.parity))
        .arg(m_stopBits);
}

QJsonObject ScanView::json(const char* event, const LineFormat& format) const
{
    return {{QStringLiteral("event"), QLatin1String(event)},
            {QStringLiteral("baud"), format.baud},
            {QStringLiteral("parity"), parityName(format.parity)},
            {QStringLiteral("stopBits"), m_stopBits}};
}

void ScanView::showAnswer(const LineFormat& format, const ScanReply& reply)
{
    clearBar();
    const bool isNews = m_isSearch && !m_isFound;
    m_isFound = true;
    if (m_json)
        return printJson(scanJson(reply));
    if (isNews)
        say(QStringLiteral("%1: answers").arg(text(format)));
    say(scanRow(reply));
}

void ScanView::showProgress(const LineFormat& format, const ScanProgress& progress)
{
    if (m_bar)
        print(QStringLiteral("\r%1\033[K")
                  .arg(m_isSearch ? searchBar(text(format), progress) : scanBar(progress)));
}

void ScanView::showTried(const LineFormat& format, int stations, int answered,
                         const ScanProgress& progress)
{
    if (!m_isSearch)
        return;
    if (m_json) {
        QJsonObject tried = json("tried", format);
        tried[QStringLiteral("stations")] = stations;
        tried[QStringLiteral("answered")] = answered;
        if (!m_isFound)
            tried[QStringLiteral("millisecondsLeft")] = timeLeft(progress);
        printJson(tried);
    } else if (!m_bar && !m_isFound) {
        say(QStringLiteral("%1: %2").arg(text(format), scanSummary(0, stations, 0)));
    }
}

void ScanView::showSummary(const LineFormat& format, int answered, int asked, int notAsked)
{
    clearBar();
    if (!m_json)
        return say(scanSummary(answered, asked, notAsked)
                   + (m_isSearch ? QStringLiteral(" (%1)").arg(text(format)) : QString()));
    QJsonObject summary = m_isSearch
                              ? json("summary", format)
                              : QJsonObject{{QStringLiteral("event"), QStringLiteral("summary")}};
    summary[QStringLiteral("stations")] = asked;
    summary[QStringLiteral("answered")] = answered;
    summary[QStringLiteral("notAsked")] = notAsked;
    printJson(summary);
}

void ScanView::showNothingFound(int formats, const ScanProgress& progress)
{
    clearBar();
    if (m_json) {
        printJson({{QStringLiteral("event"), QStringLiteral("summary")},
                   {QStringLiteral("requests"), progress.done},
                   {QStringLiteral("answered"), 0},
                   {QStringLiteral("notAsked"), progress.total - progress.done}});
        return;
    }
    const QString nothing = QStringLiteral("no station answered in %1")
                                .arg(counted(formats, "setting", "settings of the line"));
    say(progress.done == progress.total
            ? nothing
            : QStringLiteral("no station answered; stopped after %1 of %2")
                  .arg(progress.done)
                  .arg(counted(progress.total, "request", "requests")));
}

void ScanView::clearBar()
{
    if (m_bar)
        print(QLatin1String("\r\033[K"));
}

} // namespace kx
