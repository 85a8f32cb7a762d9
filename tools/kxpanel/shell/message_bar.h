#ifndef KX_KXPANEL_SHELL_MESSAGE_BAR_H
#define KX_KXPANEL_SHELL_MESSAGE_BAR_H

#include <QtWidgets/QFrame>

class QLabel;

namespace kxpanel
{

/// What went wrong, inside the window, until a person closes it or it is over.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    /// One or more lines; empty takes them away.
    void say(const QString& text);
    QString text() const;

private:
    void changeEvent(QEvent* event) override;

    QLabel* m_text;
};

} // namespace kxpanel

#endif
