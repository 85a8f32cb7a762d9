#ifndef KX_KXPANEL_TREND_FILES_TREND_SAVER_H
#define KX_KXPANEL_TREND_FILES_TREND_SAVER_H

#include "kxpanel/trend/files/trend_file_writer.h"

#include <QtCore/QObject>

#include <memory>

class QThread;

namespace kxpanel
{

/// Writes recordings in a thread of its own: a day of many values takes seconds. One at a time.
class TrendSaver : public QObject
{
    Q_OBJECT

public:
    explicit TrendSaver(QObject* parent = nullptr);
    /// Waits until what is being written is whole; what went wrong goes to stderr.
    ~TrendSaver() override;

    /// Not while one is being saved; ended() comes once.
    void save(const TrendExport& recording);
    bool isSaving() const { return m_thread != nullptr; }
    /// The one being saved, or saved last.
    const QString& path() const { return m_path; }
    bool isThinned() const { return m_isThinned; }
    bool isRounded() const { return m_isRounded; }

signals:
    /// @param error one line; empty when all is saved
    void ended(const QString& error);

private:
    void finish();

    std::unique_ptr<QThread> m_thread;
    QString m_path;
    bool m_isThinned = false;
    bool m_isRounded = false;
    QString m_error; ///< the thread's until it has ended
};

} // namespace kxpanel

#endif
