#include "kxhost/sequence/report_file.h"

#include "panel/recipe/recipe_storage.h"

#include <QtCore/QFileInfo>

namespace kx
{

ReportFile::ReportFile(const QString& path, const QString& file, const Sequence& sequence)
    : m_path(path),
      m_name(QFileInfo(file).completeBaseName()),
      m_sequence(sequence),
      m_startedAt(QDateTime::currentDateTimeUtc())
{
}

bool ReportFile::write(QString* error) const
{
    if (m_path.isEmpty()
        || replaceRecipeFile(m_path, junitReport(m_name, m_startedAt, m_sequence, m_results),
                             error))
        return true;
    *error = QStringLiteral("cannot write the report: ") + *error;
    return false;
}

} // namespace kx
