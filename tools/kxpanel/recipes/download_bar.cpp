#include "kxpanel/recipes/download_bar.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <set>

namespace kxpanel
{

namespace
{

QString stationsOf(const QList<kx::RecipeRow>& rows)
{
    std::set<int> stations;
    for (const kx::RecipeRow& row : rows)
        stations.insert(row.range.station);
    QStringList texts;
    for (const int station : stations)
        texts << QString::number(station);
    return texts.size() == 1 ? DownloadBar::tr("station %1").arg(texts.first())
                             : DownloadBar::tr("stations %1").arg(texts.join(QLatin1String(", ")));
}

} // namespace

DownloadBar::DownloadBar(QWidget* parent) : QFrame(parent), m_question(new QLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    m_question->setObjectName(QStringLiteral("question"));
    m_question->setTextFormat(Qt::PlainText);
    m_question->setWordWrap(true);
    auto* const send = new QPushButton(tr("&Download"), this);
    send->setAutoDefault(true);
    send->setToolTip(tr("Send the values to the controller"));
    m_cancel = new QPushButton(tr("&Cancel"), this); // behind the other also for the Tab key
    m_cancel->setAutoDefault(true);
    m_cancel->setToolTip(tr("Send nothing (Esc)"));

    auto* const layout = new QHBoxLayout(this);
    layout->addWidget(m_question, 1);
    layout->addWidget(send);
    layout->addWidget(m_cancel);
    hide();

    connect(send, &QPushButton::clicked, this, [this] {
        hide();
        emit confirmed();
    });
    connect(m_cancel, &QPushButton::clicked, this, &DownloadBar::cancel);
}

void DownloadBar::ask(const QList<kx::RecipeRow>& rows, bool losesValues)
{
    const QString question = tr("Send %n value(s) to %1? They replace those in the controller.",
                                nullptr, static_cast<int>(rows.size()))
                                 .arg(stationsOf(rows));
    m_question->setText(
        losesValues ? tr("%1 What was read from it before is not saved.").arg(question) : question);
    show();
    m_cancel->setFocus();
}

void DownloadBar::cancel()
{
    hide();
    emit cancelled();
}

void DownloadBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        cancel();
    else
        QFrame::keyPressEvent(event);
}

} // namespace kxpanel
