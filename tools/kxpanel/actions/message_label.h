#ifndef KX_KXPANEL_ACTIONS_MESSAGE_LABEL_H
#define KX_KXPANEL_ACTIONS_MESSAGE_LABEL_H

#include <QtWidgets/QLabel>

namespace kxpanel
{

/// Shows what went wrong, which may name what stands in a file: as it is, in no more room than
/// there is, and so that it can be copied.
class MessageLabel : public QLabel
{
public:
    explicit MessageLabel(QWidget* parent = nullptr);

    /// @param text of one row or more, of which long ones are cut in their middle
    void say(const QString& text);
};

} // namespace kxpanel

#endif
