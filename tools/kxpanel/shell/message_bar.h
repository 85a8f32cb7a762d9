#ifndef KX_KXPANEL_SHELL_MESSAGE_BAR_H
#define KX_KXPANEL_SHELL_MESSAGE_BAR_H

#include <QtWidgets/QFrame>

namespace kxpanel
{

class MessageLabel;

/// What went wrong, inside the window, until a person closes it or it is over.
class MessageBar : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget* parent = nullptr);

    /// One or more lines, of which the first few are shown; empty takes them away.
    void say(const QString& text);
    /// What is shown.
    QString text() const;

private:
    void showColour();
    void changeEvent(QEvent* event) override;

    MessageLabel* m_text;
};

} // namespace kxpanel

#endif
