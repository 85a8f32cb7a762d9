#ifndef KX_KXPANEL_SHELL_PAGE_SCROLL_H
#define KX_KXPANEL_SHELL_PAGE_SCROLL_H

#include <QtWidgets/QScrollArea>

namespace kxpanel
{

/// Around a page: on a small screen less than all of it is seen, and the window is no larger for
/// it. The page fills what there is, but is never smaller than it can be. What gets the keyboard
/// comes into view.
class PageScroll : public QScrollArea
{
    Q_OBJECT

public:
    /// @param page the area's from now on
    explicit PageScroll(QWidget* page, QWidget* parent = nullptr);
    ~PageScroll() override;

private:
    // Not setWidgetResizable(): of a page with text that wraps it takes the height that the page
    // would like for the one that it needs.
    void fit();
    void showFocus(const QWidget* old, QWidget* now);
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace kxpanel

#endif
