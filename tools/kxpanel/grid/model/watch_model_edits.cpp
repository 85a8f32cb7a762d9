// What a person does to the rows: edits, drags.

#include "kxpanel/grid/model/watch_model.h"
#include "kxpanel/tags/tag_list.h"
#include "kxpanel/tags/tag_names.h"
#include "kxpanel/tags/tag_text.h"
#include "panel/text/duration.h"
#include "panel/values/format_text.h"
#include "panel/values/value_address.h"

#include <QUndoStack> // in another module since Qt 6
#include <QtCore/QMimeData>
#include <QtCore/QSet>

#include <algorithm>

namespace kxpanel
{

namespace
{

/// One value again, of other registers or another meaning.
bool takePlace(const kx::Tag& place, const QString& typed, kx::Tag* tag, QString* fault)
{
    if (kx::valuesIn(place.range, place.format) != 1) {
        *fault = kx::faultyText(
            typed, QCoreApplication::translate("kxpanel::WatchModel", "a row has one value"));
        return false;
    }
    tag->range = place.range;
    tag->range.width = place.range.values;
    tag->format = place.format;
    return true;
}

bool parseAddress(const QString& typed, kx::Tag* tag, QString* fault)
{
    kx::Tag place;
    QString reason;
    if (parseTypedTag(typed, tag->range.station, &place, &reason))
        return takePlace(place, typed, tag, fault);
    *fault = kx::faultyText(typed, reason);
    return false;
}

bool parseFormat(const QString& typed, kx::Tag* tag, QString* fault)
{
    kx::Tag place;
    place.range = tag->range;
    place.range.values = 1;
    place.range.width = 1;
    if (tag->format.bit >= 0) {
        place.format.kind = kx::ValueKind::Bit;
        place.format.bit = tag->format.bit;
    }
    QString reason;
    if ((typed.isEmpty() || kx::parseFormat(typed, &place.format, &reason))
        && kx::coverValues(&place.range, &place.format, &reason))
        return takePlace(place, typed, tag, fault);
    *fault = kx::faultyText(typed, reason);
    return false;
}

/// Nothing: none of its own.
bool parseEvery(const QString& typed, kx::Tag* tag, QString* fault)
{
    tag->interval = -1;
    if (typed.isEmpty() || kx::parseInterval(typed, &tag->interval))
        return true;
    *fault =
        kx::faultyText(typed, QCoreApplication::translate(
                                  "kxpanel::WatchModel",
                                  "must be a time from 0 to 1440min, such as 500ms, 10s or 5min"));
    return false;
}

QByteArray numbersText(const QList<int>& numbers)
{
    QByteArray text;
    for (const int number : numbers)
        text += QByteArray::number(number) + '\n';
    return text;
}

QList<int> numbersOf(const QByteArray& text)
{
    QList<int> numbers;
    for (const QByteArray& line : text.split('\n')) {
        if (!line.isEmpty())
            numbers << line.toInt();
    }
    return numbers;
}

} // namespace

/// What becomes of an edit that is right.
struct WatchModel::Edit {
    kx::Tag tag;
    kx::TagAssignment assignment; ///< of the value's column
};

bool WatchModel::parseEdit(const WatchedValue& value, int column, const QString& text, Edit* edit,
                           QString* fault) const
{
    edit->tag = value.tag;
    switch (column) {
    case Name:
        edit->tag.name = text.simplified();
        if (edit->tag.name != value.tag.name && TagNames(m_tags->values()).isTaken(edit->tag.name))
            *fault = tr("the name '%1' is taken").arg(edit->tag.name);
        return fault->isEmpty();
    case Comment:
        edit->tag.comment = text.simplified();
        return true;
    case Address:
        return parseAddress(text.trimmed(), &edit->tag, fault);
    case Format:
        return parseFormat(text.trimmed(), &edit->tag, fault);
    case Every:
        return parseEvery(text.trimmed(), &edit->tag, fault);
    case Value:
        return ValueWriter::parse(value, text, &edit->assignment, fault);
    default:
        return false;
    }
}

QString WatchModel::faultOf(const QModelIndex& index, const QString& text) const
{
    const WatchedValue* const value = valueAt(index.row());
    Edit edit;
    QString fault;
    if (value)
        parseEdit(*value, index.column(), text, &edit, &fault);
    return fault;
}

bool WatchModel::setData(const QModelIndex& index, const QVariant& text, int role)
{
    const WatchedValue* const value = role == Qt::EditRole ? valueAt(index.row()) : nullptr;
    if (!value)
        return false;
    Edit edit;
    QString fault;
    if (!parseEdit(*value, index.column(), text.toString(), &edit, &fault)) {
        emit refused(fault);
        return false;
    }
    if (index.column() == Value)
        m_writer->write(value->number, edit.assignment);
    else if (text.toString() != editTextOf(*value, index.column()).toString())
        pushEdit(m_undo, std::make_unique<EditTag>(m_tags, *value, edit.tag));
    return true;
}

QStringList WatchModel::mimeTypes() const
{
    return {QString::fromLatin1(VALUES_MIME_TYPE)};
}

QMimeData* WatchModel::mimeData(const QModelIndexList& indexes) const
{
    QSet<int> rows;
    QList<int> numbers;
    QList<kx::Tag> tags;
    for (const QModelIndex& index : indexes) {
        const WatchedValue* const value = valueAt(index.row());
        if (!value || rows.contains(index.row()))
            continue;
        rows.insert(index.row());
        numbers << value->number;
        tags << value->tag;
    }
    QMimeData* const data = tagsData(tags);
    data->setData(QString::fromLatin1(VALUES_MIME_TYPE), numbersText(numbers));
    data->setData(QString::fromLatin1(PROCESS_MIME_TYPE),
                  QByteArray::number(QCoreApplication::applicationPid()));
    return data;
}

bool WatchModel::canDropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                                 const QModelIndex&) const
{
    return data->hasFormat(QString::fromLatin1(VALUES_MIME_TYPE));
}

bool WatchModel::dropMimeData(const QMimeData* data, Qt::DropAction, int row, int,
                              const QModelIndex& parent)
{
    const QList<int> numbers = numbersOf(data->data(QString::fromLatin1(VALUES_MIME_TYPE)));
    if (numbers.isEmpty())
        return false;
    const int before = row >= 0 ? row : parent.isValid() ? parent.row() : rowCount();
    pushEdit(m_undo, std::make_unique<MoveTags>(m_tags, numbers, before));
    return true;
}

} // namespace kxpanel
