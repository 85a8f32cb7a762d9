#include "kxpanel/grid/edit/add_line.h"

#include "addresses/station_text.h"
#include "kxpanel/grid/edit/watch_delegate.h"
#include "kxpanel/grid/model/cell_texts.h"
#include "kxpanel/tags/tag_text.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

#include <QtCore/QStringListModel>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace kxpanel
{

namespace
{

const int SHORTEST_EDIT = 24; // characters

QString meaningOf(const kx::Tag& tag)
{
    const int values = kx::valuesIn(tag.range, tag.format);
    const QString where =
        AddLine::tr("%1 at station %2").arg(modbusCellText(tag.range)).arg(tag.range.station);
    return values == 1 ? where : AddLine::tr("%1, %n values", nullptr, values).arg(where);
}

} // namespace

QStringList addressCompletions(const QString& typed)
{
    const int slash = static_cast<int>(typed.indexOf(QLatin1Char('/')));
    const QStringList words =
        (slash < 0 ? kx::registerTypeNames() : kx::formatNames()).split(QStringLiteral(", "));
    QStringList completions;
    for (QString word : words) {
        if (word.endsWith(QLatin1String(":N")))
            word.chop(1);
        const QString whole = typed.left(slash + 1) + word;
        if (whole.startsWith(typed) && whole != typed)
            completions << whole;
    }
    return completions;
}

AddLine::AddLine(QWidget* parent)
    : QWidget(parent),
      m_edit(new QLineEdit(this)),
      m_station(new QSpinBox(this)),
      m_add(new QPushButton(tr("Add"), this)),
      m_completions(new QStringListModel(this))
{
    m_edit->setPlaceholderText(tr("Add an address: D100, X17, D100:4@2, D100/float*0.1,unit=bar"));
    m_edit->setToolTip(tr("TYPE and number, then :COUNT, @STATION and /FORMAT (Insert)"));
    m_edit->setAccessibleName(tr("Address to add"));
    m_edit->setClearButtonEnabled(true);
    m_edit->setMinimumWidth(fontMetrics().averageCharWidth() * SHORTEST_EDIT);
    auto* const completer = new QCompleter(m_completions, this);
    completer->setCompletionMode(QCompleter::PopupCompletion);
    m_edit->setCompleter(completer);
    m_station->setRange(kx::LOWEST_STATION, kx::HIGHEST_STATION);
    m_station->setAccessibleName(tr("Station of addresses that name none"));
    m_station->setToolTip(tr("Station of addresses that name none, 1 to 247"));
    m_add->setEnabled(false);
    m_add->setToolTip(tr("Add the address to the list (Enter)"));

    auto* const label = new QLabel(tr("&Station"), this);
    label->setBuddy(m_station);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit, 1);
    layout->addWidget(m_add);
    layout->addWidget(label);
    layout->addWidget(m_station);

    connect(m_edit, &QLineEdit::textChanged, this, &AddLine::onEdited);
    connect(m_edit, &QLineEdit::returnPressed, this, &AddLine::onEntered);
    connect(m_add, &QPushButton::clicked, this, &AddLine::onEntered);
    connect(m_station, QOverload<int>::of(&QSpinBox::valueChanged), this, [this]() {
        onEdited(m_edit->text());
        emit stationChanged();
    });
}

int AddLine::station() const
{
    return m_station->value();
}

void AddLine::setStation(int station)
{
    m_station->setValue(station);
}

bool AddLine::check(kx::Tag* tag)
{
    const QString typed = m_edit->text().trimmed();
    QString reason;
    const bool isRight = parseTypedTag(typed, station(), tag, &reason);
    QPalette colors = palette();
    if (!isRight && !typed.isEmpty())
        colors.setColor(QPalette::Text, stateColor(CellState::NotWritten, colors));
    m_edit->setPalette(colors);
    m_add->setEnabled(isRight);
    emit explained(typed.isEmpty() ? QString()
                   : isRight       ? meaningOf(*tag)
                                   : kx::faultyText(typed, reason),
                   !isRight);
    return isRight;
}

void AddLine::onEdited(const QString& typed)
{
    const QStringList completions = addressCompletions(typed);
    if (m_completions->stringList() != completions)
        m_completions->setStringList(completions);
    kx::Tag tag;
    check(&tag);
}

void AddLine::onEntered()
{
    kx::Tag tag;
    if (!check(&tag))
        return;
    m_edit->clear();
    emit added(tag);
}

} // namespace kxpanel
