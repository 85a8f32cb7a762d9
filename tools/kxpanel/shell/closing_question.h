#ifndef KX_KXPANEL_SHELL_CLOSING_QUESTION_H
#define KX_KXPANEL_SHELL_CLOSING_QUESTION_H

#include <functional>

class QWidget;

namespace kxpanel
{

/// Asks whether the window is to close though a write, a transfer or a search is under way, and
/// does `next` when it is. Returns at once; while it is being asked nothing more happens.
void askToEndWork(QWidget* window, const std::function<void()>& next);

} // namespace kxpanel

#endif
