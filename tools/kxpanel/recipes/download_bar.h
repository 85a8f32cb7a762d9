#ifndef KX_KXPANEL_RECIPES_DOWNLOAD_BAR_H
#define KX_KXPANEL_RECIPES_DOWNLOAD_BAR_H

#include "panel/recipe/recipe_file.h"

#include <QtWidgets/QFrame>

class QLabel;
class QPushButton;

namespace kxpanel
{

/// Asks, in the page and not above it, before a recipe goes to the controllers. The keyboard is on
/// the button that sends nothing: a key pressed too often must not move a machine.
class DownloadBar : public QFrame
{
    Q_OBJECT

public:
    explicit DownloadBar(QWidget* parent = nullptr);

    /// @param losesValues what was read from the controllers before is in no file
    void ask(const QList<kx::RecipeRow>& rows, bool losesValues);

signals:
    /// A person wants it. The bar is hidden then.
    void confirmed();
    void cancelled();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cancel();

    QLabel* m_question;
    QPushButton* m_cancel = nullptr;
};

} // namespace kxpanel

#endif
