#ifndef KX_KXPANEL_ACTIONS_PLAIN_TOOL_TIP_H
#define KX_KXPANEL_ACTIONS_PLAIN_TOOL_TIP_H

#include <QtCore/QString>

namespace kxpanel
{

/// A tool tip that shows the text as it is: names, comments and ports are no markup.
QString plainToolTip(const QString& text);

} // namespace kxpanel

#endif
