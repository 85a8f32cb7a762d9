#include "kxpanel/actions/plain_tool_tip.h"

namespace kxpanel
{

QString plainToolTip(const QString& text)
{
    // What Qt may take for markup.
    if (!text.contains(QLatin1Char('<')) && !text.contains(QLatin1String("&lt;")))
        return text;
    QString markup = text.toHtmlEscaped();
    markup.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    return QStringLiteral("<qt>%1</qt>").arg(markup);
}

} // namespace kxpanel
