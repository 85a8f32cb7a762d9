#include "kxpanel/shell/status_line.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>

#include <limits>

namespace kxpanel
{

StatusLine::StatusLine(const Machine* machine, QStatusBar* bar)
    : QObject(bar),
      m_bar(bar),
      m_line(addLabel("line", tr("Line"))),
      m_counts(addLabel("counts", tr("Requests and cycles since the line was opened"))),
      m_speed(addLabel("speed",
                       tr("Requests per second, and share of the time in which characters occupy "
                          "the line")))
{
    connect(machine, &Machine::lineChanged, this, &StatusLine::takeStatus);
    connect(machine, &Machine::counted, this, &StatusLine::takeCounts);
}

QLabel* StatusLine::addLabel(const char* objectName, const QString& tip)
{
    auto* const label = new QLabel(m_bar);
    label->setTextFormat(Qt::PlainText); // a port may have any name
    label->setObjectName(QLatin1String(objectName));
    label->setToolTip(tip);
    label->setMinimumWidth(1); // a name of any length makes the window no wider
    m_bar->addPermanentWidget(label);
    return label;
}

void StatusLine::say(const QString& text)
{
    m_bar->showMessage(text);
}

void StatusLine::takeStatus(const LineStatus& status)
{
    const bool isClosed = status.state == LineState::Closed;
    m_line->setText(isClosed ? QString() : status.name);
    if (isClosed || status.state == LineState::Opening) {
        m_counts->clear();
        m_speed->clear();
    }
}

void StatusLine::takeCounts(const kx::WatchSummary& summary)
{
    const kx::Statistics& counts = summary.statistics;
    const qint64 cycles = qMin<qint64>(summary.cycles, std::numeric_limits<int>::max());
    QStringList texts{tr("%n cycle(s)", nullptr, static_cast<int>(cycles))};
    if (counts.repeated > 0)
        texts << tr("%1 repeated").arg(counts.repeated);
    if (counts.failed > 0)
        texts << tr("%1 failed").arg(counts.failed);
    m_counts->setText(texts.join(QStringLiteral(", ")));
    m_speed->setText(kx::speedText(summary));
}

} // namespace kxpanel
