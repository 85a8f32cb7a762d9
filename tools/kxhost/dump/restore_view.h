#ifndef KX_KXHOST_DUMP_RESTORE_VIEW_H
#define KX_KXHOST_DUMP_RESTORE_VIEW_H

#include "panel/dump/differences.h"
#include "panel/dump/unread_ranges.h"
#include "panel/jobs/write_job.h"

#include <QtCore/QStringList>

namespace kx
{

/// How a restore ended.
struct RestoreResult {
    int values = 0;    ///< of the file, that can be written
    int different = 0; ///< before
    int written = 0;   ///< and confirmed
    int left = 0;      ///< read again, and not as in the file
    QList<UnreadRange> unread;
    QString stopReason;  ///< empty when all was tried
    QStringList perhaps; ///< what else may have been written then
};

/// What a restore tells, as text or as JSON.
class RestoreView
{
public:
    RestoreView(const QString& path, bool asJson) : m_path(path), m_asJson(asJson) {}

    /// Ranges of the file that cannot be written.
    void showLeftOut(const QList<AddressRange>& ranges) const;
    /// Of so many values.
    void showDifferences(const QList<Difference>& differences, int values) const;
    /// "Write 12 values to station 1?"
    static QString questionOf(const QList<Assignment>& writes);
    void showWrite(const WriteOutcome& outcome) const;
    /// A value that is still another, and why.
    void showLeft(const Difference& difference, const QString& cause) const;
    /// The last that is told. @return an ExitCode
    int conclude(const RestoreResult& result) const;

private:
    QString failureText(const RestoreResult& result) const;
    void printSummary(const RestoreResult& result, const QString& failure) const;

    QString m_path;
    bool m_asJson;
};

} // namespace kx

#endif
