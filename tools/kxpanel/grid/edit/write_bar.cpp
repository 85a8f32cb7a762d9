#include "kxpanel/grid/edit/write_bar.h"

#include "kxpanel/grid/edit/watch_delegate.h"
#include "kxpanel/grid/model/value_writer.h"
#include "kxpanel/tags/tag_list.h"

#include <QtCore/QSet>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <algorithm>

namespace kxpanel
{

namespace
{

const int MOST_NAMES = 4;
const int SHORTEST_EDIT = 16; // characters

QString namesOf(const QList<WatchedValue>& values)
{
    QStringList names;
    for (const WatchedValue& value : values.mid(0, MOST_NAMES))
        names << TagList::shownName(value);
    QString text = names.join(QStringLiteral(", "));
    if (values.size() > MOST_NAMES)
        text = WriteBar::tr("%1 and %2 more")
                   .arg(text, QString::number(static_cast<int>(values.size()) - MOST_NAMES));
    return text;
}

QString stationsOf(const QList<WatchedValue>& values)
{
    QSet<int> stations;
    for (const WatchedValue& value : values)
        stations.insert(value.tag.range.station);
    QList<int> sorted(stations.begin(), stations.end());
    std::sort(sorted.begin(), sorted.end());
    QStringList texts;
    for (const int station : sorted)
        texts << QString::number(station);
    return texts.size() == 1 ? WriteBar::tr("station %1").arg(texts.first())
                             : WriteBar::tr("stations %1").arg(texts.join(QStringLiteral(", ")));
}

} // namespace

WriteBar::WriteBar(ValueWriter* writer, QWidget* parent)
    : QFrame(parent),
      m_writer(writer),
      m_question(new QLabel(this)),
      m_edit(new QLineEdit(this)),
      m_fault(new QLabel(this)),
      m_write(new QPushButton(tr("&Write"), this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    m_question->setWordWrap(true);
    m_fault->setWordWrap(true);
    m_edit->setAccessibleName(tr("Value to write to all"));
    m_edit->setMinimumWidth(fontMetrics().averageCharWidth() * SHORTEST_EDIT);
    m_write->setToolTip(tr("Write the value to all of them (Enter)"));
    auto* const cancel = new QPushButton(tr("&Cancel"), this);
    cancel->setToolTip(tr("Write nothing (Esc)"));

    auto* const layout = new QGridLayout(this);
    layout->addWidget(m_question, 0, 0);
    layout->addWidget(m_edit, 0, 1);
    layout->addWidget(m_write, 0, 2);
    layout->addWidget(cancel, 0, 3);
    layout->addWidget(m_fault, 1, 0, 1, 4);
    layout->setColumnStretch(0, 1);
    hide();

    connect(m_edit, &QLineEdit::textChanged, this, &WriteBar::check);
    connect(m_edit, &QLineEdit::returnPressed, this, &WriteBar::write);
    connect(m_write, &QPushButton::clicked, this, &WriteBar::write);
    connect(cancel, &QPushButton::clicked, this, &WriteBar::finish);
}

void WriteBar::ask(const QList<WatchedValue>& values)
{
    m_values.clear();
    for (const WatchedValue& value : values) {
        if (ValueWriter::readOnlyReason(value.tag).isEmpty())
            m_values << value;
    }
    const int readOnly = static_cast<int>(values.size() - m_values.size());
    QString question =
        tr("Write to %n values of %1: %2.", nullptr, static_cast<int>(m_values.size()))
            .arg(stationsOf(m_values), namesOf(m_values));
    if (readOnly > 0)
        question += QLatin1Char(' ') + tr("%n can only be read.", nullptr, readOnly);
    if (m_values.isEmpty())
        question = tr("What is selected can only be read.");
    m_question->setText(question);
    m_edit->clear();
    m_edit->setEnabled(!m_values.isEmpty());
    check();
    show();
    m_edit->setFocus();
}

void WriteBar::check()
{
    QString fault;
    for (const WatchedValue& value : m_values) {
        kx::TagAssignment assignment;
        if (!ValueWriter::parse(value, m_edit->text(), &assignment, &fault))
            break;
    }
    const bool isTyped = !m_edit->text().isEmpty();
    m_write->setEnabled(isTyped && fault.isEmpty() && !m_values.isEmpty());
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, stateColor(CellState::NotWritten, colors));
    m_fault->setPalette(colors);
    m_fault->setText(isTyped ? fault : QString());
    m_fault->setVisible(isTyped && !fault.isEmpty());
}

void WriteBar::write()
{
    if (!m_write->isEnabled())
        return;
    QList<QPair<int, kx::TagAssignment>> writes;
    for (const WatchedValue& value : m_values) {
        kx::TagAssignment assignment;
        QString fault;
        if (!ValueWriter::parse(value, m_edit->text(), &assignment, &fault))
            return;
        writes << qMakePair(value.number, assignment);
    }
    for (const auto& one : writes)
        m_writer->write(one.first, one.second);
    finish();
}

void WriteBar::finish()
{
    hide();
    m_values.clear();
    emit closed();
}

void WriteBar::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        finish();
    else
        QFrame::keyPressEvent(event);
}

} // namespace kxpanel
