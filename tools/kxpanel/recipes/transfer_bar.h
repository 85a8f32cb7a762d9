#ifndef KX_KXPANEL_RECIPES_TRANSFER_BAR_H
#define KX_KXPANEL_RECIPES_TRANSFER_BAR_H

#include "panel/session/session_events.h"

#include <QtWidgets/QWidget>

class QProgressBar;

namespace kxpanel
{

/// How far a transfer is, and the button that ends it; shown while it runs.
class TransferBar : public QWidget
{
    Q_OBJECT

public:
    explicit TransferBar(QWidget* parent = nullptr);

    void begin(kx::RecipeDirection direction);
    void setProgress(int done, int total);

signals:
    void aborted();

private:
    QProgressBar* m_progress;
};

} // namespace kxpanel

#endif
