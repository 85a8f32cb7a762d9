#include "kxpanel/trend/files/trend_saver.h"

#include <QtCore/QThread>

namespace kxpanel
{

TrendSaver::TrendSaver(QObject* parent) : QObject(parent) {}

TrendSaver::~TrendSaver()
{
    if (!m_thread)
        return;
    m_thread->wait();
    if (!m_error.isEmpty()) // there is no window to say it in any more
        qWarning("%s", qPrintable(m_error));
}

void TrendSaver::save(const TrendExport& recording)
{
    m_path = recording.path;
    m_isThinned = recording.isThinned;
    m_isRounded = recording.isRounded;
    m_error.clear();
    m_thread.reset(QThread::create([this, recording] { writeTrend(recording, &m_error); }));
    connect(m_thread.get(), &QThread::finished, this, &TrendSaver::finish);
    m_thread->start();
}

void TrendSaver::finish()
{
    m_thread->wait();
    m_thread.reset();
    emit ended(m_error);
}

} // namespace kxpanel
