#ifndef KX_KXHOST_SEQUENCE_REPORT_FILE_H
#define KX_KXHOST_SEQUENCE_REPORT_FILE_H

#include "panel/sequence/junit_report.h"

namespace kx
{

/// The JUnit report of a run. It is there, and full of errors, before anything is sent: the report
/// of an earlier run does not stand for one that was killed.
class ReportFile
{
public:
    /// @param path of the report; empty: none is written
    /// @param file of the sequence, after which the suite is named
    ReportFile(const QString& path, const QString& file, const Sequence& sequence);

    /// Takes the result into the next write().
    void add(const StepResult& result) { m_results << result; }
    /// Replaces the file. False and one line in `*error` when that fails.
    bool write(QString* error) const;

private:
    QString m_path;
    QString m_name;
    Sequence m_sequence;
    QDateTime m_startedAt;
    QList<StepResult> m_results;
};

} // namespace kx

#endif
