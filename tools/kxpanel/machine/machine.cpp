#include "kxpanel/machine/machine.h"

#include "kxpanel/machine/machine_jobs.h"
#include "kxpanel/machine/machine_parts.h"

namespace kxpanel
{

namespace
{

const int CLOCK_TIME = 500; // milliseconds

kx::Failure lineIsLost()
{
    return kx::failureOf(kx::FailureKind::LineLost, Machine::tr("the line is lost"));
}

} // namespace

Machine::Machine(QObject* parent, const Clocks& clocks)
    : QObject(parent), m_parts(new Parts), m_jobs(new MachineJobs(this))
{
    registerMachineTypes();
    connect(m_jobs, &MachineJobs::progress, this, &Machine::jobProgress);
    connect(m_jobs, &MachineJobs::ended, this, &Machine::onJobEnded);
    m_parts->lostForLong.setParent(this); // goes where this goes
    m_parts->lostForLong.setSingleShot(true);
    connect(&m_parts->lostForLong, &QTimer::timeout, m_jobs,
            [this] { m_jobs->endAll(lineIsLost()); });
    m_parts->clocks = clocks;
    m_parts->clockTicks.setParent(this);
    connect(&m_parts->clockTicks, &QTimer::timeout, this, &Machine::lookAtClocks);
    m_parts->clockTicks.start(CLOCK_TIME);
    lookAtClocks();
}

Machine::~Machine()
{
    end();
}

void Machine::end()
{
    close(QString());
    m_parts->clockTicks.stop();
}

void Machine::takeListener(QObject* listener, Backlog* backlog)
{
    m_parts->backlog = backlog;
    connect(this, &Machine::told, listener, [backlog](int amount) { backlog->take(amount); });
}

int Machine::newTicket()
{
    static std::atomic<int> last{0};
    return ++last;
}

void Machine::call(const std::function<void()>& function)
{
    QMetaObject::invokeMethod(this, function, Qt::QueuedConnection);
}

void Machine::openLine(const kx::ConnectionOptions& options, bool readsValues)
{
    call([this, options, readsValues] { open(options, readsValues); });
}

void Machine::closeLine()
{
    call([this] { close(QString()); });
}

void Machine::setValues(const QList<WatchedValue>& values)
{
    call([this, values] {
        m_parts->values = values;
        simulateStations();
        if (m_parts->work && m_parts->readsValues)
            m_parts->work->setValues(values);
    });
}

void Machine::setLimits(int maxWords, int maxBits)
{
    call([this, maxWords, maxBits] {
        m_parts->options.session = limited(m_parts->options.session, maxWords, maxBits);
        m_parts->hasNewLimits = true;
        useLimits();
    });
    emit limitsSet(maxWords, maxBits);
}

void Machine::startJob(int ticket, const JobMaker& make)
{
    ++m_jobsAsked;
    call([this, ticket, make] {
        if (!m_parts->work)
            onJobEnded(ticket,
                       kx::failureOf(kx::FailureKind::SessionEnded, tr("the line is not open")));
        else if (m_parts->work->isLost())
            onJobEnded(ticket, lineIsLost());
        else
            m_jobs->start(ticket, make, m_parts->work->session());
    });
}

void Machine::abortJob(int ticket)
{
    call([this, ticket] { m_jobs->abort(ticket); });
}

} // namespace kxpanel
