#include "kxpanel/shell/version_text.h"

#include "kxhost/commands/version_text.h"

namespace kxpanel
{

QStringList versionRows()
{
    // Of the same build.
    QStringList rows = kx::versionText().split(QLatin1Char('\n'));
    rows[0] = QStringLiteral("kxpanel " KX_VERSION);
    rows.removeAll(QString());
    return rows;
}

} // namespace kxpanel
