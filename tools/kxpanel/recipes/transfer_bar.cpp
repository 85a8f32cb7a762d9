#include "kxpanel/recipes/transfer_bar.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

namespace kxpanel
{

TransferBar::TransferBar(QWidget* parent) : QWidget(parent), m_progress(new QProgressBar(this))
{
    m_progress->setAccessibleName(tr("Requests of the transfer that were answered"));
    auto* const abort = new QPushButton(tr("&Abort"), this);
    abort->setShortcut(Qt::Key_Escape);
    abort->setToolTip(tr("End the transfer; what was sent stays in the controller (Esc)"));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_progress, 1);
    row->addWidget(abort);
    hide();
    connect(abort, &QPushButton::clicked, this, &TransferBar::aborted);
}

void TransferBar::begin(kx::RecipeDirection direction)
{
    m_progress->setRange(0, 0); // how many requests it takes is not known yet
    m_progress->setFormat(direction == kx::RecipeDirection::Upload
                              ? tr("Reading: %v of %m requests")
                              : tr("Sending: %v of %m requests"));
    show();
}

void TransferBar::setProgress(int done, int total)
{
    m_progress->setRange(0, total);
    m_progress->setValue(done);
}

} // namespace kxpanel
