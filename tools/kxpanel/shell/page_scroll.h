#ifndef KX_KXPANEL_SHELL_PAGE_SCROLL_H
#define KX_KXPANEL_SHELL_PAGE_SCROLL_H

#include <QtWidgets/QScrollArea>

namespace kxpanel
{

/// Around a page: on a small screen less than all of it is seen, and the window is no larger for
/// it. What gets the keyboard comes into view.
class PageScroll : public QScrollArea
{
    Q_OBJECT

public:
    /// @param page the area's from now on
    explicit PageScroll(QWidget* page, QWidget* parent = nullptr);

private:
    void showFocus(const QWidget* old, QWidget* now);
};

} // namespace kxpanel

#endif
