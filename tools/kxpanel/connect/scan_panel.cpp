#include "kxpanel/connect/scan_panel.h"

#include "kxhost/options/scan_stations.h"
#include "kxpanel/connect/line_fields.h"
#include "panel/jobs/scan_job.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

#include <utility>

namespace kxpanel
{

namespace
{

const int LONGEST_TIMEOUT = 10000; // milliseconds
const int SHORTEST_TIMEOUT = 10;   // milliseconds
const int USUAL_TIMEOUT = 200;     // milliseconds

} // namespace

ScanPanel::ScanPanel(Machine* machine, LineFields* fields, QWidget* parent)
    : QWidget(parent), m_machine(machine), m_fields(fields)
{
    makeWidgets();
    layOut();
    connect(m_start, &QPushButton::clicked, this, &ScanPanel::toggle);
    connect(m_range, &QLineEdit::returnPressed, this, &ScanPanel::toggle);
    connect(m_found, &QListWidget::itemClicked, this, &ScanPanel::chooseStation);
    connect(m_found, &QListWidget::itemActivated, this, &ScanPanel::chooseStation);
    connect(machine, &Machine::lineChanged, this, &ScanPanel::takeStatus);
    connect(machine, &Machine::jobProgress, this, [this](int ticket, int done, int total) {
        if (ticket == m_ticket)
            showProgress(done, total);
    });
    connect(machine, &Machine::jobEnded, this, [this](int ticket, const kx::Failure& failure) {
        if (ticket == m_ticket)
            onEnded(failure);
    });
}

void ScanPanel::makeWidgets()
{
    m_range = new QLineEdit(QStringLiteral("1-247"), this);
    m_range->setAccessibleName(tr("Stations to ask"));
    m_range->setToolTip(tr("Stations to ask, such as 1-247 or 1,3,10-20"));
    m_timeout = new QSpinBox(this);
    m_timeout->setRange(SHORTEST_TIMEOUT, LONGEST_TIMEOUT);
    m_timeout->setValue(USUAL_TIMEOUT);
    m_timeout->setSingleStep(USUAL_TIMEOUT / 4);
    m_timeout->setSuffix(tr(" ms"));
    m_timeout->setAccessibleName(tr("Time for a reply"));
    m_timeout->setToolTip(tr("Milliseconds to wait for each station's reply"));
    m_start = new QPushButton(tr("Start"), this);
    m_progress = new QProgressBar(this);
    m_progress->setAccessibleName(tr("Stations asked"));
    m_progress->setFormat(tr("%v of %m"));
    m_progress->setTextVisible(false); // nothing is counted yet
    m_found = new QListWidget(this);
    m_found->setAccessibleName(tr("Stations found"));
    m_found->setToolTip(tr("Click a station to use it for addresses that name none"));
    m_found->setFlow(QListView::LeftToRight);
    m_found->setWrapping(true);
    m_found->setResizeMode(QListView::Adjust);
    m_found->setSpacing(2);
    m_found->setMaximumHeight(fontMetrics().height() * 5);
    m_result = new QLabel(this);
    m_result->setObjectName(QStringLiteral("scanResult"));
    m_result->setTextFormat(Qt::PlainText); // what was typed is no markup
    m_result->setWordWrap(true);
    m_result->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // the window is no wider
}

void ScanPanel::layOut()
{
    auto* const label = new QLabel(tr("Stati&ons"), this);
    label->setBuddy(m_range);
    auto* const wait = new QLabel(tr("wait"), this);
    wait->setTextFormat(Qt::PlainText);
    auto* const row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_range);
    row->addWidget(wait);
    row->addWidget(m_timeout);
    row->addWidget(m_start);
    row->addWidget(m_progress, 1);
    row->addWidget(m_result, 1);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(row);
    column->addWidget(m_found);
    m_found->hide();
}

void ScanPanel::setOpen(bool isOpen)
{
    setVisible(isOpen);
    if (isOpen)
        m_range->setFocus();
    else
        stop();
}

void ScanPanel::toggle()
{
    if (m_step == Step::Resting)
        start();
    else
        stop();
}

void ScanPanel::start()
{
    QString fault;
    if (!kx::parseStations(m_range->text().trimmed(), &m_stations, &fault)) {
        m_range->setFocus();
        m_result->setText(fault);
        return;
    }
    if (m_machine->isAtWork()) { // it would be ended half-way
        m_result->setText(tr("something is being written or transferred; try again after it"));
        return;
    }
    kx::ConnectionOptions options;
    const bool isGood = m_fields->takeOptions(&options, &fault);
    emit fieldIsWrong(fault);
    if (!isGood)
        return;
    m_wasOpen = m_lineState != LineState::Closed;
    options.session.retries = 1;
    options.session.exchange.replyTimeout = m_timeout->value();
    m_found->clear();
    m_found->hide();
    m_result->setText(tr("connecting"));
    m_start->setText(tr("Cancel"));
    showProgress(0, static_cast<int>(m_stations.size()));
    m_step = Step::Opening;
    m_wasTold = false;
    m_machine->openLine(options, false);
}

void ScanPanel::stop()
{
    if (m_step == Step::Asking)
        m_machine->abortJob(m_ticket);
    else if (m_step == Step::Opening)
        onEnded(kx::failureOf(kx::FailureKind::Aborted, tr("cancelled")));
}

// The line that was open closes first, which is not this one's end.
void ScanPanel::takeStatus(const LineStatus& status)
{
    m_lineState = status.state;
    if (m_step != Step::Opening)
        return;
    m_wasTold = m_wasTold || status.state == LineState::Opening;
    if (m_wasTold && status.state == LineState::Open)
        beginJob();
    else if (status.state == LineState::Closed && (m_wasTold || !status.fault.isEmpty()))
        rest(tr("not connected"));
}

void ScanPanel::beginJob()
{
    m_step = Step::Asking;
    m_ticket = Machine::newTicket();
    m_result->setText(tr("none yet"));
    m_machine->startJob(m_ticket, [this, stations = m_stations](kx::Session* session) {
        auto job = std::make_unique<kx::ScanJob>(session, stations);
        connect(job.get(), &kx::ScanJob::stationAnswered, this, &ScanPanel::addStation);
        return job;
    });
}

void ScanPanel::addStation(const kx::ScanReply& reply)
{
    auto* const item = new QListWidgetItem(tr("Station %1").arg(reply.station), m_found);
    item->setData(Qt::UserRole, reply.station);
    item->setToolTip(kx::scanRow(reply));
    m_found->show();
    m_result->setText(tr("found: %1").arg(m_found->count()));
}

void ScanPanel::showProgress(int done, int total)
{
    m_progress->setTextVisible(true);
    m_progress->setMaximum(total);
    m_progress->setValue(done);
}

void ScanPanel::onEnded(const kx::Failure& failure)
{
    m_ticket = 0;
    // Who disconnects meanwhile does not want the line back.
    if (failure.kind != kx::FailureKind::SessionEnded) {
        if (m_wasOpen) // then no field could be changed
            m_machine->openLine(m_fields->shownOptions());
        else
            m_machine->closeLine();
    }
    const int found = m_found->count();
    rest(found > 0          ? tr("found: %1").arg(found)
         : failure.isNone() ? tr("no station answers")
                            : failure.text);
}

void ScanPanel::rest(const QString& result)
{
    m_step = Step::Resting;
    m_start->setText(tr("Start"));
    m_result->setText(result);
}

void ScanPanel::chooseStation()
{
    if (const QListWidgetItem* const item = m_found->currentItem())
        emit stationChosen(item->data(Qt::UserRole).toInt());
}

} // namespace kxpanel
