#ifndef KX_KXPANEL_SHELL_FILE_DROP_H
#define KX_KXPANEL_SHELL_FILE_DROP_H

#include <QtCore/QObject>

class QDropEvent;
class QWidget;

namespace kxpanel
{

/// Takes a file that a person drags onto the window, wherever nothing else takes it.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// @param window owns it
    explicit FileDrop(QWidget* window);

signals:
    /// One file of this computer; after the drag has ended.
    void dropped(const QString& path);

private:
    bool eventFilter(QObject* window, QEvent* event) override;
    void take(QDropEvent* event);
};

} // namespace kxpanel

#endif
