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

QStringList namesOf(const QList<WatchedValue>& values)
{
    QStringList names;
    for (const WatchedValue& value : values)
        names << TagList::shownName(value);
    return names;
}

/// The first of them, and how many there are besides.
QString listText(const QStringList& texts)
{
    const int more = static_cast<int>(texts.size()) - MOST_NAMES;
    const QString text = QStringList(texts.mid(0, MOST_NAMES)).join(QStringLiteral(", "));
    return more > 0 ? WriteBar::tr("%1 and %2 more").arg(text, QString::number(more)) : text;
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
    for (QLabel* const label : {m_question, m_fault}) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText); // names are no markup
    }
    m_edit->setAccessibleName(tr("Value to write to all"));
    m_edit->setMinimumWidth(fontMetrics().averageCharWidth() * SHORTEST_EDIT);
    m_write->setToolTip(tr("Write to all of them (Enter)"));
    auto* const cancel = new QPushButton(tr("&Cancel"), this);
    cancel->setToolTip(tr("Write nothing (Esc)"));
    for (QPushButton* const button : {m_write, cancel})
        button->setAutoDefault(true); // Enter presses the one that has the focus

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
            .arg(stationsOf(m_values), listText(namesOf(m_values)));
    if (readOnly > 0)
        question += QLatin1Char(' ') + tr("%n can only be read.", nullptr, readOnly);
    if (m_values.isEmpty())
        question = tr("What is selected can only be read.");
    m_edit->clear();
    check();
    open(question, true);
}

bool WriteBar::askEach(const QList<QPair<WatchedValue, QString>>& values, QString* fault)
{
    QList<WatchedValue> written;
    QList<QPair<int, kx::TagAssignment>> writes;
    QStringList texts;
    for (const auto& one : values) {
        kx::TagAssignment assignment;
        *fault = ValueWriter::readOnlyReason(one.first.tag);
        if (!fault->isEmpty() || !ValueWriter::parse(one.first, one.second, &assignment, fault))
            return false;
        written << one.first;
        writes << qMakePair(one.first.number, assignment);
        texts << QStringLiteral("%1 = %2").arg(assignment.tag.name, kx::valuesText(assignment));
    }
    m_values = written;
    m_writes = writes;
    m_fault->hide();
    open(tr("Write %n values of %1: %2.", nullptr, static_cast<int>(texts.size()))
             .arg(stationsOf(m_values), listText(texts)),
         false);
    return true;
}

/// @param isTyped whether the value is still to be typed
void WriteBar::open(const QString& question, bool isTyped)
{
    m_question->setText(question);
    m_edit->setVisible(isTyped);
    m_edit->setEnabled(!m_values.isEmpty());
    m_write->setEnabled(!m_writes.isEmpty());
    show();
    if (isTyped)
        m_edit->setFocus();
    else
        m_write->setFocus();
}

/// What is typed as the writes of all values.
bool WriteBar::parseAll(QString* fault)
{
    m_writes.clear();
    for (const WatchedValue& value : m_values) {
        kx::TagAssignment assignment;
        if (!ValueWriter::parse(value, m_edit->text(), &assignment, fault)) {
            m_writes.clear();
            return false;
        }
        m_writes << qMakePair(value.number, assignment);
    }
    return true;
}

void WriteBar::check()
{
    QString fault;
    const bool isTyped = !m_edit->text().isEmpty();
    m_writes.clear();
    if (isTyped)
        parseAll(&fault);
    m_write->setEnabled(!m_writes.isEmpty());
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, stateColor(CellState::NotWritten, colors));
    m_fault->setPalette(colors);
    m_fault->setText(fault);
    m_fault->setVisible(!fault.isEmpty());
}

void WriteBar::write()
{
    const QList<QPair<int, kx::TagAssignment>> writes = m_writes;
    if (writes.isEmpty())
        return;
    finish(); // before the writes tell of themselves
    for (const auto& one : writes)
        m_writer->write(one.first, one.second);
}

void WriteBar::finish()
{
    hide();
    m_values.clear();
    m_writes.clear();
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
